#include "engine/tokenizer.h"

#include <algorithm>
#include <array>
#include <optional>

#include "engine/known_tokens.h"
#include "engine/token_edges.h"
#include "engine/word_tests.h"
#include "lists/keyword_beginnings.h"
#include "util/characters.h"
#include "util/hash_seed.h"
#include "util/make_singular.h"
#include "util/progress_bar.h"

// The place of a word is where the scan stands behind it, less the word's length.
// So a word that lost its plural "s" or a hyphen is placed that much to the right
// of its token, and a word at the very end of the text one too far, since a run of
// letters that meets the end counts one more. Contexts are cut around these
// places, and index files hold them: they must stay so.

namespace quorvel {
namespace {

constexpr std::int64_t PROGRESS_THRESHOLD = 10240;  // characters; no bar for a shorter text

std::u16string_view StripHyphens(std::u16string_view token) {
  const std::size_t first = token.find_first_not_of(u'-');
  const std::size_t last = token.find_last_not_of(u'-');
  return token.substr(first, last - first + 1);
}

// Tokens are taken some at a time: what is to be looked up for one of them comes from memory
// while the others are cut, and the place that its word is to be recorded at while the others
// are looked up. Waiting for each would take as long as all the rest.
class Scan {
 public:
  Scan(std::u16string_view text, const Alphabet& alphabet, WordTable& table, Progress& progress,
       const KeywordLists* sought)
      : text_(text),
        alphabet_(alphabet),
        table_(table),
        progress_(progress),
        bar_(progress),
        known_(text, alphabet, table, sought, RandomHashSeed()),
        edges_(text, alphabet,
               sought == nullptr ? TokenEdges::Which::all : TokenEdges::Which::beginnings) {
    if (sought != nullptr) beginnings_.emplace(*sought, alphabet);
  }

  // Cuts the next tokens; false when there is none, or after a stop.
  bool CutTokens() {
    cut_ = 0;
    return beginnings_ ? CutSought() : CutAll();
  }

  // Records the words that they stand for.
  void RecordWords() {
    std::size_t found = 0;
    progress_.NoteWordsFound(table_.WordCount());
    for (std::size_t i = 0; i < cut_ && !stopped_; ++i) {
      const TokenMeaning meaning = known_.MeaningOf(keys_[i]);
      if (meaning.entry == TokenMeaning::NO_WORD) continue;
      const std::size_t end = keys_[i].begin + keys_[i].length;
      const auto scanPosition = static_cast<std::int32_t>(end + (end < text_.size() ? 1 : 2));
      occurrences_[found++] = {meaning.entry, scanPosition - meaning.wordLength};
      __builtin_prefetch(&table_.entries[static_cast<std::size_t>(meaning.entry)].positions);
      stopped_ = !GoesOn(scanPosition);
    }
    for (std::size_t i = 0; i < found; ++i) {
      AddWordToList(table_, occurrences_[i].entry, occurrences_[i].position);
    }
  }

 private:
  static constexpr std::size_t AT_A_TIME = 64;
  static constexpr std::size_t BEGINNINGS_AT_A_TIME = 512;
  static_assert(KeywordBeginnings::LENGTH <= MIN_WORD_LENGTH);

  bool CutAll() {
    while (cut_ < keys_.size()) {
      const std::size_t begin = edges_.Next();
      const std::size_t end = edges_.Next();
      if (begin == text_.size()) break;
      progress_.Yield();
      if (end - begin >= MIN_WORD_LENGTH) keys_[cut_++] = known_.KeyOf(begin, end - begin);
    }
    return cut_ > 0 && !stopped_;
  }

  // Only those that begin like a word that is sought: of the others not even the end is looked for.
  bool CutSought() {
    std::size_t begin = 0;
    for (std::size_t i = 0; i < BEGINNINGS_AT_A_TIME && cut_ < keys_.size(); ++i) {
      begin = edges_.Next();
      if (begin + MIN_WORD_LENGTH > text_.size()) break;
      const char16_t* const start = text_.data() + begin;
      // A hyphen at the front of a token is none of its word's.
      if (!beginnings_->MayBegin(start) && *start != u'-') continue;
      const std::size_t length = alphabet_.EndOfRun(text_, begin) - begin;
      if (length >= MIN_WORD_LENGTH) keys_[cut_++] = known_.KeyOf(begin, length);
    }
    stopped_ = !GoesOn(static_cast<std::int64_t>(begin));
    return (cut_ > 0 || begin < text_.size()) && !stopped_;
  }

  // Shows how far the scan has come and lets events run; false after a stop.
  bool GoesOn(std::int64_t position) {
    bar_.Update(position, static_cast<std::int64_t>(text_.size()), PROGRESS_THRESHOLD);
    progress_.Yield();
    return !progress_.StopRequested();
  }

  struct Occurrence {
    std::int32_t entry = 0;     // 0-based
    std::int32_t position = 0;  // 1-based
  };

  std::u16string_view text_;
  const Alphabet& alphabet_;
  WordTable& table_;
  Progress& progress_;
  ProgressBar bar_;
  KnownTokens known_;
  TokenEdges edges_;
  std::optional<KeywordBeginnings> beginnings_;  // of the words that alone are sought
  std::array<TokenKey, AT_A_TIME> keys_{};
  std::size_t cut_ = 0;
  std::array<Occurrence, AT_A_TIME> occurrences_{};
  bool stopped_ = false;
};

}  // namespace

std::u16string_view GetWord(std::u16string_view text, const Alphabet& alphabet,
                            std::size_t& scanPosition) {
  const std::size_t begin = scanPosition - 1;
  const std::size_t end = alphabet.EndOfRun(text, begin);
  scanPosition = end + (end < text.size() ? 1 : 2);
  return WordOfToken(text.substr(begin, end - begin), alphabet);
}

std::u16string_view WordOfToken(std::u16string_view token, const Alphabet& alphabet) {
  if (alphabet.ContainsNoLetter(token)) return {};
  const std::u16string_view word = MakeSingular(StripHyphens(token), alphabet);
  // What stands behind an apostrophe ("John's", "couldn't"), and what stands before
  // it in a negation, is no word of its own.
  const bool apostropheRest =
      word.size() == 1 && (ToLowerCase(word.front()) == u's' || ToLowerCase(word.front()) == u't');
  if (apostropheRest || IsContractionStem(word)) return {};
  return word;
}

bool MayEnterTable(std::u16string_view word) {
  return word.size() >= MIN_WORD_LENGTH && word.size() <= MAX_WORD_LENGTH &&
         !IsOneRepeatedChar(word) && !IsRomanNumeral(word);
}

// Its token ends as many characters behind the recorded place as the word has, or at the end
// of the text. A word that ends in "s" has lost none.
TextSpan SpanOfOccurrence(std::u16string_view text, std::u16string_view word,
                          std::int32_t position) {
  std::size_t end = std::min(static_cast<std::size_t>(position) - 1 + word.size(), text.size());
  while (text[end - 1] == u'-') --end;
  const bool lostPlural = text[end - 1] == u's' && word.back() != u's';
  return {end - word.size() - (lostPlural ? 1 : 0), end};
}

void GetWords(std::u16string_view text, const Alphabet& alphabet, WordTable& table,
              Progress& progress, const KeywordLists* sought) {
  Scan scan(text, alphabet, table, progress, sought);
  while (scan.CutTokens()) scan.RecordWords();
}

}  // namespace quorvel
