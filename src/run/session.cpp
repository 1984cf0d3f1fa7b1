#include "run/session.h"

#include <utility>

#include "files/file_system.h"
#include "files/path_names.h"
#include "run/fault_texts.h"
#include "run/silent_conversation.h"
#include "run/stop_word_choice.h"
#include "run/word_lists.h"
#include "unicode/packed_documents.h"
#include "util/visible_text.h"

// The settings, the input and the word lists of a session. session_run.cpp has its runs.

namespace quorvel {

Session::Session(Conversation& ui, SessionOptions options) : ui_(ui), options_(std::move(options)) {
  constexpr std::size_t ROOM = 4200;  // for the longest path and the text around it
  memoryMessage_.text.reserve(ROOM);
  if (options_.input) input_ = std::exchange(options_.input->bytes, {});
}

// Allocates no memory, unless the path is longer than the reserved room.
void Session::EndWithoutMemory(const std::string& file) {
  DropValues();
  ui_.CountSeconds(false);
  ui_.SetOutput("");
  ClearCounts();
  memoryMessage_.text.assign(NOT_ENOUGH_MEMORY);
  if (!file.empty()) memoryMessage_.text.append(" for\r\n").append(file);
  memoryMessage_.text += '.';
  ui_.Ask(memoryMessage_);
}

std::optional<RestoredState> Session::LoadSettings(const std::string& path, bool starting) {
  std::optional<RestoredState> restored;
  std::string file;
  Enter(path.empty() ? file : path, [&] {
    file = path.empty() ? StateFilePath() : path;
    ConcordanceSettings settings = settings_;
    restored = RestoreSavedState(settings, path, starting);
    settings_ = std::move(settings);
    settingsFile_ = std::move(file);
  });
  return restored;
}

void Session::TakeLoadedSettings() {
  Enter(settings_.stopWordsFile, [this] {
    const std::string& path = settings_.stopWordsFile;
    EraseSearchWords(lists_.keywords);
    lists_.stopWords.loaded = false;
    SilentConversation nobody;
    const bool all = path.ends_with(ALL_LANGUAGES.stopWordsFile);
    if (all) (void)ReadStopWordsFile(path, AlphabetNow(), lists_.stopWords, nobody);
  });
}

std::optional<std::string> Session::SaveSettings(const std::string& path) {
  std::optional<std::string> errorText;
  std::string file;
  Enter(path.empty() ? file : path, [&] {
    file = path.empty() ? StateFilePath() : path;
    const FilesToKeep kept = FilesOfSettings();
    if (quorvel::CheckOutputs({{"settings file", file}}, kept, ui_)) {
      errorText = SaveState(settings_, path, kept);
    }
  });
  return errorText;
}

FilesToKeep Session::FilesOfSettings() const {
  return {{"input file", options_.input ? options_.input->path : settings_.inputFile},
          {"keywords file", settings_.keywordsFile},
          {"stop words file", settings_.stopWordsFile}};
}

FilesToKeep Session::FilesOfRun() const {
  FilesToKeep files = FilesOfSettings();
  files.push_back({"settings file", settingsFile_});
  return files;
}

void Session::SetInput(InputOrigin origin) {
  Enter(settings_.inputFile, [this, origin] {
    DropValues();
    ui_.SetOutput("");
    ClearCounts();
    if (CheckChosenInput()) {
      FollowInput(origin);
    } else {
      settings_.inputFile.clear();
    }
    DropInput();
  });
}

// True when the input in the settings can be used. Otherwise tells the user why, unless there is no
// input.
bool Session::CheckChosenInput() {
  const std::string path = settings_.inputFile;
  if (path.empty() || !CheckNotOwnOutput(path, ui_)) return false;
  const bool isPacked = IsPackedName(path, settings_.reading);
  if (!isPacked) ui_.AppendOutput("Checking file ...\r\n");
  const CheckOptions options = {.reading = settings_.reading, .quiet = isPacked};
  const Result<InputBytes> input = InputNow();
  const InputCheck check = CheckInputFile(input, options, macNoticeShown_, ui_);
  if (!check.accepted) return false;
  settings_.inputIsUtf8 = check.isUtf8;
  if (LowerExtensionOf(path) == "docx" && !IsWordDocument(*input)) {
    ui_.Tell("The file " + VisibleName(path) +
                 "\r\nhas a 'docx' extension but does not appear to be an MS Word 'docx' file.",
             STANDARD_TITLE);
    return false;
  }
  return true;
}

// Sets the default output, the stop words and the index words for a new input.
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
  const std::string index = DefaultIndexFileName(settings_.inputFile);
  Enter(index, [this, ask] {
    const Result<InputBytes> input = InputNow();
    if (input) atHand_ = ReadIndexFile(*input, *DigestOf(*input), settings_.reading, ask, ui_);
  });
}

// If the input does not exist or is not a file, the language is English.
std::optional<Language> Session::RecognizeLanguage() {
  const Result<InputBytes> input = InputNow();
  if (input) {
    const auto languages = options_.languages ? options_.languages : ReadLanguages();
    if (languages == nullptr) return std::nullopt;
    return RecognizeInputLanguage(*input, settings_.reading, *languages);
  }
  const FaultKind kind = input.Error().kind;
  if (kind == FaultKind::notOpened || kind == FaultKind::notRead) return std::nullopt;
  return LANGUAGES.front();
}

// The input is read once and shared by all checks, until the run has made its document.
Result<InputBytes> Session::InputNow() {
  const std::string& path = settings_.inputFile;
  const bool isCurrent = input_ && *input_ && (*input_)->Path() == path &&
                         (options_.input || (*input_)->Stamp() == StampOf(path));
  if (!isCurrent) {
    DropInput();
    input_ = ReadInput(path, ui_);
  }
  return *input_;
}

// `input` must be the input that was read last.
std::shared_ptr<const InputDigest> Session::DigestOf(const InputBytes& input) {
  if (digest_ == nullptr) digest_ = std::make_shared<const InputDigest>(input);
  return digest_;
}

void Session::DropInput() {
  input_.reset();
  digest_.reset();
}

void Session::ChangeReading(Reading reading) {
  Enter(settings_.keywordsFile, [this, reading] {
    settings_.reading = reading;
    lists_.stopWords.loaded = false;
    SilentConversation nobody;
    KeywordLists& keywords = lists_.keywords;
    if (!keywords.fileKeywords.empty()) {
      (void)ReadKeywordsFile(settings_.keywordsFile, AlphabetNow(), keywords, nobody);
    }
  });
}

ReadingOptions Session::ReadingNow() const {
  return {settings_.reading, settings_.inputIsUtf8, settings_.ignoreLists, settings_.notes};
}

bool Session::ReadNamedStopWords() {
  const StopWordList& list = lists_.stopWords;
  const std::string& path = settings_.stopWordsFile;
  bool read = list.loaded || path.empty();
  if (!read)
    Enter(path, [&] { read = ReadStopWordsFile(path, AlphabetNow(), lists_.stopWords, ui_); });
  return read;
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
