#include "engine/tokenizer.h"

#include <algorithm>
#include <array>
#include <optional>

#include "engine/token_cache.h"
#include "engine/token_edges.h"
#include "engine/word_rules.h"
#include "lists/keyword_beginnings.h"
#include "util/characters.h"
#include "util/hash_seed.h"
#include "util/make_singular.h"
#include "util/progress_bar.h"

// Compatibility: the recorded position of a word is the scan position after its token, minus the
// length of the word. So a word that lost a plural "s" or a hyphen is recorded that many characters
// to the right of its token. A word at the very end of the text is recorded one character too far
// to the right, because the scan position then counts one more. Contexts are cut at these positions
// and users' index files contain them, so they must stay.

namespace quorvel {
namespace {

constexpr std::int64_t PROGRESS_THRESHOLD = 10240;  // characters; no bar for a shorter text

std::u16string_view StripHyphens(std::u16string_view token) {
  const std::size_t first = token.find_first_not_of(u'-');
  const std::size_t last = token.find_last_not_of(u'-');
  return token.substr(first, last - first + 1);
}

// The scan position after a token that ends at the 0-based `end` (exclusive).
Position ScanPositionAfter(std::u16string_view text, std::size_t end) {
  return PositionOf(end < text.size() ? end : end + 1);
}

// Tokens are processed in batches, to hide the latency of memory. While a batch is cut, the cache
// slots of its tokens are prefetched; while its words are looked up, the table entries are
// prefetched. Waiting for each access would double the time.
class Scan {
 public:
  Scan(std::u16string_view text, TextSpan piece, const Alphabet& alphabet, WordTable& table,
       Progress& progress, const KeywordLists* sought)
      : text_(text),
        piece_(piece),
        alphabet_(alphabet),
        table_(table),
        progress_(progress),
        bar_(progress),
        cache_(text, alphabet, table, sought, RandomHashSeed()),
        beginnings_(BeginningsOf(sought, alphabet)),
        edges_(EdgesOf(text.substr(0, piece.end), piece.begin, alphabet, beginnings_)),
        partEnd_(piece.begin) {}

  // Cuts the next batch of tokens. Returns false at the end of the piece or after a stop.
  bool CutTokens() {
    cut_ = 0;
    return beginnings_ ? CutSought() : CutAll();
  }

  // Records the words of the batch.
  void RecordWords() {
    std::size_t found = 0;
    progress_.NoteWordsFound(table_.WordCount());
    for (std::size_t i = 0; i < cut_ && !stopped_; ++i) {
      const TokenMeaning meaning = cache_.MeaningOf(keys_[i]);
      if (meaning.entry == TokenMeaning::NO_WORD) continue;
      const std::size_t end = keys_[i].begin + keys_[i].length;
      const Position scanPosition = ScanPositionAfter(text_, end);
      occurrences_[found++] = {meaning.entry, scanPosition - meaning.wordLength};
      __builtin_prefetch(&table_.At(meaning.entry).positions);
      stopped_ = !GoesOn(static_cast<std::size_t>(scanPosition));
    }
    for (std::size_t i = 0; i < found; ++i) {
      AddWordToList(table_, occurrences_[i].entry, occurrences_[i].position);
    }
  }

 private:
  static constexpr std::size_t AT_A_TIME = 64;
  static constexpr std::size_t PART = 1024;  // characters that are examined without a pause
  static_assert(KeywordBeginnings::LENGTH <= MIN_WORD_LENGTH);

  static std::optional<KeywordBeginnings> BeginningsOf(const KeywordLists* sought,
                                                       const Alphabet& alphabet) {
    if (sought == nullptr) return std::nullopt;
    return KeywordBeginnings(*sought, alphabet);
  }

  // A leading hyphen of a token does not belong to its word.
  static TokenEdges EdgesOf(std::u16string_view text, std::size_t begin, const Alphabet& alphabet,
                            const std::optional<KeywordBeginnings>& beginnings) {
    if (!beginnings) return {text, alphabet, begin};
    TokenEdges::Firsts firsts = beginnings->Firsts();
    firsts.set(u'-' % firsts.size());
    return {text, alphabet, begin, firsts};
  }

  bool CutAll() {
    while (cut_ < keys_.size()) {
      const std::size_t begin = edges_.Next();
      const std::size_t end = edges_.Next();
      if (begin == piece_.end) break;
      progress_.Yield();
      if (end - begin >= MIN_WORD_LENGTH) keys_[cut_++] = cache_.KeyOf(begin, end - begin);
    }
    return cut_ > 0 && !stopped_;
  }

  // Cuts only tokens that may begin with a sought word. The end of other tokens is not searched.
  bool CutSought() {
    static_assert(PART % FLAG_COUNT == 0);
    std::size_t begin = partEnd_;
    while (cut_ < keys_.size() && (begin = edges_.NextBefore(partEnd_)) < partEnd_) {
      if (begin + MIN_WORD_LENGTH > piece_.end) continue;
      const char16_t* const start = text_.data() + begin;
      if (!beginnings_->MayBegin(start) && *start != u'-') continue;
      const std::size_t length = alphabet_.EndOfRun(text_, begin) - begin;
      if (length >= MIN_WORD_LENGTH) keys_[cut_++] = cache_.KeyOf(begin, length);
    }
    stopped_ = !GoesOn(begin);
    if (begin == partEnd_) partEnd_ = std::min(partEnd_ + PART, piece_.end);
    return (cut_ > 0 || begin < piece_.end) && !stopped_;
  }

  // Updates the progress bar and lets events run. Returns false after a stop.
  bool GoesOn(std::size_t place) {
    bar_.Update(static_cast<std::int64_t>(place - piece_.begin),
                static_cast<std::int64_t>(piece_.end - piece_.begin), PROGRESS_THRESHOLD);
    progress_.Yield();
    return !progress_.StopRequested();
  }

  struct Occurrence {
    EntryIndex entry{};
    Position position{};
  };

  std::u16string_view text_;
  TextSpan piece_;
  const Alphabet& alphabet_;
  WordTable& table_;
  Progress& progress_;
  ProgressBar bar_;
  TokenCache cache_;
  std::optional<KeywordBeginnings> beginnings_;  // of the sought words, if only those are wanted
  TokenEdges edges_;
  std::array<TokenKey, AT_A_TIME> keys_{};
  std::size_t cut_ = 0;
  std::size_t partEnd_;  // of the part that a search examines
  std::array<Occurrence, AT_A_TIME> occurrences_{};
  bool stopped_ = false;
};

}  // namespace

std::u16string_view GetWord(std::u16string_view text, const Alphabet& alphabet,
                            Position& scanPosition) {
  const std::size_t begin = IndexOf(scanPosition);
  const std::size_t end = alphabet.EndOfRun(text, begin);
  scanPosition = ScanPositionAfter(text, end);
  return WordOfToken(text.substr(begin, end - begin), alphabet);
}

std::u16string_view WordOfToken(std::u16string_view token, const Alphabet& alphabet) {
  if (alphabet.ContainsNoLetter(token)) return {};
  const std::u16string_view word = MakeSingular(StripHyphens(token), alphabet);
  // The rest after an apostrophe ("John's", "couldn't") is not a word, nor is the part before it in
  // a negation.
  const bool apostropheRest =
      word.size() == 1 && (ToLowerCase(word.front()) == u's' || ToLowerCase(word.front()) == u't');
  if (apostropheRest || IsContractionStem(word)) return {};
  return word;
}

bool MayEnterTable(std::u16string_view word) {
  return word.size() >= MIN_WORD_LENGTH && word.size() <= MAX_WORD_LENGTH &&
         !IsOneRepeatedChar(word) && !IsRomanNumeral(word);
}

// The token ends `word.size()` characters after the recorded position, or at the end of the text. A
// word that ends in "s" has not lost a plural "s".
TextSpan SpanOfOccurrence(std::u16string_view text, std::u16string_view word, Position position) {
  std::size_t end = std::min(IndexOf(position) + word.size(), text.size());
  while (text[end - 1] == u'-') --end;
  const bool lostPlural = text[end - 1] == u's' && word.back() != u's';
  return {end - word.size() - (lostPlural ? 1 : 0), end};
}

void GetWords(std::u16string_view text, TextSpan piece, const Alphabet& alphabet, WordTable& table,
              Progress& progress, const KeywordLists* sought) {
  Scan scan(text, piece, alphabet, table, progress, sought);
  while (scan.CutTokens()) scan.RecordWords();
}

}  // namespace quorvel
