#include "engine/index_file.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

#include "engine/tokenizer.h"
#include "util/ascii.h"
#include "util/text_form.h"
#include "util/time_text.h"

namespace quorvel {
namespace {

constexpr char SEPARATOR = '*';
constexpr int WIDEST_POSITION = 10;
constexpr std::int32_t LARGEST_NUMBER = std::numeric_limits<std::int32_t>::max();

// Compatibility: numbers in the head have a blank on each side. Users' index files are written so.
std::string HeadLine(std::int32_t number) {
  return " " + std::to_string(number) + " " + std::string(LINE_END);
}

// Appends the last `width` digits of `position`, padded with zeros.
void AppendPosition(std::string& bytes, Position position, int width) {
  const std::size_t start = bytes.size();
  auto number = static_cast<std::int32_t>(position);
  bytes.resize(start + static_cast<std::size_t>(width));
  for (std::size_t i = bytes.size(); i > start; --i) {
    bytes[i - 1] = static_cast<char>('0' + number % 10);
    number /= 10;
  }
}

// Parses a number that consists of digits only, from 0 to `largest`.
std::optional<std::int32_t> ParsedNumber(std::string_view digits, std::int32_t largest) {
  std::int32_t number = 0;
  const char* const end = digits.data() + digits.size();
  const auto [behind, error] = std::from_chars(digits.data(), end, number);
  const bool whole = error == std::errc() && behind == end && digits.front() != '-';
  if (!whole || number > largest) return std::nullopt;
  return number;
}

// Splits the bytes of a file into lines.
class LineReader {
 public:
  explicit LineReader(std::string_view bytes) : rest_(bytes) {}

  // The next line without its line end. After the last line it is empty.
  std::string_view Next() {
    const std::size_t length = std::min(rest_.find(LINE_END), rest_.size());
    const std::string_view line = rest_.substr(0, length);
    rest_.remove_prefix(std::min(length + LINE_END.size(), rest_.size()));
    return line;
  }

  // Parses the next line as a number of the head.
  std::optional<std::int32_t> NextNumber(std::int32_t largest) {
    return ParsedNumber(TrimBlanks(Next()), largest);
  }

 private:
  std::string_view rest_;
};

constexpr std::int64_t NO_NUMBER = -1;

// Parses the last `width` of the eight characters before `end`, several digits at a time. Returns
// NO_NUMBER unless all of them are digits.
std::int64_t ShortNumberBefore(const char* end, std::size_t width) {
  constexpr std::uint64_t ZEROS = 0x3030303030303030U;
  constexpr std::uint64_t HIGH_HALVES = 0xF0F0F0F0F0F0F0F0U;
  constexpr std::uint64_t PAIRS = 0x000000FF000000FFU;
  std::uint64_t digits = 0;  // the first digit in the lowest byte
  std::memcpy(&digits, end - sizeof(digits), sizeof(digits));
  const std::uint64_t wanted = ~std::uint64_t{0} << (8 * (sizeof(digits) - width));
  digits = (digits & wanted) | (ZEROS & ~wanted);
  const std::uint64_t upToFifteen = digits + 0x0606060606060606U;  // overflows above "9"
  if ((((digits ^ ZEROS) | (upToFifteen ^ ZEROS)) & HIGH_HALVES) != 0) return NO_NUMBER;
  digits -= ZEROS;
  digits = digits * 10 + (digits >> 8U);
  const std::uint64_t hundreds = (digits & PAIRS) * (100 + (std::uint64_t{1000000} << 32U));
  const std::uint64_t ones = ((digits >> 16U) & PAIRS) * (1 + (std::uint64_t{10000} << 32U));
  return static_cast<std::int64_t>((hundreds + ones) >> 32U);
}

// Parses the `width` characters before `end`, or returns NO_NUMBER. At least eight characters of
// the file must precede `end`.
std::int64_t NumberBefore(const char* end, std::size_t width) {
  if (std::endian::native == std::endian::little && width <= sizeof(std::uint64_t)) {
    return ShortNumberBefore(end, width);
  }
  std::int64_t number = 0;
  for (const char* digit = end - width; digit < end; ++digit) {
    if (*digit < '0' || *digit > '9') return NO_NUMBER;
    number = number * 10 + (*digit - '0');
  }
  return number;
}

// Parses positions in fields of `width` characters. Returns false unless they are `count` numbers
// in ascending order, from 1 on.
bool ReadPositions(std::string_view fields, std::int32_t count, int width,
                   std::vector<Position>& positions) {
  const auto fieldWidth = static_cast<std::size_t>(width);
  if (fields.size() != static_cast<std::size_t>(count) * fieldWidth) return false;
  positions.resize(static_cast<std::size_t>(count));
  const char* end = fields.data();
  std::int64_t last = 0;
  bool ascend = true;
  for (Position& position : positions) {
    end += fieldWidth;
    const std::int64_t number = NumberBefore(end, fieldWidth);
    ascend = ascend && number > last;
    position = static_cast<Position>(number);
    last = number;
  }
  return ascend && last <= LARGEST_NUMBER;
}

// Parses one line of a table of `wordCount` words.
std::optional<WordEntry> EntryOnLine(std::string_view line, const Alphabet& alphabet,
                                     std::int32_t wordCount, int width) {
  std::array<std::string_view, 5> fields;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const bool last = i + 1 == fields.size();
    const std::size_t length = last ? line.size() : line.find(SEPARATOR);
    if (length == std::string_view::npos) return std::nullopt;
    fields.at(i) = line.substr(0, length);
    line.remove_prefix(last ? length : length + 1);
  }
  const auto& [word, prev, count, next, positions] = fields;
  const std::u16string spelling = alphabet.Decode(word);
  if (spelling.empty() || spelling.size() > MAX_WORD_LENGTH) return std::nullopt;
  const std::optional<std::int32_t> prevEntry = ParsedNumber(prev, wordCount);
  const std::int32_t occurrences = ParsedNumber(count, LARGEST_NUMBER).value_or(0);
  const std::optional<std::int32_t> nextEntry = ParsedNumber(next, wordCount);
  if (!prevEntry || occurrences == 0 || !nextEntry) return std::nullopt;
  WordEntry entry = NewWordEntry(spelling, alphabet);
  if (!ReadPositions(positions, occurrences, width, entry.positions)) return std::nullopt;
  return entry;
}

// The number of an entry in the file, counted from 1.
std::int32_t NumberOf(EntryIndex entry) { return static_cast<std::int32_t>(entry) + 1; }

// The numbers of the neighbours of an entry in the frequency chain, or 0 for none.
struct Links {
  std::int32_t frequencyPrev = 0;
  std::int32_t frequencyNext = 0;
};

std::vector<Links> LinksOf(const ListedWords& listed) {
  std::vector<Links> links(listed.words.table->entries.size());
  const auto linksOf = [&links](EntryIndex i) -> Links& {
    return links[static_cast<std::size_t>(i)];
  };
  const std::vector<EntryIndex>& chain = listed.frequencyChain;
  for (std::size_t k = 1; k < chain.size(); ++k) {
    linksOf(chain[k - 1]).frequencyNext = NumberOf(chain[k]);
    linksOf(chain[k]).frequencyPrev = NumberOf(chain[k - 1]);
  }
  return links;
}

}  // namespace

std::string IndexFileBytes(const ListedWords& listed, std::string_view digest, std::time_t time) {
  const WordTable& table = *listed.words.table;
  const Alphabet& alphabet = listed.words.document->AlphabetOf();
  const std::vector<Links> links = LinksOf(listed);
  std::string bytes(digest);
  bytes.append(LINE_END).append(DateAndTimeText(time)).append(LINE_END);
  bytes += HeadLine(table.WordCount());
  bytes += HeadLine(table.positionWidth);
  bytes += HeadLine(listed.frequencyChain.empty() ? 0 : NumberOf(listed.frequencyChain.front()));
  for (std::size_t i = 0; i < table.entries.size(); ++i) {
    const WordEntry& entry = table.entries[i];
    alphabet.AppendEncoded(bytes, entry.word);
    for (const std::int32_t number :
         {links[i].frequencyPrev, entry.Count(), links[i].frequencyNext}) {
      bytes += SEPARATOR;
      bytes += std::to_string(number);
    }
    bytes += SEPARATOR;
    for (const Position position : entry.positions) {
      AppendPosition(bytes, position, table.positionWidth);
    }
    bytes += LINE_END;
  }
  return bytes;
}

// An index is longest, relative to its text, when all words are short and occur once. The line of a
// word with three letters has the word, four separators, three numbers, one position and a line
// end; the word takes four characters of the text, because another character must follow it.
std::uint64_t LongestIndexFile(std::uint64_t textLength) {
  constexpr std::uint64_t LONGEST_HEAD = 128;
  constexpr std::uint64_t MOST_BYTES = 3;  // bytes for one character of the text
  constexpr std::uint64_t LONGEST_LINE =
      MOST_BYTES * MIN_WORD_LENGTH + 4 + std::uint64_t{4} * WIDEST_POSITION + 2;
  constexpr std::uint64_t SHORTEST_WORD = MIN_WORD_LENGTH + 1;
  return LONGEST_HEAD + (textLength / SHORTEST_WORD + 1) * LONGEST_LINE;
}

IndexHead HeadOfIndexFile(std::string_view bytes) {
  LineReader lines(bytes);
  const std::string_view digest = lines.Next();
  return {digest, lines.Next()};
}

std::optional<WordTable> TableOfIndexFile(std::string_view bytes, const Alphabet& alphabet,
                                          const std::function<bool()>& goesOn) {
  constexpr std::int32_t LINES_BETWEEN_QUESTIONS = 1024;
  LineReader lines(bytes);
  lines.Next();
  lines.Next();
  const std::optional<std::int32_t> wordCount = lines.NextNumber(LARGEST_NUMBER);
  const std::optional<std::int32_t> width = lines.NextNumber(WIDEST_POSITION);
  if (!wordCount || !width || *width == 0) return std::nullopt;
  const std::optional<std::int32_t> head = lines.NextNumber(*wordCount);
  if (!head) return std::nullopt;
  WordTable table;
  table.positionWidth = *width;
  for (std::int32_t i = 0; i < *wordCount; ++i) {
    std::optional<WordEntry> entry = EntryOnLine(lines.Next(), alphabet, *wordCount, *width);
    const bool inOrder =
        entry && (table.entries.empty() || PrecedesAlphabetically(table.entries.back(), *entry));
    if (!inOrder || (i % LINES_BETWEEN_QUESTIONS == 0 && !goesOn())) return std::nullopt;
    table.entries.push_back(std::move(*entry));
  }
  return table;  // lines after the announced number of entries are ignored
}

}  // namespace quorvel
