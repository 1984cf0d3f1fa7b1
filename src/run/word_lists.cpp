#include "run/word_lists.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "files/read_file.h"
#include "lists/word_file.h"
#include "run/fault_texts.h"
#include "run/input_check.h"
#include "util/number_words.h"
#include "util/utf8.h"
#include "util/visible_text.h"

namespace quorvel {
namespace {

// The texts for reading one kind of list.
struct WordFileTexts {
  const char* title;     // of message boxes
  const char* missing;   // before the path of a missing file
  const char* progress;  // while the file is read
  const char* stopped;   // after a stop
  const char* failed;    // between the error number and the path
};

constexpr WordFileTexts STOP_WORD_TEXTS = {
    .title = "Stop words",
    .missing = "Stop words file not found:",
    .progress = "Reading stop words",
    .stopped = "Reading stop words was stopped.",
    // Compatibility: "tile" (for "file") stays, here and for keywords. Scripts that automate the
    // window look for these messages.
    .failed = "when reading stop words from tile ",
};

constexpr WordFileTexts KEYWORD_TEXTS = {
    .title = "Search words",
    .missing = "Keywords file not found:",
    .progress = "Reading keywords",
    .stopped = "Reading search words was stopped.",
    .failed = "when reading search words from tile ",
};

using WordsOfFile = std::vector<std::u16string>;

// True when the file may be a list, as far as that is known before its words are read. Otherwise
// tells the user.
bool IsListFile(const std::string& path, const Result<InputBytes>& file, const Alphabet& alphabet,
                const WordFileTexts& texts, Conversation& ui) {
  if (!file && file.Error().kind == FaultKind::missing) {
    ui.Tell(std::string(texts.missing) + "\r\n" + VisibleName(path), texts.title);
    return false;
  }
  if (!file && file.Error().kind == FaultKind::notRead) return true;
  bool macNoticeShown = true;
  const CheckOptions options = {.reading = alphabet.ReadingOf(), .quiet = true};
  return CheckInputFile(file, options, macNoticeShown, ui).accepted;
}

// Reads the words of a file. For a long file, the user can stop it.
Result<WordsOfFile> StoppableWords(std::string_view bytes, const Alphabet& alphabet,
                                   Conversation& ui) {
  constexpr std::size_t STOPPABLE_ABOVE = 20480;  // bytes
  const bool stoppable = bytes.size() > STOPPABLE_ABOVE;
  if (stoppable) ui.OfferStop(true);
  Result<WordsOfFile> words = WordsOfFileBytes(bytes, alphabet, ui);
  if (stoppable) ui.OfferStop(false);
  return words;
}

// Reads the words of a file. Returns nothing for an empty path, or when the file is missing, is not
// a text, or cannot be read (the user has been told), or when reading was stopped.
std::optional<WordsOfFile> ReadWordFile(const std::string& path, const Alphabet& alphabet,
                                        const WordFileTexts& texts, Conversation& ui) {
  ui.ClearStop();
  if (path.empty()) return std::nullopt;
  SilentProgress nobody;
  const Result<InputBytes> file = ReadInput(path, nobody);
  if (!IsListFile(path, file, alphabet, texts, ui)) return std::nullopt;
  ui.SetOutput(std::string(texts.progress) + " ...");
  if (!file) {
    ui.Tell("Error #" + std::to_string(file.Error().errorNumber) + " " + texts.failed +
                VisibleName(path),
            texts.title);
    return std::nullopt;
  }
  Result<WordsOfFile> words = StoppableWords(file->View(), alphabet, ui);
  if (words) return *std::move(words);
  ui.SetOutput(texts.stopped);
  return std::nullopt;
}

std::string CountText(const StopWordList& list) {
  return CountInWords(list.words.size(), "One stop word", " stop words");
}

std::string CountText(const KeywordLists& lists) {
  // Compatibility: "keyword word" is the text that users and scripts know.
  return CountInWords(lists.fileKeywords.size(), "One keyword word", " keywords");
}

}  // namespace

bool ReadStopWordsFile(const std::string& path, const Alphabet& alphabet, StopWordList& list,
                       Conversation& ui) {
  std::optional<WordsOfFile> words = ReadWordFile(path, alphabet, STOP_WORD_TEXTS, ui);
  list.loaded = words.has_value();
  if (!words) return false;
  std::sort(words->begin(), words->end());
  list.words = *std::move(words);
  return true;
}

bool AttemptToReadStopWords(const std::string& path, ConcordanceSettings& settings,
                            StopWordList& list, Conversation& ui) {
  if (!ReadStopWordsFile(path, Alphabet::Of(settings.reading), list, ui)) return false;
  ui.SetOutput("");
  ui.SetLabel(Label::numberOfWords, CountText(list));
  ui.Tell(StopWordsLoadedText(list, path), "Stop words loaded", Icon::none);
  settings.stopWordsFile = path;
  return true;
}

std::string StopWordsLoadedText(const StopWordList& list, const std::string& path) {
  return CountText(list) + " loaded from " + VisibleName(path);
}

void ListStopWords(const StopWordList& list, Conversation& ui) {
  constexpr std::size_t MOST_SHOWN = 30;
  const std::size_t count = list.words.size();
  if (count < 2) return;
  std::string text = "There are " + std::to_string(count) + " stop words.\r\n\r\n";
  for (std::size_t i = 0; i < std::min(count, MOST_SHOWN); ++i) {
    text += EncodeUtf8(list.words[i]) + "\r\n";
  }
  if (count > MOST_SHOWN) text += "\r\nand more";
  ui.Tell(text, "Stop words", Icon::none);
}

bool CheckAllowedExtraChars(const ConcordanceSettings& settings, Conversation& ui) {
  const std::optional<Fault> fault = FaultInExtraStopWords(settings);
  if (fault) ui.Ask(MessageOf(*fault));
  return !fault;
}

bool ReadKeywordsFile(const std::string& path, const Alphabet& alphabet, KeywordLists& lists,
                      Conversation& ui) {
  const std::optional<WordsOfFile> words = ReadWordFile(path, alphabet, KEYWORD_TEXTS, ui);
  if (!words) return false;
  lists.fileKeywords = KeywordsOfFile(*words, alphabet);
  return true;
}

bool AttemptToReadSearchWords(const std::string& path, const Alphabet& alphabet,
                              KeywordLists& lists, Conversation& ui) {
  if (!ReadKeywordsFile(path, alphabet, lists, ui)) return false;
  ui.SetLabel(Label::numberOfWords, CountText(lists));
  ui.SetOutput(KeywordsLoadedText(lists, path) + "\r\n\r\n");
  const Message question = {"Display search words?", "Keywords to search for", Icon::none,
                            Buttons::yesNo, Answer::yes};
  if (ui.Ask(question) == Answer::yes) {
    std::string words;
    for (const std::u16string& word : lists.fileKeywords) words += " " + EncodeUtf8(word);
    ui.AppendOutput(words);
  }
  return true;
}

std::string KeywordsLoadedText(const KeywordLists& lists, const std::string& path) {
  return CountText(lists) + " loaded from " + VisibleName(path);
}

bool GetExtraKeywords(ConcordanceSettings& settings, KeywordLists& lists, Conversation& ui) {
  settings.extraKeywords =
      TidyExtraKeywords(settings.extraKeywords, Alphabet::Of(settings.reading));
  Result<ExtraKeywordList> keywords = ExtraKeywordsOf(settings.extraKeywords, settings);
  if (!keywords) {
    ui.Ask(MessageOf(keywords.Error()));
    return false;
  }
  lists.extraKeywords = *std::move(keywords);
  return true;
}

}  // namespace quorvel
