// What is no ordinary file is read by no run and, but for a listing, not written to: the built
// program beside pipes, sockets and devices, none of which may keep it waiting.

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>

#include <functional>
#include <vector>

#include "support/memory_limit.h"
#include "support/run_program.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

constexpr const char* TEXT = "the cat and the dog\r\n";
constexpr const char* BAD_INDEX =
    "quorvel-cli: a.txt: The index file was not made from this input file as it is now, so the "
    "input file will be scanned.\n";

// Runs it for a quarter of a minute at most; gives 124 when that was too short.
int RunInTime(const TestFolder& folder, const std::string& arguments,
              const std::string& before = "") {
  return RunProgram(folder, QUORVEL_CLI, arguments, (before + " timeout 15").c_str());
}

struct Kind {
  const char* name;
  std::function<void(const std::string& path)> make;
};

std::vector<Kind> Kinds() {
  const auto node = [](unsigned type) {
    return
        [type](const std::string& path) { ASSERT_EQ(::mknod(path.c_str(), type | 0600U, 0), 0); };
  };
  const auto link = [](const char* target) {
    return [target](const std::string& path) { fs::create_symlink(target, path); };
  };
  return {{"pipe", node(S_IFIFO)},
          {"socket", node(S_IFSOCK)},
          {"link to a pipe", link("pipe")},
          {"link to a device", link("/dev/zero")}};
}

TEST(FileKinds, OnlyOrdinaryFilesAreReadOrReplaced) {
  const std::string none = ": Is a device or a pipe, not a file\n";
  const struct {
    const char* arguments;  // with "x" for what is no file
    const char* name;
    int status;
    std::string errors;
  } rows[] = {
      {"a.txt --use-index -o -", "a.qvl.ndx", 0, ""},
      {"a.txt --index", "a.qvl.ndx", 1, "a.txt: a.qvl.ndx" + none},
      {"-s x", "x", 1, "x: Error when attempting to restore settings" + none},
      {"--save-settings x", "x", 1, "x: Error when attempting to save settings" + none},
      {"x.txt", "x.txt", 1, "File x.txt is a device or a pipe, not a file.\n"},
      {"a.txt -k x", "x", 1, "a.txt: File x cannot be opened (permission denied).\n"},
      {"a.txt --stop-words x", "x", 1, "a.txt: File x cannot be opened (permission denied).\n"},
  };
  for (const Kind& kind : Kinds()) {
    for (const auto& row : rows) {
      SCOPED_TRACE(std::string(kind.name) + ": " + row.arguments);
      const TestFolder folder;
      (void)folder.Write("a.txt", TEXT);
      ASSERT_EQ(::mkfifo(folder.Path("pipe").c_str(), 0600), 0);
      kind.make(folder.Path(row.name));
      EXPECT_EQ(RunInTime(folder, row.arguments), row.status);
      const std::string said = folder.Read("err");
      EXPECT_EQ(said, row.errors.empty() ? "" : "quorvel-cli: " + row.errors);
      EXPECT_FALSE(fs::is_regular_file(folder.Path(row.name)));
    }
  }
}

TEST(FileKinds, AListingGoesThroughAPipe) {
  const TestFolder folder;
  (void)folder.Write("a.txt", TEXT);
  ASSERT_EQ(::mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(
      RunInTime(folder, "a.txt -c 0 -o pipe 2>err; wait", "{ timeout 15 cat pipe >got & } &&"), 0);
  EXPECT_EQ(RunInTime(folder, "a.txt -c 0 -o -"), 0);
  EXPECT_EQ(folder.Read("got"), folder.Read("out"));
}

// Under a limit of memory that no such file fits into.
TEST(FileKinds, AnIndexThatIsNoneCostsNothing) {
  if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "memory cannot be limited here";
  const struct {
    const char* name;
    std::uintmax_t length;
    std::string begin;
  } rows[] = {{"longer than any file that is read", 10U << 30U, ""},
              {"too long for its input", 1900U << 20U, ""},
              {"too long, with the beginning of one", 1900U << 20U,
               "BD98C7E98FF936A8D5A9616930B0FAD0\r\n2026-11-22 10:00\r\n"},
              {"short", 100, ""}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const TestFolder folder;
    (void)folder.Write("a.txt", TEXT);
    (void)folder.Write("a.qvl.ndx", row.begin);
    fs::resize_file(folder.Path("a.qvl.ndx"), row.length);
    EXPECT_EQ(RunInTime(folder, "a.txt --use-index -o -", "ulimit -v 400000;"), 0);
    EXPECT_EQ(folder.Read("err"), BAD_INDEX);
  }
}

}  // namespace
}  // namespace quorvel
#endif
