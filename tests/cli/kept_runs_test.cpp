// The runs that tests/data/runs/ keeps leave behind what is kept with them, byte for byte.

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <vector>

#include "support/run_program.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

const std::filesystem::path RUNS = QUORVEL_TEST_DATA "/runs";

constexpr const char* OUTPUT = "out.txt";
constexpr const char* INDEX = "input.qvl.ndx";

// In an output and in an index: what stands before the date, and the date.
constexpr const char* OUTPUT_DATE =
    "^((?:.*\r\n.*\r\nConcordance|.*\r\nSearch results) file created using Quorvel .*: )"
    "\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d(?=\r\n)";
constexpr const char* INDEX_DATE = "^(.*\r\n)\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d(?=\r\n)";

std::vector<std::string> KeptRuns() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(RUNS)) {
    if (entry.is_directory()) names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string BytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

// The bytes with "<date>" for their date. Expressions are slow, and dates stand at the beginning.
std::string WithoutDate(const std::string& bytes, const std::regex& date) {
  const std::size_t head = std::min<std::size_t>(bytes.size(), 500);
  return std::regex_replace(bytes.substr(0, head), date, "$1<date>") + bytes.substr(head);
}

// Where two texts begin to differ, with what stands there in each.
std::string Difference(const std::string& found, const std::string& expected) {
  const auto there = std::ranges::mismatch(expected, found).in1;
  const auto place = static_cast<std::size_t>(there - expected.begin());
  const std::size_t from = place < 40 ? 0 : place - 40;
  return "at byte " + std::to_string(place) + ", expected\n" + expected.substr(from, 100) +
         "\nfound\n" + found.substr(from, 100);
}

class KeptRun : public testing::TestWithParam<std::string> {};

TEST_P(KeptRun, LeavesWhatIsKeptWithIt) {
  const std::filesystem::path kept = RUNS / GetParam();
  const TestFolder folder;
  std::filesystem::copy(kept, folder.Path(""));
  auto expected = folder.Files();
  expected.erase(OUTPUT);
  for (const auto& [name, file] : {std::pair(OUTPUT, "output"), std::pair(INDEX, "index")}) {
    if (exists(kept / "expected" / file)) expected[name] = BytesOf(kept / "expected" / file);
  }
  const int status =
      RunProgram(folder, QUORVEL_CLI, "--settings case.lvz --encoding auto --answer yes");
  EXPECT_EQ(std::to_string(status) + "\n", BytesOf(kept / "expected/status")) << folder.Read("err");
  auto found = folder.Files();
  for (const auto& [name, date] : {std::pair(OUTPUT, OUTPUT_DATE), std::pair(INDEX, INDEX_DATE)}) {
    if (found.contains(name)) found[name] = WithoutDate(found[name], std::regex(date));
  }
  for (const auto& [name, bytes] : expected) {
    EXPECT_TRUE(found.contains(name)) << "no " << name;
    EXPECT_TRUE(found[name] == bytes) << name << " " << Difference(found[name], bytes);
    found.erase(name);
  }
  for (const auto& file : found) ADD_FAILURE() << file.first << " should not be there";
}

INSTANTIATE_TEST_SUITE_P(CommandLine, KeptRun, testing::ValuesIn(KeptRuns()),
                         [](const auto& run) { return run.param; });

// Were they not found, the test above would be none.
TEST(KeptRuns, AreThere) { EXPECT_GE(KeptRuns().size(), 240U); }

}  // namespace
}  // namespace quorvel
