// Reads word files as stop words and as keywords.

#include "lists/word_file.h"

#include "fuzz_input.h"
#include "run/silent_conversation.h"
#include "run/word_lists.h"
#include "util/characters.h"
#include "util/make_singular.h"
#include "util/utf8.h"

namespace quorvel::fuzz {
namespace {

const Alphabet& latin = Alphabet::Windows1252();

// True for characters that are not part of comment marks and are neither trimmed nor repaired.
bool IsPlain(char16_t ch) { return ch > u' ' && ch < 128 && ch != u'*'; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const FuzzFolder folder;
  const std::string bytes = FuzzInput(data, size).Rest();
  SilentConversation ui;
  SortedWords words = *WordsOfFileBytes(bytes, latin, ui);
  std::string lines;
  bool plain = true;
  for (const std::u16string& word : words) {
    lines += EncodeUtf8(word) + "\r\n";
    plain = plain && std::ranges::all_of(word, IsPlain);
  }
  Require(!plain || *WordsOfFileBytes(lines, latin, ui) == words,
          "plain words are restored unchanged");
  const std::string path = folder.Write("words.txt", bytes);
  StopWordList stopWords;
  KeywordLists keywords;
  const bool readable = ReadStopWordsFile(path, latin, stopWords, ui);
  Require(ReadKeywordsFile(path, latin, keywords, ui) == readable,
          "both lists read the same files");
  if (!readable) return 0;
  Require(keywords.fileKeywords == KeywordsOfFile(words, latin),
          "the keywords are made from the words");
  std::sort(words.begin(), words.end());
  Require(stopWords.words == words, "all words are stop words");
  std::erase_if(words, [](const auto& word) { return !std::ranges::all_of(word, IsLetter); });
  Require(keywords.fileKeywords.size() == words.size(), "the keywords are the plain words");
  for (const std::u16string& word : words) {
    Require(IsSearchWord(MakeSingular(ToLowerCase(word), latin), keywords, latin),
            "a keyword is found");
  }
  return 0;
}

}  // namespace quorvel::fuzz
