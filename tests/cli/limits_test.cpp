// Runs the built program with limits on temporary files, stack, descriptors, threads or address
// space. It must complete the run or say why it cannot. Not for Windows, where a shell cannot set
// limits.

#include "faults/desk.h"
#include "support/platform.h"
#include "support/run_program.h"

namespace quorvel {
namespace {

constexpr int KINDS = std::size(SCENARIOS);

// Runs each scenario after each of the given shell commands. Each run must succeed, or print a
// message and leave all files unchanged. Returns how many succeeded.
int RunAll(const std::vector<std::string>& befores) {
  Desk desk("");
  int ended = 0;
  for (const Scenario& scenario : SCENARIOS) {
    desk.Begin(scenario);
    for (const std::string& before : befores) {
      const Ending ending = desk.Run("", before);
      const bool isDone = ending.status == 0 && desk.Written() == desk.whole;
      const bool isTold = ending.status == 1 && ending.errors.find("quorvel-cli: ") == 0;
      EXPECT_TRUE(ending.signal == 0 && (isDone || isTold)) << scenario.name << before << ending;
      EXPECT_EQ((isDone ? "" : desk.FilesComplaint(false)) + desk.Litter(false), "")
          << scenario.name << before << ending;
      desk.PutBack();
      ended += isDone ? 1 : 0;
    }
  }
  return ended;
}

TEST(Limits, OfTheStackAreNoMatter) {
  if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "a sanitizer takes much of the stack";
  EXPECT_EQ(RunAll({"ulimit -s 64; exec"}), KINDS);
}

TEST(Limits, OfTheFolderForTemporaryFilesAreTold) {
  const std::string none = "Unable to create temporary folder.";
  const std::pair<const char*, std::string> rows[] = {
      {"export TMPDIR=no; exec", none},
      {"export TMPDIR=/proc/self; exec", none},
      {"ulimit -f 1; exec", "Unable to write to temporary folder."}};
  Desk desk("");
  desk.Begin(SCENARIOS[3]);
  for (const auto& [before, said] : rows) {
    const Ending ending = desk.Run("", before);
    EXPECT_EQ(ending.status, 1);
    EXPECT_EQ(ending.errors, "quorvel-cli: " + desk.folder.Path("d.docx") + ": " + said + "\n");
    EXPECT_EQ(desk.FilesComplaint(false) + desk.Litter(false), "") << before;
  }
}

TEST(Limits, OfDescriptorsAreTold) {
  if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "a sanitizer wants descriptors of its own";
  // The parent process may have left some descriptors open.
  const std::string alone = "exec 3>&- 4>&- 5>&- 6>&- 7>&- 8>&- 9>&-; exec prlimit --nofile=";
  EXPECT_GE(RunAll({alone + "4", alone + "5", alone + "8"}), 2 * KINDS);
}

TEST(Limits, OfAddressesAreTold) {
  if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "memory cannot be limited here";
  std::vector<std::string> befores;
  Desk desk("");
  desk.Begin({"version", "--version", {}});
  for (int kilobytes = 8000; kilobytes < 40000; kilobytes += 4000) {
    const std::string before = "ulimit -v " + std::to_string(kilobytes) + "; exec";
    const int status = desk.Run("", before).status;
    // With less, the libraries cannot be loaded, and main is never called.
    if (status == 0 || status == 1) befores.push_back(before);
  }
  EXPECT_GT(RunAll(befores), KINDS);
}

// The limit of threads does not apply to root, so root becomes another user.
TEST(Limits, OfThreadsAreNoMatter) {
  if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "a sanitizer starts processes of its own";
  const bool isRoot = ::geteuid() == 0;
  const std::string limited =
      "exec prlimit --nproc=1 " +
      std::string(isRoot ? "setpriv --reuid=65534 --regid=65534 --clear-groups" : "");
  if (RunProgram(TestFolder(), QUORVEL_CLI, "--version", limited.c_str()) != 0) {
    GTEST_SKIP() << "no other user can start it";
  }
  EXPECT_EQ(RunAll({"chmod a+rwx . tmp *; " + limited}), KINDS);
}

TEST(Limits, OfDataAreNoMatterToASmallDocument) {
  if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "memory cannot be limited here";
  const TestFolder folder;
  (void)folder.Write("a.txt", "the cat and the dog\r\n");
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "a.txt -o -", "ulimit -d 4000;"), 0);
}

// With less memory than such a file needs.
TEST(Limits, OfMemoryAreNoMatterToAnIndexThatIsNone) {
  if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "memory cannot be limited here";
  const std::pair<std::uintmax_t, const char*> rows[] = {
      {10U << 30U, ""},  // longer than the largest input
      {1900U << 20U, ""},
      {1900U << 20U, "BD98C7E98FF936A8D5A9616930B0FAD0\r\n2026-11-22 10:00\r\n"},
      {100, ""}};
  for (const auto& [length, begin] : rows) {
    SCOPED_TRACE(length);
    const TestFolder folder;
    (void)folder.Write("a.txt", "the cat and the dog\r\n");
    (void)folder.Write("a.qvl.ndx", begin);
    fs::resize_file(folder.Path("a.qvl.ndx"), length);
    EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "a.txt --use-index -o -", "ulimit -v 400000;"), 0);
    EXPECT_EQ(folder.Read("err"),
              "quorvel-cli: a.txt: The index file was not made from this input file as it is now, "
              "so the input file will be scanned.\n");
  }
}

}  // namespace
}  // namespace quorvel
