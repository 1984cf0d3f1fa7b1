// No output takes another file of its run with it, and none is lost on the way: every output under
// the name of every other file, as itself, as a link, a pipe or a folder, in every way to write it.
// With QUORVEL_ALL_FAULTS set all are tried; without, one file in four. What a refusal says under
// other spellings of a name stands in tests/cli/kept_files_test.cpp.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "run/session.h"
#include "support/run_program.h"
#include "support/scripted_conversation.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

constexpr int TIME_LIMIT = 60;  // seconds, after which something hangs

struct File {
  const char* name;
  const char* what;
  bool isOutput = false;  // another one of the run, which is not there yet
};

struct Outcome {
  int status = 0;
  std::string said;
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
  const char* arguments;  // of the program, with "@" for the output; "again" and "save": a session
  const char* output;
  Files files;
  std::string name = {};  // of the output, where no other can be given
};

const Way WAYS[] = {
    {"-s s.lvz --create -o @", "concordance", READ_IN_A_RUN},
    {"-s s.lvz --create --format tsv -o @", "concordance", READ_IN_A_RUN},
    {"-s s.lvz --create --format json -o @", "concordance", READ_IN_A_RUN},
    {"-s s.lvz --create --index -o @", "concordance", BESIDE_INDEX},
    {"-s s.lvz --create --index --format tsv -o @", "concordance", BESIDE_INDEX},
    {"-s s.lvz --search -o @", "search results", READ_IN_A_RUN},
    {"-s s.lvz --search --format tsv -o @", "search results", READ_IN_A_RUN},
    {"-s s.lvz --search --format json -o @", "search results", READ_IN_A_RUN},
    {"-s s.lvz --create --index", "index", BESIDE_LISTING, "a.qvl.ndx"},
    {"-s s.lvz --create --index --format json -o o.txt", "index", BESIDE_LISTING, "a.qvl.ndx"},
    {"-s s.lvz --save-settings @", "settings", READ},
    {"again, create", "concordance", READ_IN_A_RUN},
    {"again, search", "search results", READ_IN_A_RUN},
    {"save", "settings", READ},
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
  settings.contextSize = 3;
  const RunOutcome outcome = session.ListAgain();
  const std::optional<Fault>& fault = session.Report().fileFault;
  return {outcome == RunOutcome::done ? 0 : 1, ui.Said() + (fault ? fault->reason : "")};
}

// What an output holds besides the time.
std::string Body(const std::string& bytes) {
  const std::size_t header = bytes.find("\r\n\r\n");
  return header == std::string::npos ? bytes : bytes.substr(header);
}

class Attempts {
 public:
  explicit Attempts(const Way& way) : way_(way) {
    (void)folder_.Write("a.txt", "the cat and the dog\r\n");
    (void)folder_.Write("k.txt", "dog\r\n");
    (void)folder_.Write("w.txt", "cat\r\n");
    EXPECT_EQ(
        Run("a.txt -k k.txt --stop-words w.txt -o o.txt --save-settings s.lvz --create").status, 0);
    read_ = folder_.Files();
    EXPECT_EQ(read_.size(), 4U);
    const std::string plain = way.name.empty() ? "plain" : way.name;
    EXPECT_EQ(Write(plain).status, 0) << folder_.Read("err");
    whole_ = Body(folder_.Read(plain));
    EXPECT_GT(whole_.size(), 20U);
    PutBack();
  }

  [[nodiscard]] std::string Path(const std::string& name) const { return folder_.Path(name); }

  // The output must be refused under this name, with that in the message, and all be left as it is.
  void ExpectRefused(const std::string& name, const std::string& reason) const {
    auto before = folder_.Files();
    const Outcome outcome = Write(name);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.said.find(reason), std::string::npos) << outcome.said << ", not " << reason;
    auto after = folder_.Files();
    // An index that cannot be written takes nothing from the listing before it.
    const bool isNoFile = reason == IS_FOLDER || reason == IS_PIPE;
    if (isNoFile && way_.output == std::string("index")) after.erase("o.txt");
    EXPECT_EQ(after, before);
    PutBack();
  }

  // The output must be whole under this name, and all else be as it was but for what the run writes
  // besides. `place` is the file that it is in then; empty where it went into a pipe.
  void ExpectWritten(const std::string& name, const std::string& place) const {
    auto before = folder_.Files();
    const int pipe = place.empty() ? ::open(Path(name).c_str(), O_RDWR | O_NONBLOCK) : -1;
    const Outcome outcome = Write(name);
    EXPECT_EQ(outcome.status, 0) << outcome.said;
    auto after = folder_.Files();
    std::string written = place.empty() ? std::string(1 << 16, ' ') : after[place];
    if (place.empty()) written.resize(::read(pipe, written.data(), written.size()));
    EXPECT_EQ(Body(written), whole_);
    ::close(pipe);
    before[place] = after[place];
    for (const char* besides : {"o.txt", "a.qvl.ndx"}) {
      if (after.contains(besides)) before.emplace(besides, after[besides]);
    }
    EXPECT_EQ(after, before);
    PutBack();
  }

  static constexpr const char* IS_FOLDER = "Is a directory";
  static constexpr const char* IS_PIPE = "Is a device or a pipe, not a file";

 private:
  [[nodiscard]] Outcome Write(const std::string& name) const {
    std::string arguments = way_.arguments;
    if (!arguments.starts_with('-')) return WriteInSession(folder_, arguments, name);
    const std::size_t place = arguments.find('@');
    if (place != std::string::npos) arguments.replace(place, 1, name);
    return Run(arguments);
  }

  [[nodiscard]] Outcome Run(const std::string& arguments) const {
    const std::string before = "timeout " + std::to_string(TIME_LIMIT) +
                               " env ASAN_OPTIONS=verify_asan_link_order=0 LD_PRELOAD='" +
                               QUORVEL_FIXED_CLOCK + "'";
    const int status =
        RunProgram(folder_, QUORVEL_CLI, arguments + " -q --answer yes", before.c_str());
    return {status, folder_.Read("err")};
  }

  // Leaves nothing but what is read.
  void PutBack() const {
    for (const auto& entry : fs::directory_iterator(Path(""))) fs::remove_all(entry);
    for (const auto& [name, bytes] : read_) (void)folder_.Write(name, bytes);
  }

  const Way& way_;
  TestFolder folder_;
  std::map<std::string, std::string> read_;
  std::string whole_;  // what the output holds in the end
};

using Counts = std::map<std::string, int>;

// The output as another file of the run.
class NamesOf {
 public:
  NamesOf(const File& file, const Way& way, const Attempts& attempts, Counts& counts)
      : file_(file), way_(way), attempts_(attempts), counts_(counts) {}

  void Try() {
    const bool isNamed = way_.name.empty();
    const std::string link = isNamed ? "link" : way_.name;
    const std::string refusal =
        file_.isOutput ? CannotBe("index", "concordance") : CannotBe(way_.output, file_.what);
    if (isNamed) Refuse("same name", file_.name, refusal);
    fs::create_symlink(file_.name, attempts_.Path(link));
    Refuse(file_.isOutput ? "dangling link" : "link", link, refusal);
    if (file_.isOutput) {
      fs::create_symlink("nowhere", attempts_.Path(file_.name));
      fs::create_symlink("./nowhere", attempts_.Path(link));
      Refuse("dangling link", link, refusal);
    } else {
      fs::create_hard_link(attempts_.Path(file_.name), attempts_.Path(link));
      Refuse("hard link", link, refusal);
    }
    if (isNamed && std::string_view(way_.arguments).starts_with('-')) TryNoFile();
  }

 private:
  // What is to be read is no file, so that the reason may be that.
  void TryNoFile() {
    const std::string reason = file_.isOutput ? CannotBe("index", "concordance") : "quorvel-cli: ";
    fs::remove(attempts_.Path(file_.name));
    fs::create_directory(attempts_.Path(file_.name));
    Refuse("folder", file_.name, reason);
    fs::remove(attempts_.Path(file_.name));
    ::mkfifo(attempts_.Path(file_.name).c_str(), 0600);
    Refuse("pipe", file_.name, reason);
  }

  void Refuse(const std::string& kind, const std::string& name, const std::string& reason) {
    SCOPED_TRACE(kind + " of the " + file_.what + " file");
    attempts_.ExpectRefused(name, reason);
    ++counts_[kind];
  }

  static std::string CannotBe(const std::string& output, const std::string& other) {
    return "The " + output + " file cannot be the same as the " + other + " file.";
  }

  const File& file_;
  const Way& way_;
  const Attempts& attempts_;
  Counts& counts_;
};

// The output as something that is no other file of the run.
void TryOtherKinds(const Way& way, const Attempts& attempts, Counts& counts) {
  const std::string name = way.name.empty() ? "output" : way.name;
  fs::create_symlink("elsewhere", attempts.Path("chain"));
  fs::create_symlink("chain", attempts.Path(name));
  attempts.ExpectWritten(name, "elsewhere");
  ++counts["dangling link"];
  fs::create_directory(attempts.Path(name));
  attempts.ExpectRefused(name, Attempts::IS_FOLDER);
  ++counts["folder"];
  ::mkfifo(attempts.Path(name).c_str(), 0600);
  // Only a listing of the command line goes to a pipe.
  const std::string_view output = way.output;
  const bool isListing = output == "concordance" || output == "search results";
  if (isListing && std::string_view(way.arguments).starts_with('-')) {
    attempts.ExpectWritten(name, "");
  } else {
    attempts.ExpectRefused(name, Attempts::IS_PIPE);
  }
  ++counts["pipe"];
}

TEST(Faults, NoNameOfAnOutputLosesAFile) {
  const int step = std::getenv("QUORVEL_ALL_FAULTS") != nullptr ? 1 : 4;
  int turn = 0;
  Counts counts;
  for (const Way& way : WAYS) {
    SCOPED_TRACE(way.arguments);
    ::alarm(TIME_LIMIT);  // a session is in this process
    const Attempts attempts(way);
    for (const File& file : way.files) {
      if (turn++ % step == 0) NamesOf(file, way, attempts, counts).Try();
    }
    if (turn++ % step == 0) TryOtherKinds(way, attempts, counts);
  }
  ::alarm(0);
  int all = 0;
  for (const auto& [kind, count] : counts) {
    std::cout << count << " outputs: " << kind << "\n";
    all += count;
  }
  std::cout << all << " names of outputs\n";
}

}  // namespace
}  // namespace quorvel
