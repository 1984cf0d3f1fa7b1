// No lack of memory loses a file or ends the program without a word: the built program runs with
// one request for memory after the other failing, by the library of failing_memory.cpp.
//
// With QUORVEL_ALL_FAULTS set every request fails; without, some of them.

#include <gtest/gtest.h>

#include <iostream>

#include "faults/desk.h"
#include "support/memory_limit.h"

namespace quorvel {
namespace {

// What is wrong after a run in which memory was lacking. One that could do without has done all.
std::string MemoryComplaint(const Desk& desk, const Ending& ending) {
  std::string complaint = ending.signal == 0 ? "" : "signal; ";
  if (ending.status != 0) {
    const std::size_t place = ending.errors.rfind("quorvel-cli: ");
    const std::string last = place == std::string::npos ? "" : ending.errors.substr(place);
    if (last.find(" memory") == std::string::npos) complaint += "does not say what failed; ";
    if (last.find(desk.Folder().Path("")) == std::string::npos) complaint += "names no file; ";
  }
  return complaint + desk.FilesComplaint(ending.status == 0) + desk.Litter(false);
}

TEST(Faults, OfMemoryLoseNothing) {
  if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "a sanitizer gives memory of its own";
  std::size_t faults = 0;
  Desk desk(QUORVEL_FAILING_MEMORY);
  for (const Scenario& scenario : SCENARIOS) {
    desk.Begin(scenario);
    const long count = std::stol("0" + desk.Log());
    EXPECT_GT(count, 500) << scenario.name;
    // The reading of the options is the same in all runs.
    const long first = faults == 0 ? 1 : 1000;
    const long step = AllFaults() ? 1 : std::max((count - first) / 25, 1L);
    for (long request = first; request <= count; request += step) {
      for (const char* lasting : {"", "+"}) {
        const std::string fault = std::to_string(request) + lasting;
        const Ending ending = desk.Run(fault);
        EXPECT_EQ(MemoryComplaint(desk, ending), "")
            << scenario.name << ", " << fault << " of " << count << "\n"
            << ending;
        desk.PutBack();
        ++faults;
      }
    }
  }
  std::cout << faults << " requests for memory failed\n";
}

}  // namespace
}  // namespace quorvel
