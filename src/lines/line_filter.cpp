#include "lines/line_filter.h"

#include <algorithm>
#include <unordered_map>

#include "lines/context_words.h"
#include "lists/wildcard.h"
#include "lists/word_file.h"
#include "util/hash_seed.h"
#include "util/text_hash.h"

namespace quorvel {
namespace {

// True when one of the words matches the pattern. Each word is followed by a blank.
bool AnyWordMatches(std::u16string_view words, std::u16string_view pattern,
                    const Alphabet& alphabet) {
  for (std::size_t begin = 0; begin < words.size();) {
    const std::size_t end = words.find(u' ', begin);
    if (MatchesWildcard(words.substr(begin, end - begin), pattern, alphabet)) return true;
    begin = end + 1;
  }
  return false;
}

std::vector<std::u16string> PatternsOf(std::u16string_view wanted, const Alphabet& alphabet) {
  std::vector<std::u16string> patterns;
  for (const std::u16string_view word : SplitAtBlanks(wanted)) {
    patterns.push_back(alphabet.SortKey(word));
  }
  return patterns;
}

template <typename Char>
bool IsEqual(const LineText<Char>& a, const LineText<Char>& b) {
  return a.left == b.left && a.match == b.match && a.right == b.right;
}

template <typename Char>
class LineGroups {
 public:
  LineGroups(const LineSource& source, const Quotation<Char>& quotation)
      : reader_(source, quotation), other_(source, quotation) {}

  void Add(const Line& line) {
    const LineText<Char> text = reader_.Read(line);
    const std::uint64_t key =
        std::uint64_t{HashOf(text.left, seed_)} << 32U | HashOf(text.right, seed_);
    const auto [begin, end] = places_.equal_range(key);
    const auto known = std::find_if(begin, end, [&](const auto& place) {
      return IsEqual(text, other_.Read(groups_[place.second].first));
    });
    if (known != end) {
      ++groups_[known->second].count;
    } else {
      places_.emplace(key, groups_.size());
      groups_.push_back({line});
    }
  }

  [[nodiscard]] std::vector<LineGroup> Take() { return std::move(groups_); }

 private:
  LineReader<Char> reader_;
  LineReader<Char> other_;
  HashSeed seed_ = RandomHashSeed();
  // The indices of the groups, by hash.
  std::unordered_multimap<std::uint64_t, std::size_t> places_;
  std::vector<LineGroup> groups_;
};

}  // namespace

std::optional<Lines> LinesWith(std::u16string_view wanted, const Lines& lines,
                               const LineSource& source, Progress& progress) {
  const Alphabet& alphabet = source.words.document->AlphabetOf();
  const std::vector<std::u16string> patterns = PatternsOf(wanted, alphabet);
  Lines kept;
  WithQuotation(*source.words.document, [&](const auto& quotation) {
    LineReader reader(source, quotation);
    ContextWords words(quotation, alphabet);
    std::u16string folded;
    for (const Line& line : lines) {
      const auto text = reader.Read(line);
      folded.clear();
      words.AppendLeft(folded, text.left, 1);
      if (words.AppendWord(folded, text.match)) folded += u' ';
      words.AppendRight(folded, text.right, 1);
      const auto isThere = [&](const std::u16string& pattern) {
        return AnyWordMatches(folded, pattern, alphabet);
      };
      if (std::all_of(patterns.begin(), patterns.end(), isThere)) kept.push_back(line);
      progress.Yield();
      if (progress.StopRequested()) return;
    }
  });
  if (progress.StopRequested()) return std::nullopt;
  return kept;
}

std::optional<std::vector<LineGroup>> EqualLinesOnce(const Lines& lines, const LineSource& source,
                                                     Progress& progress) {
  return WithQuotation(*source.words.document,
                       [&](const auto& quotation) -> std::optional<std::vector<LineGroup>> {
                         LineGroups groups(source, quotation);
                         for (const Line& line : lines) {
                           groups.Add(line);
                           progress.Yield();
                           if (progress.StopRequested()) return std::nullopt;
                         }
                         return groups.Take();
                       });
}

}  // namespace quorvel
