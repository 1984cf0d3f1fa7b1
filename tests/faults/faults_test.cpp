// No fault of the system loses a file: the built program runs with one file operation after the
// other failing, by the library of failing_files.cpp, and is killed at each of them and between.
//
// With QUORVEL_ALL_FAULTS set each operation fails in every way that is listed; without, in one.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <iostream>
#include <map>
#include <random>
#include <set>
#include <sstream>
#include <thread>

#include "faults/desk.h"

namespace quorvel {
namespace {

const Scenario SCENARIOS[] = {
    {"text", {"@/a.txt", "-o", "@/out.txt", "--index"}, {"out.txt", "a.qvl.ndx"}},
    {"text, nothing there yet", {"@/b.txt", "--index"}, {"b.qvl.conc.txt", "b.qvl.ndx"}, false},
    {"page", {"@/p.htm", "-o", "@/out.txt", "--language", "none"}, {"out.txt"}},
    {"document", {"@/d.docx", "-o", "@/out.txt"}, {"out.txt"}},
    {"search", {"@/b.txt", "-k", "@/k.txt", "-e", "s* lamp", "-o", "@/out.txt"}, {"out.txt"}},
    {"from an index", {"@/i.txt", "--use-index", "-o", "@/out.txt"}, {"out.txt"}},
    {"from settings", {"-s", "@/s.lvz", "--create", "--language", "en"}, {"out.txt"}},
    {"settings", {"@/a.txt", "-k", "@/k.txt", "--save-settings", "@/t.lvz"}, {"t.lvz"}},
};

// In which ways an operation may fail; what has a "+" lasts.
const std::map<std::string, std::vector<std::string>> FAULTS = {
    {"open", {"E13", "E5", "E24"}},
    {"create", {"E28", "E13", "E2"}},
    {"read", {"E5", "E4", "S"}},
    {"fread", {"E5"}},
    {"seek", {"E5"}},
    {"write", {"E28", "E5", "E27", "E4", "S"}},
    {"fsync", {"E28", "E5", "E4"}},
    {"close", {"E5", "E28"}},
    {"stat", {"E13", "E5"}},
    {"access", {"E13", "E30"}},
    {"change", {"E1"}},
    {"rename", {"E13", "E28", "E5", "E2"}},
    {"remove", {"E13", "E5", "E13+d"}},
};
const std::vector<std::string> LASTING = {"E5+", "E28+w", "K"};

struct Operation {
  std::string name;
  std::string path;
};

// The operations of a scenario on its files, of which one fails.
class FileDesk : public Desk {
 public:
  explicit FileDesk(const Scenario& scenario) : Desk(scenario, QUORVEL_FAILING_FILES) {
    std::istringstream log(Log());
    Operation operation;
    while (log >> operation.name && std::getline(log >> std::ws, operation.path)) {
      operations_.push_back(operation);
    }
  }

  [[nodiscard]] const std::vector<Operation>& Operations() const { return operations_; }

  // What was done last for the bytes of a file that is put in its place by the operation; the
  // rights of an old file are given between.
  [[nodiscard]] std::string LastWriteBefore(std::size_t operation) const {
    const std::set<std::string> others = {"close", "stat", "change"};
    while (others.contains(operations_[--operation].name)) continue;
    return operations_[operation].name;
  }

  [[nodiscard]] std::string Input() const { return TheScenario().arguments[0].substr(2); }

  // Runs the scenario with such an input; what someone writes into it at an operation, if any.
  [[nodiscard]] Ending RunOn(const std::string& input, std::size_t operation,
                             const std::string& renewed) const {
    const std::string path = Folder().Write(Input(), input);
    (void)Folder().Write(Input() + ".new", renewed);
    return Run(operation == 0 ? "" : std::to_string(operation) + " R" + path);
  }

  // Starts the scenario and sends it the signal after so long; gives the one that ended it.
  [[nodiscard]] int EndAfter(std::chrono::microseconds time, int signal) const {
    const pid_t child = Fork(TheScenario().arguments, "");
    std::this_thread::sleep_for(time);
    ::kill(child, signal);
    return EndOf(child).signal;
  }

  // What is wrong after a run with such a fault in the operation.
  [[nodiscard]] std::string Complaint(const Operation& operation, const std::string& kind,
                                      const Ending& ending) const {
    const bool killed = kind == "K";
    const bool silent = ending.errors == Clean().errors;
    const bool failed = ending.status != 0;
    const bool saysWhere = std::ranges::any_of(
        std::vector<std::string>{Folder().Path(""), "input file", "temporary folder"},
        [&ending](const auto& place) { return ending.errors.find(place) != std::string::npos; });
    std::string complaint = ending.signal == (killed ? SIGKILL : 0) ? "" : "signal; ";
    if (!killed && failed && (silent || !saysWhere))
      complaint += "does not say what failed where; ";
    if ((kind == "E4" || kind == "S") && (failed || !silent)) complaint += "gives up; ";
    const bool stuck = kind == "E13+d" && operation.path.find("/tmp/") != std::string::npos;
    if (stuck && ending.errors.find("when attempting to delete ") == std::string::npos)
      complaint += "does not say what stays; ";
    complaint += FilesComplaint(!killed && !failed && silent);
    // What cannot be removed stays; the user is told.
    const bool stays = kind == "E5+" || (operation.name == "remove" && !silent);
    return complaint + (stays ? "" : Litter(killed));
  }

  // What is wrong after a run whose input was cut at a read. What there was of it may be listed.
  [[nodiscard]] std::string ComplaintOfCut(const Ending& ending) const {
    std::string complaint = ending.signal == 0 ? "" : "signal; ";
    for (const auto& [name, bytes] : New()) {
      const std::string found = Folder().Read(name);
      const bool isNew = found.starts_with(bytes.substr(0, 20)) && found.ends_with("\r\n");
      if (found != OLD && !isNew) complaint += name + ": a mixture; ";
      if (found == OLD && ending.errors == Clean().errors) complaint += name + ": still the old; ";
    }
    return complaint + Litter(false);
  }

  // What a run takes at least, in microseconds. Of several, as one may have to wait for the disk,
  // and then most moments within its time would be too late for the others.
  [[nodiscard]] double QuickestTime() const {
    std::chrono::duration<double, std::micro> quickest = std::chrono::minutes(1);
    for (int i = 0; i < 3; ++i) {
      const auto start = std::chrono::steady_clock::now();
      (void)Run("");
      quickest = std::min(quickest, decltype(quickest)(std::chrono::steady_clock::now() - start));
      PutBack();
    }
    return quickest.count();
  }

 private:
  std::vector<Operation> operations_;
};

// The ways in which the operation is to fail, the n-th of its run.
std::vector<std::string> KindsOf(const Operation& operation, std::size_t n) {
  std::vector<std::string> kinds = FAULTS.at(operation.name);
  kinds.insert(kinds.end(), LASTING.begin(), LASTING.end());
  if (AllFaults()) return kinds;
  // There are many stop-words files, and all are read in the same way.
  if (operation.path.find("/bin/") != std::string::npos && n % 4 != 0) return {};
  return {kinds[n % kinds.size()]};
}

TEST(Faults, LoseNothing) {
  std::size_t faults = 0;
  for (const Scenario& scenario : SCENARIOS) {
    const FileDesk desk(scenario);
    EXPECT_GT(desk.Operations().size(), 10U) << scenario.name;
    for (std::size_t n = 0; n < desk.Operations().size(); ++n) {
      const Operation& operation = desk.Operations()[n];
      if (operation.name == "rename") {
        EXPECT_EQ(desk.LastWriteBefore(n), "fsync") << "before " << operation.path;
      }
      for (const std::string& kind : KindsOf(operation, n)) {
        const Ending ending = desk.Run(std::to_string(n + 1) + " " + kind);
        EXPECT_EQ(desk.Complaint(operation, kind, ending), "")
            << scenario.name << ", " << n + 1 << " " << kind << ": " << operation.name << " "
            << operation.path << "\n"
            << ending.signal << ending.errors;
        desk.PutBack();
        ++faults;
      }
    }
  }
  std::cout << faults << " faults\n";
}

TEST(Faults, AnInputThatIsCutWhileItIsReadIsListedAsFarAsItCameOrRefused) {
  for (const std::size_t place : {0, 2, 3, 5}) {
    const FileDesk desk(SCENARIOS[place]);
    int cuts = 0;
    for (std::size_t n = 0; n < desk.Operations().size(); ++n) {
      const Operation& operation = desk.Operations()[n];
      if (!operation.name.ends_with("read") || operation.path.find("/bin/") < operation.path.size())
        continue;
      const Ending ending = desk.Run(std::to_string(n + 1) + " Z");
      EXPECT_EQ(desk.ComplaintOfCut(ending), "")
          << SCENARIOS[place].name << ", " << n + 1 << ": " << operation.path << "\n"
          << ending.signal << ending.errors;
      desk.PutBack();
      ++cuts;
    }
    EXPECT_GT(cuts, 0) << SCENARIOS[place].name;
  }
}

// What someone may make of an input while it is read: cut, of the same length, longer.
std::vector<std::string> OtherVersions(const std::string& name, const std::string& bytes) {
  const std::string text = Repeated("The boat lay in the harbour, and a lamp was lit.\r\n", 30);
  std::string other = naive::Replace(bytes, "ship", "boat");
  if (name.ends_with("docx")) {
    const ZipEntry body = {"word/document.xml", "<w:p><w:t>" + text + "</w:t></w:p>"};
    other = ZipArchive({body});
  }
  return {bytes.substr(0, bytes.size() / 2), other, bytes + bytes};
}

// The digests in a header and in an index file say which bytes the words are from: there must be
// what a run writes that finds the one version or the other and is left alone, or the old.
TEST(Faults, AnInputThatIsWrittenAnewWhileItIsReadIsListedUnderItsOwnDigestOrRefused) {
  for (const std::size_t place : {0, 1, 2, 3, 5}) {
    const FileDesk desk(SCENARIOS[place]);
    const std::string input = desk.Folder().Read(desk.Input());
    const auto old = desk.Written();
    const auto writtenFor = [&](const std::string& version) {
      (void)desk.RunOn(version, 0, "");
      auto written = desk.Written();
      desk.PutBack();
      return written;
    };
    const auto writtenForInput = writtenFor(input);
    std::size_t turn = 0;
    for (const std::string& renewed : OtherVersions(desk.Input(), input)) {
      const auto writtenForRenewed = writtenFor(renewed);
      EXPECT_NE(writtenForRenewed, writtenForInput);
      for (std::size_t n = turn++; n < desk.Operations().size(); n += AllFaults() ? 1 : 3) {
        const Operation& operation = desk.Operations()[n];
        if (!operation.path.ends_with("/" + desk.Input())) continue;
        const Ending ending = desk.RunOn(input, n + 1, renewed);
        const auto written = desk.Written();
        EXPECT_TRUE(written == writtenForInput || written == writtenForRenewed ||
                    (written == old && ending.status == 1))
            << SCENARIOS[place].name << ", " << n + 1 << ": " << operation.name << ", of "
            << renewed.size() << " bytes\n"
            << written.begin()->second.substr(0, 300) << ending.signal << ending.errors;
        desk.PutBack();
      }
    }
  }
}

// A kill leaves no time to clear away; a request to end does. What Ctrl-C stops in the listing is
// written as far as it came.
TEST(Faults, AnEndAtAnyMomentLeavesTheOldOrTheNewFile) {
  const int ends = AllFaults() ? 100 : 10;
  std::mt19937 random(20261121);
  for (const std::size_t place : {0, 3}) {
    const FileDesk desk(SCENARIOS[place]);
    const double time = desk.QuickestTime();
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGKILL}) {
      int ended = 0;
      for (int n = 0; n < ends; ++n) {
        const auto moment = static_cast<int>(random() % static_cast<unsigned>(time));
        const int endedBy = desk.EndAfter(std::chrono::microseconds(moment), signal);
        EXPECT_TRUE(endedBy == signal || endedBy == 0) << endedBy;
        ended += endedBy == signal ? 1 : 0;
        const std::string complaint = signal == SIGINT ? "" : desk.FilesComplaint(endedBy == 0);
        EXPECT_EQ(complaint + desk.Litter(signal == SIGKILL), "") << signal << " at " << moment;
        if (signal != SIGKILL) desk.PutBack();
      }
      EXPECT_TRUE(ended > 0 || signal == SIGINT) << signal;
    }
    // What the killed ones left is in nobody's way.
    EXPECT_EQ(desk.Run("").status, 0);
    EXPECT_EQ(desk.FilesComplaint(true), "");
  }
}

}  // namespace
}  // namespace quorvel
