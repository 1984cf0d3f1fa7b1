#include "output/occurrence_rows.h"

#include <string>
#include <string_view>
#include <type_traits>

#include "output/listing_order.h"
#include "util/utf8.h"
#include "util/visible_text.h"

// Fields of tab-separated values need no quotes: tabs and line ends of the document became blanks
// when its text was prepared, and other control characters do not separate fields or lines. JSON
// has its own escapes.

namespace quorvel {
namespace {

constexpr std::size_t PIECE = std::size_t{1} << 18U;  // bytes

// The texts before each field of a row, and around the rows.
struct Layout {
  std::string_view begin;
  std::string_view beginOfWordList;
  std::string_view beginWithTimes;
  std::string_view firstRow;
  std::string_view nextRow;
  std::string_view file;  // only in a table of several documents
  std::string_view fileEnd;
  std::string_view word;
  std::string_view key;
  std::string_view count;
  std::string_view left;
  std::string_view match;
  std::string_view right;
  std::string_view position;
  std::string_view times;
  std::string_view rowEnd;
  std::string_view end;
};

constexpr Layout TSV_LAYOUT = {
    .begin = "word\tkey\tcount\tleft\tmatch\tright\tposition\n",
    .beginOfWordList = "word\tkey\tcount\n",
    .beginWithTimes = "word\tkey\tcount\tleft\tmatch\tright\tposition\ttimes\n",
    .firstRow = "",
    .nextRow = "",
    .file = "",
    .fileEnd = "\t",
    .word = "",
    .key = "\t",
    .count = "\t",
    .left = "\t",
    .match = "\t",
    .right = "\t",
    .position = "\t",
    .times = "\t",
    .rowEnd = "\n",
    .end = "",
};

constexpr Layout JSON_LAYOUT = {
    .begin = "[",
    .beginOfWordList = "[",
    .beginWithTimes = "[",
    .firstRow = "\n{",
    .nextRow = ",\n{",
    .file = R"("file":")",
    .fileEnd = R"(",)",
    .word = R"("word":")",
    .key = R"(","key":")",
    .count = R"(","count":)",
    .left = R"(,"left":")",
    .match = R"(","match":")",
    .right = R"(","right":")",
    .position = R"(","position":)",
    .times = R"(,"times":)",
    .rowEnd = "}",
    .end = "\n]\n",
};

const Layout& LayoutOf(RowFormat format) {
  return format == RowFormat::json ? JSON_LAYOUT : TSV_LAYOUT;
}

template <typename Char>
class RowComposer {
 public:
  RowComposer(const Listing& listing, const Quotation<Char>& quotation, const RowOptions& options,
              const PieceSink& take)
      : listing_(listing),
        quotation_(quotation),
        take_(take),
        isJson_(options.format == RowFormat::json),
        isPart_(options.file.has_value()),
        layout_(LayoutOf(options.format)),
        order_(options.order),
        source_(LinesOfListing(listing)),
        reader_(source_, quotation) {
    if (!isPart_) return;
    fileField_ = layout_.file;
    for (const char ch : VisibleName(*options.file)) {
      if (isJson_ && (ch == '"' || ch == '\\')) fileField_ += '\\';
      fileField_ += ch;
    }
    fileField_ += layout_.fileEnd;
  }

  void ComposeTable(Progress& progress) {
    if (!isPart_) bytes_ = IsWordList() ? layout_.beginOfWordList : layout_.begin;
    const bool inPlace = IsWordList() || order_.key == LineKey::place;
    if (!(inPlace ? AddWords(progress) : AddLines(progress))) return;
    if (!isPart_) bytes_ += layout_.end;
    take_(bytes_);
  }

  void ComposeGroups(std::span<const LineGroup> groups, bool withTimes, Progress& progress) {
    bytes_ = withTimes ? layout_.beginWithTimes : layout_.begin;
    for (const LineGroup& group : groups) {
      const bool wantsMore = AddRowOf(group.first, [&] {
        if (withTimes) bytes_.append(layout_.times).append(std::to_string(group.count));
      });
      if (!wantsMore) return;
      progress.Yield();
      if (progress.StopRequested()) break;
    }
    take_(bytes_ += layout_.end);
  }

 private:
  [[nodiscard]] bool IsWordList() const { return listing_.options.contextSize == 0; }

  // Adds the rows word by word, in the order of the listing. Returns false when no more are wanted.
  bool AddWords(Progress& progress) {
    ListingProgress shown(*listing_.words, progress);
    for (const ListedWord& word : WordsInOrder(*listing_.words, listing_.options.wordOrder)) {
      shown.Show(word);
      if (!AddRowsOf(*word.entry)) return false;
      if (!shown.MayGoOn()) break;
    }
    return true;
  }

  bool AddRowsOf(const WordEntry& entry) {
    TakeWord(entry);
    if (IsWordList()) return AddRow([] {});
    return reader_.EachLineOf(source_.words.table->IndexOf(entry), [this](const Line& line) {
      return AddRow([&] { AppendOccurrence(line); });
    });
  }

  // Adds the rows of all words in one order.
  bool AddLines(Progress& progress) {
    progress.BeginPhase("Ordering lines");
    std::optional<Lines> lines = LinesOf(source_, EntriesInOrder(listing_), progress);
    if (!lines || !OrderLines(*lines, source_, order_, progress)) return true;
    for (const Line& line : *lines) {
      if (!AddRowOf(line, [] {})) return false;
      progress.Yield();
      if (progress.StopRequested()) break;
    }
    return true;
  }

  template <typename AppendMore>
  bool AddRowOf(const Line& line, const AppendMore& appendMore) {
    TakeWord(source_.words.table->At(line.entry));
    return AddRow([&] {
      AppendOccurrence(line);
      appendMore();
    });
  }

  // Composes the fields that all rows of a word begin with.
  void TakeWord(const WordEntry& entry) {
    wordFields_.assign(fileField_).append(layout_.word);
    AppendField(wordFields_, std::u16string_view(entry.word));
    wordFields_ += layout_.key;
    AppendField(wordFields_, std::u16string_view(entry.sortKey));
    wordFields_.append(layout_.count).append(std::to_string(entry.Count()));
  }

  template <typename AppendRest>
  bool AddRow(AppendRest appendRest) {
    bytes_.append(isFirst_ ? layout_.firstRow : layout_.nextRow).append(wordFields_);
    isFirst_ = false;
    appendRest();
    bytes_ += layout_.rowEnd;
    if (bytes_.size() < PIECE) return true;
    const bool wantsMore = take_(bytes_);
    bytes_.clear();
    return wantsMore;
  }

  void AppendOccurrence(const Line& line) {
    const LineText<Char> text = reader_.Read(line);
    bytes_ += layout_.left;
    AppendField(bytes_, text.left);
    bytes_ += layout_.match;
    AppendField(bytes_, text.match);
    bytes_ += layout_.right;
    AppendField(bytes_, text.right);
    bytes_.append(layout_.position)
        .append(std::to_string(static_cast<std::int32_t>(PositionOf(text.place.begin))));
  }

  // Appends text in the characters of the quotation, or words in code units.
  template <typename One>
  void AppendField(std::string& to, std::basic_string_view<One> text) const {
    std::size_t length = 1;
    for (std::size_t i = 0; i < text.size(); i += length) {
      const One ch = text[i];
      length = 1;
      if (ch >= ' ' && ch < '\x7F' && ch != '"' && ch != '\\') {
        to += static_cast<char>(ch);
      } else if constexpr (std::is_same_v<One, char16_t>) {
        if (IsHighSurrogate(ch)) length = 2;
        AppendRareCharacter(to, text.substr(i, length));
      } else {
        AppendRareCharacter(to, quotation_.InCodeUnits(text.substr(i, 1)));
      }
    }
  }

  void AppendRareCharacter(std::string& to, std::u16string_view character) const {
    const char16_t ch = character.front();
    if (isJson_ && IsControl(ch)) {
      constexpr std::string_view DIGITS = "0123456789abcdef";
      to.append("\\u00").append({DIGITS[ch >> 4U], DIGITS[ch & 0xFU]});
      return;
    }
    if (isJson_ && (ch == u'"' || ch == u'\\')) to += '\\';
    AppendUtf8(to, character);
  }

  const Listing& listing_;
  Quotation<Char> quotation_;
  const PieceSink& take_;
  bool isJson_;
  bool isPart_;
  const Layout& layout_;
  LineOrder order_;
  LineSource source_;
  LineReader<Char> reader_;
  bool isFirst_ = !isPart_;
  std::string fileField_;
  std::string wordFields_;
  std::string bytes_;  // not yet passed to `take_`
};

}  // namespace

std::string TableBegin(RowFormat format, int contextSize) {
  const Layout& layout = LayoutOf(format);
  const std::string_view begin = contextSize == 0 ? layout.beginOfWordList : layout.begin;
  return std::string(format == RowFormat::tsv ? "file\t" : "").append(begin);
}

std::string_view TableEnd(RowFormat format) { return LayoutOf(format).end; }

void ComposeRows(const Listing& listing, const RowOptions& options, const PieceSink& take,
                 Progress& progress) {
  WithQuotation(listing.Source(), [&](const auto& quotation) {
    RowComposer(listing, quotation, options, take).ComposeTable(progress);
  });
}

void ComposeLines(const Listing& listing, std::span<const LineGroup> lines, bool withTimes,
                  RowFormat format, const PieceSink& take, Progress& progress) {
  WithQuotation(listing.Source(), [&](const auto& quotation) {
    RowComposer(listing, quotation, {.format = format}, take)
        .ComposeGroups(lines, withTimes, progress);
  });
}

}  // namespace quorvel
