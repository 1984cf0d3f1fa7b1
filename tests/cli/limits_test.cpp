// What the user, or the system, has left the program little of: room for temporary files, a home, a
// stack, descriptors, threads, addresses. The built program does what it was asked for or says what
// stands in its way. Not for Windows, where a shell sets no limits.

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "support/made_texts.h"
#include "support/memory_limit.h"
#include "support/run_program.h"
#include "support/test_folder.h"
#include "support/zip_builder.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

// One of each kind of run; each writes out.txt.
const std::pair<const char*, const char*> KINDS_OF_RUN[] = {
    {"text", "a.txt -o out.txt"},
    {"long text", "l.txt -o out.txt --language none"},
    {"page", "p.htm -o out.txt"},
    {"document", "d.docx -o out.txt"},
    {"search", "a.txt -k k.txt -o out.txt"},
    {"index written", "a.txt -o out.txt --index"},
    {"index read", "i.txt -o out.txt --use-index"},
    {"rows", "a.txt -o out.txt --format tsv"},
    {"settings read", "-s s.lvz -o out.txt"},
    {"settings", "a.txt --save-settings out.txt"},
};

void FillFolder(const TestFolder& folder) {
  const std::string text = Repeated("The ship lay in the harbour, and a lamp was lit.\r\n", 30);
  for (const char* name : {"a.txt", "i.txt"}) (void)folder.Write(name, text);
  (void)folder.Write("l.txt", Repeated("The silent harbour ships were lit all night.\r\n", 1500));
  (void)folder.Write("p.htm", "<!DOCTYPE html><head></head><body>" + text + "</body>");
  const std::string body = "<w:p><w:t>" + Repeated(text, 20) + "</w:t></w:p>";
  (void)folder.Write("d.docx", ZipArchive({{"word/document.xml", body}}));
  (void)folder.Write("k.txt", "harbour\r\n");
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "i.txt --index -q"), 0);
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "a.txt --save-settings s.lvz -q"), 0);
  fs::create_directory(folder.Path("tmp"));
  (void)folder.Write("out.txt", "old");
}

// Runs the program after `before` and expects that it ended well, or with a message and with all
// files as they were. Gives whether it ended well.
bool EndsWellOrSaysWhy(const TestFolder& folder, const std::string& run, const std::string& before,
                       const std::string& newFile) {
  SCOPED_TRACE(before + run);
  (void)folder.Write("out.txt", "old");
  fs::remove(folder.Path("a.qvl.ndx"));
  const std::string shell = "export TMPDIR=tmp; " + before;
  const int status = RunProgram(folder, QUORVEL_CLI, run, shell.c_str());
  EXPECT_LT(status, 128);
  const std::string said = folder.Read("err");
  const std::string found = folder.Read("out.txt");
  EXPECT_TRUE(WithoutTime(found) == newFile || (status == 1 && found == "old")) << status << said;
  EXPECT_TRUE(status == 0 || said.find("quorvel-cli: ") != std::string::npos) << status << said;
  EXPECT_EQ(fs::exists(folder.Path("tmp")) && !fs::is_empty(folder.Path("tmp")), false);
  for (const auto& file : fs::directory_iterator(folder.Path(""))) {
    EXPECT_FALSE(file.path().filename().string().starts_with(".qvl")) << file.path();
  }
  return status == 0;
}

// Tries all runs after each of what is to stand before them, and gives how many ended well.
int RunAll(const std::vector<std::string>& befores) {
  const TestFolder folder;
  FillFolder(folder);
  int ended = 0;
  for (const auto& [name, run] : KINDS_OF_RUN) {
    SCOPED_TRACE(name);
    EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, run), 0);
    const std::string newFile = WithoutTime(folder.Read("out.txt"));
    for (const std::string& before : befores) {
      ended += EndsWellOrSaysWhy(folder, run, before, newFile) ? 1 : 0;
    }
  }
  return ended;
}

int Runs() { return static_cast<int>(std::size(KINDS_OF_RUN)); }

TEST(Limits, OfTheStackAreNoMatter) {
  if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "a sanitizer takes much of the stack";
  EXPECT_EQ(RunAll({"ulimit -s 64;", "ulimit -s 100;", "ulimit -s 256;"}), 3 * Runs());
}

TEST(Limits, OfHomesAreNoMatter) {
  EXPECT_EQ(RunAll({"unset HOME XDG_CONFIG_HOME;", "HOME=/dev/null XDG_CONFIG_HOME=/dev/null/x"}),
            2 * Runs());
}

TEST(Limits, OfTheFolderForTemporaryFilesAreTold) {
  const struct {
    const char* name;
    const char* before;
    const char* said;
  } rows[] = {
      {"not there", "TMPDIR=no", "Unable to create temporary folder."},
      {"no folder", "TMPDIR=k.txt", "Unable to create temporary folder."},
      {"not for writing", "TMPDIR=/proc/self", "Unable to create temporary folder."},
      {"full", "ulimit -f 8;", "Unable to write to temporary folder."},
  };
  const TestFolder folder;
  FillFolder(folder);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_FALSE(EndsWellOrSaysWhy(folder, "d.docx -o out.txt", row.before, ""));
    EXPECT_EQ(folder.Read("err"), "quorvel-cli: d.docx: " + std::string(row.said) + "\n");
  }
}

TEST(Limits, OfDescriptorsAreTold) {
  if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "a sanitizer wants descriptors of its own";
  // What the tests were started with may have left some open.
  const std::string alone = "exec 3>&- 4>&- 5>&- 6>&- 7>&- 8>&- 9>&-; ";
  EXPECT_GE(RunAll({alone + "prlimit --nofile=4 ", alone + "prlimit --nofile=5 ",
                    alone + "prlimit --nofile=8 "}),
            2 * Runs());
}

TEST(Limits, OfAddressesAreTold) {
  if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "memory cannot be limited here";
  constexpr int NOT_LOADED = 127;  // the libraries have no room, and main is never called
  std::vector<std::string> befores;
  for (int kilobytes = 8000; kilobytes < 40000; kilobytes += 1000) {
    const std::string before = "ulimit -v " + std::to_string(kilobytes) + ";";
    const int status = RunProgram(TestFolder(), QUORVEL_CLI, "--version", before.c_str());
    if (status != NOT_LOADED) befores.push_back(before);
  }
  EXPECT_GT(RunAll(befores), Runs());
}

// Root may start as many threads as it likes, so it becomes another user.
TEST(Limits, OfThreadsAreNoMatter) {
  if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "a sanitizer starts processes of its own";
  const bool isRoot = ::geteuid() == 0;
  const std::string limited =
      "prlimit --nproc=1 " +
      std::string(isRoot ? "setpriv --reuid=65534 --regid=65534 --clear-groups " : "");
  if (RunProgram(TestFolder(), QUORVEL_CLI, "--version", limited.c_str()) != 0) {
    GTEST_SKIP() << "no other user can start it";
  }
  EXPECT_EQ(RunAll({"chmod a+rwx . tmp *.txt; " + limited}), Runs());
}

// Each stream that is closed, and what the program then does.
TEST(Limits, OfStandardStreamsAreTold) {
  const struct {
    const char* name;
    const char* arguments;
    int status;
    const char* said;
    const char* out;  // the beginning of the file
  } rows[] = {
      {"none", "a.txt -k k.txt -o out.txt <&- >&- 2>&- #", 0, "", "Input file: a.txt\r\n"},
      {"no errors", "a.txt -k k.txt -o out.txt 2>&- #", 0, "", "Input file: a.txt\r\n"},
      {"no errors, output refused", "a.txt -k no.txt -o out.txt 2>&- #", 1, "", "old"},
      {"a listing to none", "a.txt -q -o - >&- 2>err #", 1,
       "quorvel-cli: a.txt: An error occurred when writing to standard output.\n", "old"},
      {"the version to none", "--version >&- 2>err #", 1,
       "quorvel-cli: An error occurred when writing to standard output.\n", "old"},
      {"the help to none", "--help >&- 2>err #", 1,
       "quorvel-cli: An error occurred when writing to standard output.\n", "old"},
      {"an index with none", "a.txt -o out.txt --index <&- >&- 2>&- #", 0, "",
       "Input file: a.txt\r\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const TestFolder folder;
    FillFolder(folder);
    (void)folder.Write("err", "");
    EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, row.arguments), row.status);
    EXPECT_EQ(folder.Read("err"), row.said);
    EXPECT_TRUE(folder.Read("out.txt").starts_with(row.out));
    EXPECT_EQ(folder.Read("out.txt").find("quorvel-cli"), std::string::npos);
  }
}

}  // namespace
}  // namespace quorvel
