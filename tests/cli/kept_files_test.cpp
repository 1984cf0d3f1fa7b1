// A run never replaces a file that it reads or another file that it writes, whatever name an output
// has and whatever exists there. Tests each way to write an output.

#include <gtest/gtest.h>

#ifndef _WIN32
#include "naive/places.h"
#include "support/run_program.h"
#include "support/test_run.h"

namespace quorvel {
namespace {
// A way to write an output. "@" in the arguments stands for its name.
struct Way {
  std::string arguments;
  std::string output;
  std::string beside = {};  // another output of the run
  std::string name = {};    // of the output, if the user cannot choose it
};

const Way WAYS[] = {{"-s s.lvz -o @", "concordance"},
                    {"-s s.lvz --index -o @", "concordance", "a.qvl.ndx"},
                    {"-s s.lvz a.txt", "concordance", "", "a.qvl.conc.txt"},
                    {"-s s.lvz --format tsv", "concordance", "", "a.qvl.conc.tsv"},
                    {"-s s.lvz --search -o @", "search results"},
                    {"-s s.lvz --index", "index", "o.txt", "a.qvl.ndx"},
                    {"-s s.lvz --save-settings @", "settings"}};

const std::pair<const char*, const char*> READ[] = {
    {"a.txt", "input"}, {"k.txt", "keywords"}, {"w.txt", "stop words"}, {"s.lvz", "settings"}};

std::string CannotBe(const std::string& output, const std::string& replaced) {
  return "quorvel-cli: a.txt: The " + output + " file cannot be the same as the " + replaced +
         " file.\n";
}

// A document with its word files, and settings with all files that they can name.
struct Desktop {
  Desktop() {
    (void)folder.Write("a.txt", "the cat and the dog\r\n");
    (void)folder.Write("k.txt", "dog\r\n");
    (void)folder.Write("w.txt", "cat\r\n");
    EXPECT_EQ(Run("a.txt -k k.txt --stop-words w.txt --create --save-settings s.lvz -o o.txt"), 0);
    read = folder.Files();
  }

  [[nodiscard]] int Run(const std::string& arguments) const {
    return RunProgram(folder, QUORVEL_CLI, "-q --answer yes " + arguments, "timeout 60");
  }

  // The output must be refused under this name, and no file may change. Then removes the name.
  void ExpectRefused(const Way& way, const std::string& name, const std::string& message) const {
    SCOPED_TRACE(way.arguments + " " + name);
    const auto before = folder.Files();
    EXPECT_EQ(Run(naive::Replace(way.arguments, "@", name)), 1);
    EXPECT_EQ(folder.Read("err"), message);
    EXPECT_EQ(folder.Files(), before);
    PutBack();
  }

  void PutBack() const {
    for (const auto& entry : fs::directory_iterator(folder.Path(""))) {
      if (!read.contains(entry.path().filename())) fs::remove_all(entry);
    }
  }

  const TestFolder folder;
  std::map<std::string, std::string> read;
};

TEST(KeptFiles, AreReplacedByNoOutputUnderAnyName) {
  const Desktop at;
  for (const Way& way : WAYS) {
    const std::string name = way.name.empty() ? "link" : way.name;
    for (const auto& [file, what] : READ) {
      if (way.output == what) continue;
      fs::create_symlink(file, at.folder.Path(name));
      at.ExpectRefused(way, name, CannotBe(way.output, what));
      if (way.name.empty()) at.ExpectRefused(way, file, CannotBe(way.output, what));
    }
    // If neither exists yet, the system cannot tell that they are the same file.
    if (way.beside.empty()) continue;
    fs::create_symlink(way.beside, at.folder.Path(name));
    at.ExpectRefused(way, name, CannotBe("index", "concordance"));
  }
}

TEST(KeptFiles, AreReplacedByNoListingThatIsMadeAgain) {
  TestRun run("the cat and the dog\r\n");
  EXPECT_EQ(run.Go(), RunOutcome::done);
  run.settings.outputFile = run.settings.stopWordsFile = run.folder.Write("w.txt", "cat\r\n");
  EXPECT_EQ(run.session.ListAgain(), RunOutcome::refused);
  EXPECT_EQ(run.ui.Said(),
            "Quorvel: The concordance file cannot be the same as the stop words file.\n");
  EXPECT_EQ(run.folder.Read("w.txt"), "cat\r\n");
}

TEST(KeptFiles, AreNotWrittenToByStandardOutput) {
  const std::tuple<std::string, const char*, const char*, const char*> rows[] = {
      {"a.txt -k k.txt >>", "k.txt", "search results", "keywords"},
      {"-s s.lvz -o - >>", "s.lvz", "concordance", "settings"},
      {"a.txt -o - --index >>", "a.qvl.ndx", "index", "concordance"},
      {"a.txt --stop-words w.txt -o - >", "w.txt", "concordance", "stop words"}};
  for (const auto& [arguments, file, output, replaced] : rows) {
    SCOPED_TRACE(arguments);
    const Desktop at;
    fs::create_symlink(file, at.folder.Path("link"));
    auto before = at.folder.Files();
    if (!arguments.ends_with(">>")) before[file] = "";
    before.try_emplace(file);
    EXPECT_EQ(at.Run(arguments + "link 2>err </dev/null #"), 1);
    EXPECT_EQ(at.folder.Read("err"), CannotBe(output, replaced));
    EXPECT_EQ(at.folder.Files(), before);
  }
}

TEST(KeptFiles, AreInTheWayOfNoFileThatIsNotWrittenOrIsToBeRenewed) {
  const Desktop at;
  const std::string settings = at.folder.Read("s.lvz");
  const std::string disabled = settings.substr(0, settings.size() - 3) + "1\r\n";
  const std::tuple<const char*, std::string, const char*> rows[] = {
      {"-s s.lvz -c 3 --save-settings ./s.lvz", settings, "s.lvz"},
      {"-s s.lvz", disabled, ""},
      {"a.txt -o s.lvz", settings, "s.lvz"}};
  for (const auto& [arguments, from, written] : rows) {
    SCOPED_TRACE(arguments);
    (void)at.folder.Write("s.lvz", from);
    auto before = at.folder.Files();
    EXPECT_EQ(at.Run(arguments), 0) << at.folder.Read("err");
    auto after = at.folder.Files();
    EXPECT_EQ(before[written] != after[written], *written != '\0');
    before[written] = after[written];
    EXPECT_EQ(after, before);
  }
}

}  // namespace
}  // namespace quorvel
#endif
