// A run replaces no file that it reads, and no other file that it writes, under whatever name: the
// built program, with an output that is one of them.

#include <gtest/gtest.h>

#include <vector>

#include "support/platform.h"
#include "support/run_program.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

// A settings file that names all that can be named. With `disabled` the concordance is not written.
std::string SettingsBytes(const std::string& output, bool disabled = false) {
  return "\"a.txt\"\r\n\"" + output + "\"\r\n\"k.txt\"\r\n\"" + output +
         "\"\r\n1\r\n0\r\n\"\"\r\n0\r\n0\r\n0\r\n1\r\n0\r\n0\r\n0\r\n1\r\n0\r\n0\r\n5\r\n"
         "\"w.txt\"\r\n\"\"\r\n0\r\n" +
         (disabled ? "1\r\n" : "0\r\n");
}

// A document with its word files and settings; `file` is there too, with what `arguments` want of
// it where they name it "@".
void FillFolder(const TestFolder& folder, const std::string& file, const std::string& arguments) {
  const bool holdsSettings = arguments.find("-s @") != std::string::npos;
  fs::create_directory(folder.Path("sub"));
  (void)folder.Write(file, holdsSettings ? SettingsBytes("o.txt") : "dog\r\n");
  (void)folder.Write("a.txt", "the cat and the dog\r\n");
  (void)folder.Write("k.txt", "dog\r\n");
  (void)folder.Write("w.txt", "cat\r\n");
  (void)folder.Write("s.lvz", SettingsBytes("o.txt"));
}

enum class Link { symbolic, hard };

void MakeLink(Link link, const TestFolder& folder, const std::string& name,
              const std::string& target) {
  if (link == Link::hard) return fs::create_hard_link(folder.Path(target), folder.Path(name));
  fs::create_symlink(target, folder.Path(name));
}

// The file under all its names; makes the links among them, which keep the extension.
std::vector<std::string> NamesOf(const TestFolder& folder, const std::string& file) {
  std::vector<std::string> names = {file, "./" + file, "sub/../" + file, folder.Path(file)};
  if (ON_WINDOWS) return names;
  const std::string extension = fs::path(file).extension().string();
  MakeLink(Link::symbolic, folder, "symbolic" + extension, file);
  MakeLink(Link::hard, folder, "hard" + extension, file);
  names.insert(names.end(), {"symbolic" + extension, "hard" + extension});
  return names;
}

std::string With(std::string text, const std::string& name) {
  const std::size_t place = text.find('@');
  return place == std::string::npos ? text : text.replace(place, 1, name);
}

// The run must be refused with this message and leave every file as it is, but for one that the
// shell has emptied before it.
void ExpectRefused(const TestFolder& folder, const std::string& arguments,
                   const std::string& message, const std::string& emptied = "") {
  SCOPED_TRACE(arguments);
  auto before = folder.Files();
  if (!emptied.empty()) before[emptied].clear();
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, arguments + " -q --answer yes"), 1);
  std::string said = folder.Read("err");
  if (ON_WINDOWS) std::erase(said, '\r');
  EXPECT_EQ(said, "quorvel-cli: " + message + "\n");
  EXPECT_EQ(folder.Files(), before);
}

// The same with the texts that a message is made of.
std::string CannotBe(const std::string& output, const std::string& replaced) {
  return "The " + output + " file cannot be the same as the " + replaced + " file.";
}

struct Pair {
  const char* arguments;  // with "@" for a name of the file
  const char* file;
  const char* output;
  const char* replaced;
  const char* before = "a.txt: ";  // the message
};

const Pair PAIRS[] = {
    {"a.txt -o @", "a.txt", "concordance", "input"},
    {"@ -o a.txt", "a.txt", "concordance", "input", "@: "},
    {"a.txt -k k.txt --create -o @", "k.txt", "concordance", "keywords"},
    {"a.txt --stop-words w.txt -o @", "w.txt", "concordance", "stop words"},
    {"a.txt --stop-words @", "a.qvl.conc.txt", "concordance", "stop words"},
    {"-s s.lvz -o @", "s.lvz", "concordance", "settings"},
    {"-s s.lvz -o @", "k.txt", "concordance", "keywords"},
    {"-s s.lvz -o @", "w.txt", "concordance", "stop words"},
    {"-s @", "o.txt", "concordance", "settings"},
    {"a.txt -e dog -o @", "a.txt", "search results", "input"},
    {"a.txt -k k.txt -o @", "k.txt", "search results", "keywords"},
    {"a.txt -k @ -o k.txt", "k.txt", "search results", "keywords"},
    {"a.txt -e dog --stop-words w.txt -o @", "w.txt", "search results", "stop words"},
    {"-s s.lvz --search -o @", "s.lvz", "search results", "settings"},
    {"-s @ --search", "o.txt", "search results", "settings"},
    {"a.txt --format tsv -o @", "a.txt", "concordance", "input"},
    {"a.txt --format json --stop-words w.txt -o @", "w.txt", "concordance", "stop words"},
    {"a.txt --format tsv --stop-words @", "a.qvl.conc.tsv", "concordance", "stop words"},
    {"-s s.lvz --format tsv -o @", "s.lvz", "concordance", "settings"},
    {"a.txt -e dog --format json -o @", "a.txt", "search results", "input"},
    {"a.txt -k k.txt --format tsv -o @", "k.txt", "search results", "keywords"},
    {"a.txt -k @ --create --index", "a.qvl.ndx", "index", "keywords"},
    {"a.txt --stop-words @ --index", "a.qvl.ndx", "index", "stop words"},
    {"-s @ --index", "a.qvl.ndx", "index", "settings"},
    {"a.txt -o @ --index", "a.qvl.ndx", "index", "concordance"},
    {"a.txt -o @ --index --format tsv", "a.qvl.ndx", "index", "concordance"},
    {"a.txt --save-settings @", "a.txt", "settings", "input"},
    {"-k k.txt --save-settings @", "k.txt", "settings", "keywords", ""},
    {"a.txt --stop-words w.txt --save-settings @", "w.txt", "settings", "stop words"},
    {"-s s.lvz --save-settings @", "w.txt", "settings", "stop words"},
};

TEST(KeptFiles, AreReplacedByNoOutputUnderAnyName) {
  for (const Pair& pair : PAIRS) {
    const TestFolder folder;
    FillFolder(folder, pair.file, pair.arguments);
    for (const std::string& name : NamesOf(folder, pair.file)) {
      ExpectRefused(folder, With(pair.arguments, name),
                    With(pair.before, name) + CannotBe(pair.output, pair.replaced));
    }
  }
}

// Here it is the output whose name is given, and the link bears it.
TEST(KeptFiles, AreReplacedByNoOutputThatIsALinkToThem) {
  SKIP_ON_WINDOWS("links are made otherwise");
  const struct {
    const char* arguments;
    const char* name;
    const char* target;
    const char* output;
    const char* replaced;
  } rows[] = {
      {"a.txt --index", "a.qvl.ndx", "a.txt", "index", "input"},
      {"a.txt --index -k k.txt --create", "a.qvl.ndx", "k.txt", "index", "keywords"},
      {"a.txt --index -o o.txt", "a.qvl.ndx", "o.txt", "index", "concordance"},
      {"a.txt", "a.qvl.conc.txt", "a.txt", "concordance", "input"},
      {"-s s.lvz --format json", "a.qvl.conc.json", "s.lvz", "concordance", "settings"},
  };
  for (const auto& row : rows) {
    for (const Link link : {Link::symbolic, Link::hard}) {
      const TestFolder folder;
      FillFolder(folder, "o.txt", row.arguments);
      MakeLink(link, folder, row.name, row.target);
      ExpectRefused(folder, row.arguments, "a.txt: " + CannotBe(row.output, row.replaced));
    }
  }
}

// Where neither is there yet, the system cannot tell that they are one.
TEST(KeptFiles, AreReplacedByNoOtherOutputOfTheRun) {
  const TestFolder folder;
  FillFolder(folder, "o.txt", "");
  std::vector<std::string> names = {"a.qvl.ndx", "./a.qvl.ndx", "sub/../a.qvl.ndx",
                                    folder.Path("a.qvl.ndx")};
  if (!ON_WINDOWS) {
    fs::create_directory_symlink(".", folder.Path("here"));
    names.emplace_back("here/a.qvl.ndx");
  }
  for (const std::string& name : names) {
    ExpectRefused(folder, "a.txt --index -o " + name, "a.txt: " + CannotBe("index", "concordance"));
  }
}

TEST(KeptFiles, AreNotWrittenToByStandardOutput) {
  SKIP_ON_WINDOWS("another shell starts the program");
  const Pair pairs[] = {
      {"a.txt -o - >>@", "a.txt", "concordance", "input"},
      {"a.txt -o /dev/stdout >>@", "a.txt", "concordance", "input"},
      {"a.txt --format tsv -o - >>@", "a.txt", "concordance", "input"},
      {"a.txt -e dog >>@", "a.txt", "search results", "input"},
      {"a.txt -k k.txt >>@", "k.txt", "search results", "keywords"},
      {"a.txt --stop-words w.txt -o - >>@", "w.txt", "concordance", "stop words"},
      {"-s s.lvz -o - >>@", "s.lvz", "concordance", "settings"},
      {"a.txt -o - --index >>@", "a.qvl.ndx", "index", "concordance"},
      {"a.txt -o - >@", "a.txt", "concordance", "input"},
      {"a.txt -k k.txt >@", "k.txt", "search results", "keywords"},
      {"a.txt --stop-words w.txt -o - >@", "w.txt", "concordance", "stop words"},
  };
  for (const Pair& pair : pairs) {
    const std::string arguments = pair.arguments;
    const bool appends = arguments.find(">>") != std::string::npos;
    for (const char* name : {pair.file, "link"}) {
      const TestFolder folder;
      FillFolder(folder, pair.file, pair.arguments);
      MakeLink(Link::symbolic, folder, "link", pair.file);
      ExpectRefused(folder, With(arguments, name) + " 2>err </dev/null #",
                    pair.before + CannotBe(pair.output, pair.replaced), appends ? "" : pair.file);
    }
  }
}

TEST(KeptFiles, AreInTheWayOfNoFileThatIsNotWrittenOrIsToBeRenewed) {
  const struct {
    const char* arguments;
    std::string settings;
    std::vector<std::string> written;
  } rows[] = {
      {"-s s.lvz -c 3 --save-settings s.lvz", SettingsBytes("o.txt"), {"s.lvz"}},
      {"-s s.lvz -c 3 --save-settings sub/../s.lvz", SettingsBytes("o.txt"), {"s.lvz"}},
      {"-s s.lvz", SettingsBytes("a.txt", true), {}},
      {"-s s.lvz -o o.txt", SettingsBytes("a.txt", true), {"o.txt"}},
      {"a.txt -o s.lvz", SettingsBytes("o.txt"), {"s.lvz"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.arguments);
    const TestFolder folder;
    FillFolder(folder, "o.txt", row.arguments);
    (void)folder.Write("s.lvz", row.settings);
    auto before = folder.Files();
    EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, std::string(row.arguments) + " -q"), 0)
        << folder.Read("err");
    auto after = folder.Files();
    for (const std::string& name : row.written) {
      EXPECT_NE(after[name], before[name]);
      before.erase(name);
      after.erase(name);
    }
    EXPECT_EQ(after, before);
  }
  const TestFolder folder;
  FillFolder(folder, "o.txt", "");
  (void)folder.Write("s.lvz", SettingsBytes("a.txt", true));
  ExpectRefused(folder, "-s s.lvz --search", "a.txt: " + CannotBe("search results", "input"));
}

}  // namespace
}  // namespace quorvel
