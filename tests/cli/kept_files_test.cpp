// A run replaces no file that it reads and no other file that it writes, whatever name is given for
// an output and whatever stands there: each way to write one, by the built program and by a session
// as a window keeps it.

#include <gtest/gtest.h>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <vector>

#include "run/session.h"
#include "support/run_program.h"
#include "support/scripted_conversation.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

struct File {
  const char* name;
  const char* what;
  bool isOutput = false;  // another one of the run, which is not there yet
};

using Files = std::vector<File>;
const Files READ = {{"a.txt", "input"}, {"k.txt", "keywords"}, {"w.txt", "stop words"}};
const Files READ_IN_A_RUN = {READ[0], READ[1], READ[2], {"s.lvz", "settings"}};
const Files BESIDE_INDEX = {
    READ[0], READ[1], READ[2], READ_IN_A_RUN[3], {"a.qvl.ndx", "index", true}};
const Files BESIDE_LISTING = {
    READ[0], READ[1], READ[2], READ_IN_A_RUN[3], {"o.txt", "concordance", true}};

// A way to write an output, with the files that the run reads or writes besides.
struct Way {
  std::string arguments;  // of the program, with "@" for the output; "again" and "save": a session
  std::string output;
  Files files;
  std::string name = {};  // of the output, where no other can be given

  [[nodiscard]] bool IsProgram() const { return arguments.starts_with('-'); }
};

const Way WAYS[] = {
    {"-s s.lvz --create -o @", "concordance", READ_IN_A_RUN},
    {"-s s.lvz --create --format json -o @", "concordance", READ_IN_A_RUN},
    {"-s s.lvz --create --index -o @", "concordance", BESIDE_INDEX},
    {"-s s.lvz --create --index --format tsv -o @", "concordance", BESIDE_INDEX},
    {"-s s.lvz --create a.txt", "concordance", READ_IN_A_RUN, "a.qvl.conc.txt"},
    {"-s s.lvz --create --format tsv", "concordance", READ_IN_A_RUN, "a.qvl.conc.tsv"},
    {"-s s.lvz --search -o @", "search results", READ_IN_A_RUN},
    {"-s s.lvz --search --format tsv -o @", "search results", READ_IN_A_RUN},
    {"-s s.lvz --create --index", "index", BESIDE_LISTING, "a.qvl.ndx"},
    {"-s s.lvz --create --index --format json -o o.txt", "index", BESIDE_LISTING, "a.qvl.ndx"},
    {"-s s.lvz --save-settings @", "settings", READ},
    {"again, create", "concordance", READ_IN_A_RUN},
    {"again, search", "search results", READ_IN_A_RUN},
    {"save", "settings", READ},
};

std::string CannotBe(const std::string& output, const std::string& replaced) {
  return "The " + output + " file cannot be the same as the " + replaced + " file.";
}

struct Outcome {
  int status = 0;
  std::string said;
};

// The output of a session of the window, under that name; where its first listing goes is all the
// same.
Outcome WriteInSession(const TestFolder& folder, const std::string& way, const std::string& name) {
  ScriptedConversation ui;
  Session session(ui);
  session.KeepSettingsFile(folder.Path("s.lvz"));
  ConcordanceSettings& settings = session.Settings();
  settings.inputFile = folder.Path("a.txt");
  settings.keywordsFile = folder.Path("k.txt");
  settings.stopWordsFile = folder.Path("w.txt");
  settings.extraKeywords = "dog";
  settings.mode = way.ends_with("search") ? Mode::search : Mode::create;
  if (way == "save") {
    const auto fault = session.SaveSettings(folder.Path(name));
    return {fault && fault->empty() ? 0 : 1, ui.Said() + fault.value_or("")};
  }
  std::string& target =
      settings.mode == Mode::search ? settings.searchResultsFile : settings.outputFile;
  target = folder.Path("first");
  EXPECT_EQ(session.RunConcordance(), RunOutcome::done);
  fs::remove(target);
  target = folder.Path(name);
  const RunOutcome outcome = session.ListAgain();
  const std::optional<Fault>& fault = session.Report().fileFault;
  return {outcome == RunOutcome::done ? 0 : 1, ui.Said() + (fault ? fault->reason : "")};
}

// A document with its word files and settings that name all that can be named.
class Attempts {
 public:
  Attempts() {
    (void)folder_.Write("a.txt", "the cat and the dog\r\n");
    (void)folder_.Write("k.txt", "dog\r\n");
    (void)folder_.Write("w.txt", "cat\r\n");
    fs::create_directory(folder_.Path("sub"));
    Save("o.txt", "");
    read_ = folder_.Files();
    EXPECT_EQ(read_.size(), 4U);
  }

  [[nodiscard]] std::string Path(const std::string& name) const { return folder_.Path(name); }

  // Writes the settings anew, with that for the output.
  void Save(const std::string& output, const std::string& options) const {
    EXPECT_EQ(Run("a.txt -k k.txt --stop-words w.txt --create --save-settings s.lvz -o " + output +
                  options)
                  .status,
              0);
  }

  [[nodiscard]] Outcome Run(const std::string& arguments) const {
    const int status =
        RunProgram(folder_, QUORVEL_CLI, "-q --answer yes " + arguments, "timeout 60");
    return {status, folder_.Read("err")};
  }

  [[nodiscard]] Outcome Write(const Way& way, const std::string& name) const {
    if (!way.IsProgram()) return WriteInSession(folder_, way.arguments, name);
    std::string arguments = way.arguments;
    const std::size_t place = arguments.find('@');
    if (place != std::string::npos) arguments.replace(place, 1, name);
    return Run(arguments);
  }

  // The output must be refused under this name, with that for the reason, and all be left as it is.
  void ExpectRefused(const Way& way, const std::string& name, const std::string& reason) const {
    SCOPED_TRACE(way.arguments + " " + name);
    const auto before = folder_.Files();
    const Outcome outcome = Write(way, name);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.said == "quorvel-cli: a.txt: " + reason + "\n" ||
                (!way.IsProgram() && outcome.said.find(reason) != std::string::npos))
        << outcome.said << ", not " << reason;
    EXPECT_EQ(folder_.Files(), before);
  }

  // An output that is no file must be left, and the reason be told.
  void ExpectLeft(const Way& way, const std::string& name, const std::string& reason) const {
    SCOPED_TRACE(way.arguments + " " + name);
    const Outcome outcome = Write(way, name);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.said.find(reason), std::string::npos) << outcome.said << ", not " << reason;
    EXPECT_FALSE(fs::is_regular_file(Path(name)));
    PutBack();
  }

  // The output must be written under this name and be in that place then.
  void ExpectWritten(const Way& way, const std::string& name, const std::string& place) const {
    SCOPED_TRACE(way.arguments + " " + name);
    const Outcome outcome = Write(way, name);
    EXPECT_EQ(outcome.status, 0) << outcome.said;
    auto after = folder_.Files();
    EXPECT_GT(after[place].size(), 20U);
    for (const auto& [kept, bytes] : read_) EXPECT_EQ(after[kept], bytes) << kept;
    PutBack();
  }

  // Leaves nothing but what is read.
  void PutBack() const {
    for (const auto& entry : fs::directory_iterator(Path(""))) {
      if (!read_.contains(entry.path().filename()) && entry.path().filename() != "sub") {
        fs::remove_all(entry);
      }
    }
  }

  [[nodiscard]] const TestFolder& Folder() const { return folder_; }

 private:
  TestFolder folder_;
  std::map<std::string, std::string> read_;
};

TEST(KeptFiles, AreReplacedByNoOutputUnderAnyName) {
  const Attempts attempts;
  for (const Way& way : WAYS) {
    for (const File& file : way.files) {
      const std::string refusal =
          file.isOutput ? CannotBe("index", "concordance") : CannotBe(way.output, file.what);
      const std::string link = way.name.empty() ? "link" : way.name;
      fs::create_symlink(file.name, attempts.Path(link));
      attempts.ExpectRefused(way, link, refusal);
      fs::remove(attempts.Path(link));
      if (!file.isOutput) {
        fs::create_hard_link(attempts.Path(file.name), attempts.Path(link));
        attempts.ExpectRefused(way, link, refusal);
        fs::remove(attempts.Path(link));
      }
      if (way.name.empty()) attempts.ExpectRefused(way, file.name, refusal);
    }
  }
  for (const char* spelling : {"./a.txt", "sub/../a.txt", "sub/../sub/.././a.txt"}) {
    attempts.ExpectRefused(WAYS[0], spelling, CannotBe("concordance", "input"));
  }
  // Where neither is there yet, the system cannot tell that they are one.
  fs::create_symlink("nowhere", attempts.Path("a.qvl.ndx"));
  for (const std::string& name :
       {std::string("./nowhere"), attempts.Path("nowhere"), std::string("sub/../a.qvl.ndx")}) {
    attempts.ExpectRefused(WAYS[2], name, CannotBe("index", "concordance"));
  }
}

TEST(KeptFiles, AreNotWrittenToByStandardOutput) {
  const struct {
    const char* arguments;
    const char* file;
    const char* output;
    const char* replaced;
  } rows[] = {
      {"a.txt -o - >>@", "a.txt", "concordance", "input"},
      {"a.txt -o /dev/stdout >>@", "a.txt", "concordance", "input"},
      {"a.txt --format tsv -o - >>@", "a.txt", "concordance", "input"},
      {"a.txt -k k.txt >>@", "k.txt", "search results", "keywords"},
      {"-s s.lvz --create -o - >>@", "s.lvz", "concordance", "settings"},
      {"a.txt -o - --index >>@", "a.qvl.ndx", "index", "concordance"},
      {"a.txt --stop-words w.txt -o - >@", "w.txt", "concordance", "stop words"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.arguments);
    const Attempts attempts;
    auto before = attempts.Folder().Files();
    fs::create_symlink(row.file, attempts.Path("link"));
    std::string arguments = row.arguments;
    if (arguments.find(">>") == std::string::npos) before[row.file].clear();
    arguments.replace(arguments.find('@'), 1, "link");
    const Outcome outcome = attempts.Run(arguments + " 2>err </dev/null #");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.said, "quorvel-cli: a.txt: " + CannotBe(row.output, row.replaced) + "\n");
    fs::remove(attempts.Path("link"));
    if (!before.contains(row.file)) before[row.file] = "";
    EXPECT_EQ(attempts.Folder().Files(), before);
  }
}

TEST(KeptFiles, AreNoFoldersAndPipes) {
  const Attempts attempts;
  for (const Way& way : WAYS) {
    const std::string name = way.name.empty() ? "output" : way.name;
    fs::create_symlink("elsewhere", attempts.Path("chain"));
    fs::create_symlink("chain", attempts.Path(name));
    attempts.ExpectWritten(way, name, "elsewhere");
    fs::create_directory(attempts.Path(name));
    attempts.ExpectLeft(way, name, "Is a directory");
    // Only a listing of the command line goes to a pipe.
    ASSERT_EQ(::mkfifo(attempts.Path(name).c_str(), 0600), 0);
    if (!way.IsProgram() || way.output == "index" || way.output == "settings") {
      attempts.ExpectLeft(way, name, "Is a device or a pipe, not a file");
      continue;
    }
    const int pipe = ::open(attempts.Path(name).c_str(), O_RDWR | O_NONBLOCK);
    EXPECT_EQ(attempts.Write(way, name).status, 0);
    std::string written(1 << 16, ' ');
    EXPECT_GT(::read(pipe, written.data(), written.size()), 20);
    ::close(pipe);
    attempts.PutBack();
  }
}

TEST(KeptFiles, AreInTheWayOfNoFileThatIsNotWrittenOrIsToBeRenewed) {
  const Attempts attempts;
  const std::string settings = attempts.Folder().Read("s.lvz");
  const std::string disabled = settings.substr(0, settings.size() - 3) + "1\r\n";
  const struct {
    const char* arguments;
    std::string settings;
    const char* written;
  } rows[] = {{"-s s.lvz -c 3 --save-settings sub/../s.lvz", settings, "s.lvz"},
              {"-s s.lvz", disabled, nullptr},
              {"-s s.lvz -o new.txt", disabled, "new.txt"},
              {"a.txt -o s.lvz", settings, "s.lvz"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.arguments);
    (void)attempts.Folder().Write("s.lvz", row.settings);
    auto before = attempts.Folder().Files();
    EXPECT_EQ(attempts.Run(row.arguments).status, 0) << attempts.Folder().Read("err");
    auto after = attempts.Folder().Files();
    if (row.written != nullptr) {
      EXPECT_NE(after[row.written], before[row.written]);
      before[row.written] = after[row.written];
    }
    EXPECT_EQ(after, before);
  }
}

}  // namespace
}  // namespace quorvel
#endif
