#include "run/session.h"

#include <new>
#include <utility>

#include "files/file_system.h"
#include "files/path_names.h"
#include "run/outputs.h"
#include "run/silent_conversation.h"
#include "run/stop_word_choice.h"
#include "run/word_lists.h"

// The settings, the input and the word lists of a session. Its runs stand in session_run.cpp.

namespace quorvel {

Session::Session(Conversation& ui, SessionOptions options)
    : ui_(ui), options_(std::move(options)) {}

bool Session::Enter(const std::function<void()>& work) {
  try {
    work();
    return true;
  } catch (const std::bad_alloc&) {
    DropValues();
    ui_.CountSeconds(false);
    ui_.SetOutput("");
    ClearCounts();
    ui_.Tell("There is not enough memory for this input file.", STANDARD_TITLE);
    return false;
  }
}

RestoredState Session::LoadSettings(const std::string& path, bool starting) {
  RestoredState restored;
  Enter([&] {
    KeepSettingsFile(path.empty() ? StateFilePath() : path);
    restored = RestoreSavedState(settings_, path, starting);
  });
  return restored;
}

void Session::TakeLoadedSettings() {
  Enter([this] {
    const std::string& path = settings_.stopWordsFile;
    EraseSearchWords(lists_.keywords);
    lists_.stopWords.loaded = false;
    SilentConversation nobody;
    const bool all = path.ends_with(ALL_LANGUAGES.stopWordsFile) && FileExists(path);
    if (all) (void)ReadStopWordsFile(path, lists_.stopWords, nobody);
  });
}

std::optional<std::string> Session::SaveSettings(const std::string& path) {
  const FilesToKeep kept = FilesOfSettings();
  const Output output = {"settings file", path.empty() ? StateFilePath() : path};
  if (!CheckOutputs({output}, kept, ui_)) return std::nullopt;
  return SaveState(settings_, path, kept);
}

FilesToKeep Session::FilesOfSettings() const {
  return {{"input file", settings_.inputFile},
          {"keywords file", settings_.keywordsFile},
          {"stop words file", settings_.stopWordsFile}};
}

FilesToKeep Session::FilesOfRun() const {
  FilesToKeep files = FilesOfSettings();
  files.push_back({"settings file", settingsFile_});
  return files;
}

void Session::SetInput(InputOrigin origin) {
  Enter([this, origin] {
    DropValues();
    ui_.SetOutput("");
    ClearCounts();
    if (!settings_.inputFile.empty() && CheckChosenInput()) FollowInput(origin);
    DropInput();
  });
}

// Tells the user what stands in the way of the input; then it leaves the settings.
bool Session::CheckChosenInput() {
  const std::string path = settings_.inputFile;
  if (IsConcordanceFileName(path)) {
    RefuseInput("This is an QVL concordance file.", "Invalid input");
    return false;
  }
  if (IsIndexFileName(path)) {
    RefuseInput("This is an QVL index file.", "Invalid input");
    return false;
  }
  const bool isDocx = LowerExtensionOf(path) == "docx";
  if (!isDocx) ui_.AppendOutput("Checking file ...\r\n");
  CheckOptions options;
  options.quiet = isDocx;
  const Result<InputBytes> input = InputNow();
  const InputCheck check = CheckInputFile(path, input, options, macNoticeShown_, ui_);
  if (!check.accepted) {
    settings_.inputFile.clear();
    return false;
  }
  settings_.inputIsUtf8 = check.isUtf8;
  if (isDocx && !IsWordDocument(*input)) {
    RefuseInput("The file " + path +
                    "\r\nhas a 'docx' extension but does not appear to be an MS Word 'docx' file.",
                STANDARD_TITLE);
    return false;
  }
  return true;
}

void Session::RefuseInput(const std::string& text, const char* title) {
  ui_.Tell(text, title);
  settings_.inputFile.clear();
}

// Looks at what an input brings that can be used.
void Session::FollowInput(InputOrigin origin) {
  const bool chosen = origin == InputOrigin::chosen;
  if (chosen || settings_.outputFile.empty()) {
    settings_.outputFile = DefaultConcordanceFileName(settings_.inputFile);
  }
  if (chosen) settings_.outputToFileDisabled = false;
  const std::string ownList = settings_.stopWordsFile;
  if (!chosen && FileExists(ownList)) {
    AttemptToReadStopWords(ownList, settings_, lists_.stopWords, ui_);
  } else {
    ChooseStopWords(RecognizeLanguage(), settings_, lists_.stopWords, ui_);
  }
  LoadWordsAtHand(true);
}

void Session::LoadWordsAtHand(bool ask) {
  Enter([this, ask] {
    const Result<InputBytes> input = InputNow();
    if (input) atHand_ = ReadIndexFile(*input, *DigestOf(*input), ask, ui_);
  });
}

// Of what is no file or not there nothing speaks against English.
std::optional<Language> Session::RecognizeLanguage() {
  const Result<InputBytes> input = InputNow();
  if (input) return RecognizeInputLanguage(*input);
  const FaultKind kind = input.Why().kind;
  if (kind == FaultKind::notOpened || kind == FaultKind::notRead) return std::nullopt;
  return LANGUAGES.front();
}

// Read once for all that looks at it until the run has made its document of it.
Result<InputBytes> Session::InputNow() {
  const std::string& path = settings_.inputFile;
  const bool isThere =
      input_ && *input_ && (*input_)->Path() == path && (*input_)->Stamp() == StampOf(path);
  if (!isThere) {
    digest_.reset();
    input_ = ReadInput(path, ui_);
  }
  return *input_;
}

// Of the input that was read last.
std::shared_ptr<const InputDigest> Session::DigestOf(const InputBytes& input) {
  if (digest_ == nullptr) digest_ = std::make_shared<const InputDigest>(input);
  return digest_;
}

void Session::DropInput() {
  input_.reset();
  digest_.reset();
}

void Session::DropWordsAtHand() { atHand_.reset(); }

bool Session::ReadNamedStopWords() {
  const StopWordList& list = lists_.stopWords;
  const std::string path = settings_.stopWordsFile;
  return list.loaded || path.empty() || ReadStopWordsFile(path, lists_.stopWords, ui_);
}

void Session::ClearCounts() {
  for (const Label label :
       {Label::numberOfWords, Label::numberOfOccurrences, Label::keywordsFound}) {
    ui_.SetLabel(label, "");
  }
}

void Session::DropValues() {
  DropInput();
  atHand_.reset();
  document_.reset();
  listing_.reset();
  report_ = {};
}

}  // namespace quorvel
