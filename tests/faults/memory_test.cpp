// No lack of memory loses a file or ends the program without a message. The library of
// failing_memory.cpp makes each request for memory of the built program fail in turn. The steps of
// a session of the window are tested in the same way.
//
// With QUORVEL_ALL_FAULTS set, every request fails, otherwise some of them.

#include <gtest/gtest.h>

#include <new>

#include "faults/desk.h"
#include "run/session.h"
#include "support/platform.h"
#include "support/scripted_conversation.h"

namespace quorvel {
namespace {

// While requests by "new" are counted, for all threads, the request with this number fails, and
// with `lasting` every later one too. 0 means none.
struct Requests {
  std::atomic<bool> counts = false;
  std::atomic<long> count = 0;
  std::atomic<long> failing = 0;
  std::atomic<bool> lasting = false;
};

// A global, because "new" can access nothing else.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
constinit Requests requests;

[[maybe_unused]] bool Fails() {
  if (!requests.counts) return false;
  const long number = ++requests.count;
  const long failing = requests.failing;
  return failing != 0 && (number == failing || (requests.lasting && number > failing));
}

// Which requests fail. Those of reading the options are the same in all runs, so few of them are
// tried.
std::vector<long> RequestsToFail(long count, bool first) {
  constexpr long OF_OPTIONS = 1000;
  const long sampled = first ? 1 : std::min(count, OF_OPTIONS);
  const long between = (count - sampled) / 25 + 1;
  std::vector<long> failing;
  for (long n = AllFaults() ? 1 : sampled; n <= count;) {
    failing.push_back(n);
    n += !AllFaults() ? between : n < OF_OPTIONS && !first ? 20 : 1;
  }
  return failing;
}

// Returns what is wrong after a run that lacked memory. A run that reports success must have
// written everything.
std::string MemoryComplaint(const Desk& desk, const Ending& ending) {
  std::string complaint = ending.signal == 0 ? "" : "signal; ";
  const std::size_t last = ending.errors.rfind("quorvel-cli: ");
  for (const std::string& part : {std::string(" memory"), desk.folder.Path("")}) {
    const bool isSaid = ending.errors.find(part, last) != std::string::npos;
    if (ending.status != 0 && !isSaid) complaint += "does not say " + part + "; ";
  }
  return complaint + desk.FilesComplaint(ending.status == 0) + desk.Litter(false);
}

TEST(Faults, OfMemoryLoseNothing) {
  if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "a sanitizer gives memory of its own";
  std::size_t faults = 0;
  Desk desk(QUORVEL_FAILING_MEMORY);
  for (const Scenario& scenario : SCENARIOS) {
    desk.Begin(scenario);
    const long count = std::stol("0" + desk.log);
    EXPECT_GT(count, 500) << scenario.name;
    for (const long request : RequestsToFail(count, faults == 0)) {
      for (const char* lasting : {"", "+"}) {
        const std::string fault = std::to_string(request) + lasting;
        const Ending ending = desk.Run(fault);
        EXPECT_EQ(MemoryComplaint(desk, ending), "")
            << scenario.name << ", " << fault << " of " << count << "\n"
            << ending;
        desk.PutBack();
        ++faults;
      }
    }
  }
  std::cout << faults << " requests for memory failed\n";
}

// A conversation that has memory itself, and keeps only the messages.
class Window : public ScriptedConversation {
 public:
  void AppendOutput(std::string_view /*text*/) override {}
  void SetOutput(std::string_view /*text*/) override {}
  void SetLabel(Label /*label*/, std::string_view /*text*/) override {}
  void ShowBar(std::string_view /*caption*/) override {}
  void CountSeconds(bool /*isCounting*/) override {}
  void PopUp(std::string_view /*text*/) override {}
  void OfferStop(bool /*offered*/) override {}
  Answer Ask(const Message& message) override {
    const bool counted = requests.counts.exchange(false);
    const Answer answer = ScriptedConversation::Ask(message);
    requests.counts = counted;
    return answer;
  }
};

// A session of the window, with a document that has an index.
struct Sitting {
  Sitting() {
    const std::string text = Repeated("The ship lay in the harbour, and a lamp was lit.\r\n", 9);
    for (const char* name : {"a.txt", "b.txt"}) (void)folder.Write(name, text);
    // An archive contains the time at which it was made.
    static const std::string document =
        ZipArchive({{"word/document.xml", "<w:p><w:t>" + text + "</w:t></w:p>"}});
    (void)folder.Write("d.docx", document);
    (void)folder.Write("k.txt", "harbour\r\n");
    ConcordanceSettings& settings = session.Settings();
    settings.inputFile = folder.Path("b.txt");
    settings.outputFile = folder.Path("out.txt");
    settings.createIndexFile = true;
    (void)session.RunConcordance();
    settings.keywordsFile = folder.Path("k.txt");
    (void)session.SaveSettings(settingsFile);
    settings.inputFile = folder.Path("a.txt");
    settings.createIndexFile = false;
    (void)session.RunConcordance();
    (void)folder.Write("out.txt", "old");
    ui.questions.clear();
  }

  // The messages about a file of the folder for lack of memory.
  [[nodiscard]] bool IsTold() const {
    return std::ranges::any_of(ui.questions, [this](const Message& message) {
      return message.text.starts_with("There is not enough memory for\r\n" + folder.Path(""));
    });
  }

  TestFolder folder;
  const std::string settingsFile = folder.Path("s.lvz");
  Window ui;
  Session session{ui};
};

// The files of a session without the time and the folder, which differ each time.
std::map<std::string, std::string> Comparable(const Sitting& at) {
  std::map<std::string, std::string> files = at.folder.Files();
  for (auto& [name, bytes] : files) {
    bytes = naive::Replace(bytes, at.folder.Path(""), "@/");
    // In a listing the time follows the version; in an index it is the second line.
    const std::size_t time = bytes.find(name.ends_with(".ndx") ? "\r" : "): ") + 1;
    if (time > 0) bytes.erase(time, bytes.find('\r', time) - time);
  }
  return files;
}

struct Step {
  const char* name;
  const char* input;     // that the front end has set in the settings
  bool (*go)(Sitting&);  // returns false if it was not done
};

const Step STEPS[] = {
    {"choosing an input with an index", "b.txt",
     [](Sitting& at) {
       at.session.SetInput(Session::InputOrigin::chosen);
       return !at.session.Settings().inputFile.empty() && at.session.Lists().stopWords.loaded;
     }},
    {"listing", "a.txt",
     [](Sitting& at) { return at.session.RunConcordance() == RunOutcome::done; }},
    {"listing a document", "d.docx",
     [](Sitting& at) { return at.session.RunConcordance() == RunOutcome::done; }},
    {"listing again", "a.txt",
     [](Sitting& at) { return at.session.ListAgain() == RunOutcome::done; }},
    {"loading settings", "a.txt",
     [](Sitting& at) {
       const auto restored = at.session.LoadSettings(at.settingsFile, false);
       return restored && restored->errorText.empty();
     }},
    {"saving settings", "a.txt",
     [](Sitting& at) { return at.session.SaveSettings(at.settingsFile) == ""; }},
};

struct StepEnd {
  std::string complaint;
  long requests = 0;
  std::map<std::string, std::string> files;
};

// Runs a step in which the request with this number fails; 0 means none. If the step succeeds, its
// files must be those of `whole`.
StepEnd EndOf(const Step& step, long request, bool lasting, const StepEnd& whole) {
  Sitting at;
  at.session.Settings().inputFile = at.folder.Path(step.input);
  const auto before = Comparable(at);
  StepEnd end;
  bool done = false;
  requests.count = 0;
  requests.failing = request;
  requests.lasting = lasting;
  requests.counts = true;
  try {
    done = step.go(at);
    requests.counts = false;
  } catch (const std::exception& error) {
    requests.counts = false;
    end.complaint = error.what();
  }
  end.requests = requests.count;
  if (!done && (request == 0 || !at.IsTold())) end.complaint += " says " + at.ui.Said();
  end.files = Comparable(at);
  const bool isWhole = request == 0 || end.files == whole.files;
  if (!isWhole && (done || end.files != before)) {
    for (const auto& [name, bytes] : end.files) {
      const auto other = whole.files.find(name);
      if (other == whole.files.end() || other->second != bytes) end.complaint += " other " + name;
    }
  }
  if (!step.go(at) && at.session.CurrentListing() != nullptr) end.complaint += " cannot go on";
  return end;
}

TEST(Faults, OfMemoryLeaveASessionThatGoesOn) {
  if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "a sanitizer gives memory of its own";
  const long most = AllFaults() ? 400 : 25;  // of a step: reading stop words alone makes 13,000
  long faults = 0;
  for (const Step& step : STEPS) {
    const StepEnd whole = EndOf(step, 0, false, {});
    EXPECT_EQ(whole.complaint, "") << step.name;
    EXPECT_GT(whole.requests, 10) << step.name;
    const long between = std::max(whole.requests / most, 1L);
    for (long request = 1; request <= whole.requests; request += between) {
      for (const bool lasting : {false, true}) {
        EXPECT_EQ(EndOf(step, request, lasting, whole).complaint, "")
            << step.name << ", " << request << " of " << whole.requests;
        ++faults;
      }
    }
  }
  std::cout << faults << " requests for memory of a session failed\n";
}

}  // namespace
}  // namespace quorvel

#ifndef __SANITIZE_ADDRESS__
void* operator new(std::size_t length) {
  void* const memory = quorvel::Fails() ? nullptr : std::malloc(length == 0 ? 1 : length);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }

void operator delete(void* memory, std::size_t /*length*/) noexcept { std::free(memory); }
#endif
