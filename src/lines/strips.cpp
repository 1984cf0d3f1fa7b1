#include "lines/strips.h"

#include <algorithm>
#include <initializer_list>
#include <string>

#include "util/time_text.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

// The sizes in a picture, in pixels. A row is as high as a line of text.
constexpr int WORD_WIDTH = 230;
constexpr int COUNT_WIDTH = 70;
constexpr int STRIP_WIDTH = 880;
constexpr int MARGIN = 10;
constexpr int STRIP_LEFT = MARGIN + WORD_WIDTH + COUNT_WIDTH + MARGIN;
constexpr int WIDTH = STRIP_LEFT + STRIP_WIDTH + MARGIN;
constexpr int TITLE_HEIGHT = 32;
constexpr int ROW_HEIGHT = 18;
constexpr int BASE_LINE = 13;  // from the top of a row
constexpr int MARK_TOP = 3;
constexpr int MARK_HEIGHT = 12;

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char ch : text) {
    if (ch == '&') {
      escaped += "&amp;";
    } else if (ch == '<') {
      escaped += "&lt;";
    } else {
      escaped += ch;
    }
  }
  return escaped;
}

std::string Number(int number) { return std::to_string(number); }

// Replaces each "@" of a text by the next value.
std::string Filled(std::string_view form, std::initializer_list<std::string> values) {
  std::string filled;
  const auto* value = values.begin();
  for (const char ch : form) {
    if (ch == '@') {
      filled += *value++;
    } else {
      filled += ch;
    }
  }
  return filled;
}

// The part before the rows. Its colours follow the light or dark theme of the viewer.
constexpr std::string_view PICTURE_BEGIN =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="@" height="@" viewBox="0 0 @ @">
<title>@</title>
<style>
svg { background: #fff; color: #222 }
text { font: 12px sans-serif; fill: currentColor; white-space: pre }
.t { font-weight: bold }
.n { text-anchor: end }
.s { fill: #e8eaed }
.m { stroke: #1a56b0 }
@ (prefers-color-scheme: dark) {
svg { background: #1e1e1e; color: #ddd }
.s { fill: #333 }
.m { stroke: #8ab4f8 }
}
</style>
<text x="@" y="20" class="t">@</text>
)";

// A row: the word, its number of lines, the strip and the marks.
constexpr std::string_view PICTURE_ROW =
    R"(<text x="@" y="@">@</text><text class="n" x="@" y="@">@</text>)"
    R"(<path class="s" d="M@ @h@v@h-@z"/><path class="m" d="@"/>)"
    "\n";

std::string PictureBegin(std::string_view title, std::size_t rows) {
  const std::string width = Number(WIDTH);
  const std::string height =
      std::to_string(TITLE_HEIGHT + static_cast<std::int64_t>(rows) * ROW_HEIGHT + MARGIN);
  const std::string name = Escaped(title);
  return Filled(PICTURE_BEGIN,
                {width, height, width, height, name, "@media", Number(MARGIN), name});
}

// One vertical stroke for each column with an occurrence.
std::string Marks(const std::vector<std::int32_t>& strip, int top) {
  std::string marks;
  for (std::size_t i = 0; i < strip.size(); ++i) {
    if (strip[i] == 0) continue;
    marks += "M" + Number(STRIP_LEFT + static_cast<int>(i)) + ".5 " + Number(top + MARK_TOP) + "v" +
             Number(MARK_HEIGHT);
  }
  return marks;
}

}  // namespace

int ColumnOf(Position position, std::size_t length, int columns) {
  const auto place = static_cast<std::int64_t>(IndexOf(position));
  const auto all = std::max(static_cast<std::int64_t>(length), std::int64_t{1});
  return static_cast<int>(
      std::clamp(place * columns / all, std::int64_t{0}, static_cast<std::int64_t>(columns) - 1));
}

std::vector<std::int32_t> StripOf(std::span<const Position> positions, std::size_t length,
                                  int columns) {
  std::vector<std::int32_t> strip(static_cast<std::size_t>(columns));
  for (const Position position : positions) {
    ++strip[static_cast<std::size_t>(ColumnOf(position, length, columns))];
  }
  return strip;
}

void DrawStrips(std::string_view title, const LineSource& source,
                std::span<const EntryIndex> entries, const PieceSink& take, Progress& progress) {
  const Document& document = *source.words.document;
  if (!take(PictureBegin(title, entries.size()))) return;
  WithQuotation(document, [&](const auto& quotation) {
    LineReader reader(source, quotation);
    int top = TITLE_HEIGHT;
    std::vector<Position> positions;
    for (const EntryIndex entry : entries) {
      positions.clear();
      (void)reader.EachLineOf(entry, [&](const Line& line) {
        positions.push_back(line.position);
        return true;
      });
      const WordEntry& word = source.words.table->At(entry);
      const std::string y = Number(top + BASE_LINE);
      const std::string row = Filled(
          PICTURE_ROW,
          {Number(MARGIN), y, EncodeUtf8(word.word), Number(STRIP_LEFT - MARGIN), y,
           GroupedNumber(static_cast<std::int64_t>(positions.size())), Number(STRIP_LEFT),
           Number(top + MARK_TOP), Number(STRIP_WIDTH), Number(MARK_HEIGHT), Number(STRIP_WIDTH),
           Marks(StripOf(positions, document.documentText.size(), STRIP_WIDTH), top)});
      top += ROW_HEIGHT;
      progress.YieldNow();
      if (!take(row) || progress.StopRequested()) break;
    }
  });
  take("</svg>\n");
}

}  // namespace quorvel
