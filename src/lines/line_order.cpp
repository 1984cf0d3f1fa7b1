#include "lines/line_order.h"

#include <algorithm>
#include <tuple>

#include "lines/context_words.h"
#include "util/leading_units.h"
#include "util/sort_in_steps.h"

// The keys of all lines are stored one after the other in one text. Most keys differ in their first
// characters, which are compared as one number.

namespace quorvel {
namespace {

struct KeyedLine {
  std::uint64_t front = 0;  // the first four units of the key
  std::size_t begin = 0;
  std::size_t length = 0;
  Line line;
};

bool IsBefore(const Line& a, const Line& b) {
  return std::tie(a.position, a.entry) < std::tie(b.position, b.entry);
}

template <typename Char>
class KeyMaker {
 public:
  KeyMaker(const LineSource& source, const Quotation<Char>& quotation, const LineOrder& order)
      : reader_(source, quotation),
        words_(quotation, source.words.document->AlphabetOf()),
        order_(order) {}

  void Append(std::u16string& keys, const Line& line) {
    const LineText<Char> text = reader_.Read(line);
    if (order_.key == LineKey::right) {
      words_.AppendRight(keys, text.right, order_.fromWord);
    } else if (order_.key == LineKey::left) {
      words_.AppendLeft(keys, text.left, order_.fromWord);
    } else {
      words_.AppendWord(keys, text.match);
    }
  }

 private:
  LineReader<Char> reader_;
  ContextWords<Char> words_;
  LineOrder order_;
};

// Makes the keys, and records where the key of each line is. Returns false after a stop.
template <typename Char>
bool MakeKeys(KeyMaker<Char> maker, const Lines& lines, std::u16string& keys,
              std::vector<KeyedLine>& keyed, Progress& progress) {
  keyed.reserve(lines.size());
  for (const Line& line : lines) {
    const std::size_t begin = keys.size();
    maker.Append(keys, line);
    const std::u16string_view key = std::u16string_view(keys).substr(begin);
    keyed.push_back({LeadingUnits(key), begin, key.size(), line});
    progress.Yield();
    if (progress.StopRequested()) return false;
  }
  return true;
}

bool OrderByPlace(Lines& lines, bool isDescending, Progress& progress) {
  return SortInSteps(
      lines,
      [isDescending](const Line& a, const Line& b) {
        return isDescending ? IsBefore(b, a) : IsBefore(a, b);
      },
      progress);
}

}  // namespace

bool OrderLines(Lines& lines, const LineSource& source, const LineOrder& order,
                Progress& progress) {
  if (order.key == LineKey::place) return OrderByPlace(lines, order.isDescending, progress);
  std::u16string keys;
  std::vector<KeyedLine> keyed;
  const bool made = WithQuotation(*source.words.document, [&](const auto& quotation) {
    return MakeKeys(KeyMaker(source, quotation, order), lines, keys, keyed, progress);
  });
  const std::u16string_view all = keys;
  const auto isBefore = [all, &order](const KeyedLine& a, const KeyedLine& b) {
    if (a.front != b.front) return (a.front < b.front) != order.isDescending;
    const int compared = all.substr(a.begin, a.length).compare(all.substr(b.begin, b.length));
    if (compared != 0) return (compared < 0) != order.isDescending;
    return IsBefore(a.line, b.line);
  };
  if (!made || !SortInSteps(keyed, isBefore, progress)) return false;
  std::ranges::transform(keyed, lines.begin(), &KeyedLine::line);
  return true;
}

}  // namespace quorvel
