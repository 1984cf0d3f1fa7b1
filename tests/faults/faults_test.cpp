// No fault of the system loses a file. The library of failing_files.cpp makes each file operation
// of the built program fail in turn. The program is also killed at each of them and in between.
//
// With QUORVEL_ALL_FAULTS set, each operation fails in every listed way, otherwise in one.

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <thread>

#include "faults/desk.h"

namespace quorvel {
namespace {

using namespace std::string_literals;

// How an operation can fail. With "+", later operations fail too.
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
  std::string lastWrite;  // the last operation on the bytes of a file before it
};

// The file operations of the scenario.
std::vector<Operation> OperationsOf(const Desk& desk) {
  const std::set<std::string> others = {"close", "stat", "change"};  // the rights of an old file
  std::vector<Operation> operations;
  std::istringstream log(desk.log);
  Operation operation;
  while (log >> operation.name && std::getline(log >> std::ws, operation.path)) {
    operations.push_back(operation);
    if (!others.contains(operation.name)) operation.lastWrite = operation.name;
  }
  return operations;
}

// The ways in which the n-th operation of the run must fail.
std::vector<std::string> KindsOf(const Operation& operation, std::size_t n) {
  std::vector<std::string> kinds = FAULTS.at(operation.name);
  kinds.insert(kinds.end(), LASTING.begin(), LASTING.end());
  if (AllFaults()) return kinds;
  // All stop-words files are read in the same way, so one operation in four is enough.
  if (operation.path.find("/bin/") != std::string::npos && n % 4 != 0) return {};
  return {kinds[n % kinds.size()]};
}

// Returns what is wrong after a run with this fault.
std::string FaultComplaint(const Desk& desk, const Operation& operation, const std::string& kind,
                           const Ending& ending) {
  const bool killed = kind == "K";
  const bool silent = ending.errors == desk.clean.errors;
  const bool failed = ending.status != 0;
  bool saysWhere = false;
  for (const std::string& place : {desk.folder.Path(""), "input file"s, "temporary folder"s}) {
    saysWhere = saysWhere || ending.errors.find(place) != std::string::npos;
  }
  std::string complaint = ending.signal == (killed ? SIGKILL : 0) ? "" : "signal; ";
  if (!killed && failed && (silent || !saysWhere)) complaint += "does not say what failed where; ";
  if ((kind == "E4" || kind == "S") && (failed || !silent)) complaint += "gives up; ";
  const bool stuck = kind == "E13+d" && operation.path.find("/tmp/") != std::string::npos;
  if (stuck && ending.errors.find("when attempting to delete ") == std::string::npos)
    complaint += "does not say what stays; ";
  complaint += desk.FilesComplaint(!killed && !failed && silent);
  // A file that cannot be removed stays, and the user is told.
  const bool stays = kind == "E5+" || (operation.name == "remove" && !silent);
  return complaint + (stays ? "" : desk.Litter(killed));
}

TEST(Faults, LoseNothing) {
  std::size_t faults = 0;
  Desk desk(QUORVEL_FAILING_FILES);
  for (const Scenario& scenario : SCENARIOS) {
    desk.Begin(scenario);
    const std::vector<Operation> operations = OperationsOf(desk);
    EXPECT_GT(operations.size(), 10U) << scenario.name;
    for (std::size_t n = 0; n < operations.size(); ++n) {
      const Operation& operation = operations[n];
      SCOPED_TRACE(scenario.name + (" " + operation.name + " " + operation.path));
      EXPECT_TRUE(operation.name != "rename" || operation.lastWrite == "fsync");
      for (const std::string& kind : KindsOf(operation, n)) {
        const Ending ending = desk.Run(std::to_string(n + 1) + " " + kind);
        EXPECT_EQ(FaultComplaint(desk, operation, kind, ending), "") << n + 1 << kind << ending;
        desk.PutBack();
        ++faults;
      }
    }
  }
  std::cout << faults << " faults\n";
}

// How an input may change while it is read: cut, emptied, same length, longer.
std::vector<std::string> OtherVersions(const std::string& name, const std::string& bytes) {
  const std::string text = Repeated("The boat lay in the harbour, and a lamp was lit.\r\n", 30);
  std::string other = naive::Replace(bytes, "ship", "boat");
  if (name.ends_with("docx")) {
    other = ZipArchive({{"word/document.xml", "<w:p><w:t>" + text + "</w:t></w:p>"}});
  }
  return {bytes.substr(0, bytes.size() / 2), "", other, bytes + bytes};
}

// The digests in a header and in an index file say which bytes the words are from. The outputs must
// be those of an undisturbed run on either version of the input, or the old outputs.
TEST(Faults, AnInputThatIsWrittenAnewWhileItIsReadIsListedUnderItsOwnDigestOrRefused) {
  Desk desk(QUORVEL_FAILING_FILES);
  for (const std::size_t place : {0, 1, 2, 3, 4}) {
    desk.Begin(SCENARIOS[place]);
    const std::string input = desk.folder.Read(desk.Input());
    const std::string path = desk.folder.Path(desk.Input());
    const std::vector<Operation> operations = OperationsOf(desk);
    const auto old = desk.Written();
    std::size_t turn = 0;
    for (const std::string& renewed : OtherVersions(desk.Input(), input)) {
      (void)desk.folder.Write(desk.Input(), renewed);
      (void)desk.Run("");
      const auto writtenForRenewed = desk.Written();
      EXPECT_NE(writtenForRenewed, desk.whole);
      (void)desk.folder.Write(desk.Input() + ".new", renewed);
      for (std::size_t n = turn++; n < operations.size(); n += AllFaults() ? 1 : 3) {
        if (!operations[n].path.ends_with("/" + desk.Input())) continue;
        desk.PutBack();
        (void)desk.folder.Write(desk.Input(), input);
        const Ending ending = desk.Run(std::to_string(n + 1) + " R" + path);
        const auto written = desk.Written();
        EXPECT_TRUE(written == desk.whole || written == writtenForRenewed ||
                    (written == old && ending.status != 0))
            << SCENARIOS[place].name << ", " << n + 1 << ": " << ending;
      }
      desk.PutBack();
    }
    (void)desk.folder.Write(desk.Input(), input);
  }
}

// The shortest time of several runs, in microseconds. One run may wait for the disk, and most
// moments within its time would be too late for the others.
unsigned QuickestTime(const Desk& desk) {
  auto quickest = std::chrono::microseconds(std::chrono::minutes(1));
  for (int i = 0; i < 3; ++i) {
    const auto start = std::chrono::steady_clock::now();
    (void)desk.Run("");
    const auto time = std::chrono::steady_clock::now() - start;
    quickest = std::min(quickest, std::chrono::duration_cast<std::chrono::microseconds>(time));
    desk.PutBack();
  }
  return static_cast<unsigned>(quickest.count());
}

// A killed program cannot clean up; a program that is asked to end can. If Ctrl-C stops a listing,
// the part that is complete is written.
TEST(Faults, AnEndAtAnyMomentLeavesTheOldOrTheNewFile) {
  const int ends = AllFaults() ? 100 : 10;
  std::mt19937 random(20261121);
  Desk desk(QUORVEL_FAILING_FILES);
  for (const std::size_t place : {0, 3}) {
    desk.Begin(SCENARIOS[place]);
    const unsigned time = QuickestTime(desk);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGKILL}) {
      int ended = 0;
      for (int n = 0; n < ends; ++n) {
        const auto moment = random() % time;
        const pid_t child = desk.Start("");
        std::this_thread::sleep_for(std::chrono::microseconds(moment));
        ::kill(child, signal);
        const int endedBy = desk.EndOf(child).signal;
        EXPECT_TRUE(endedBy == signal || endedBy == 0) << endedBy;
        ended += endedBy == signal ? 1 : 0;
        const std::string complaint = signal == SIGINT ? "" : desk.FilesComplaint(endedBy == 0);
        EXPECT_EQ(complaint + desk.Litter(signal == SIGKILL), "") << signal << " at " << moment;
        if (signal != SIGKILL) desk.PutBack();
      }
      EXPECT_TRUE(ended > 0 || signal == SIGINT) << signal;
    }
    // The files that killed runs left must not disturb a later run.
    EXPECT_EQ(desk.Run("").status, 0);
    EXPECT_EQ(desk.FilesComplaint(true), "");
  }
}

}  // namespace
}  // namespace quorvel
