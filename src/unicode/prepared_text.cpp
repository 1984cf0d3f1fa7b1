#include "unicode/prepared_text.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "files/path_names.h"
#include "input/compact_spaces.h"
#include "input/double_hyphens.h"
#include "input/html_text.h"
#include "input/text_file.h"
#include "unicode/declared_charset.h"
#include "unicode/decoding.h"
#include "unicode/page_entities.h"
#include "util/normalization.h"

namespace quorvel {
namespace {

bool IsTooLong(const std::string& text) {
  return text.size() > std::numeric_limits<std::int32_t>::max();
}

// In plain text only a byte-order mark of UTF-32 must be reported; nothing else is declared there.
DecodedMarkup DecodeInput(const InputBytes& input) {
  const std::string_view bytes = input.View();
  const std::optional<CharsetMark> mark = CharsetMarkOf(bytes);
  const bool isMarkup = PathNamesHtml(input.Path()) || LowerExtensionOf(input.Path()) == "xml";
  if (isMarkup || (mark && mark->charset == Charset::utf32)) return DecodeMarkup(bytes);
  return {TextOfBytes(bytes), {}};
}

// Returns the joined lines of an input. Faults: `unknownCharset`, `textTooLong`, `stopped`.
Result<PreparedText> ReadLines(const InputBytes& input, Progress& progress) {
  progress.BeginPhase("Reading file");
  const DecodedMarkup markup = DecodeInput(input);
  if (!markup.unknownCharset.empty()) {
    return Fault{FaultKind::unknownCharset, input.Path(), markup.unknownCharset};
  }
  const LineJoin join = PathNamesHtml(input.Path()) ? LineJoin::blank : LineJoin::slash;
  const TextFileOptions options = {.join = join, .lineFeedEnds = true};
  PreparedText lines{ReadTextFile(markup.decoded.text, options), markup.decoded.replaced};
  if (IsTooLong(lines.text)) return Fault{FaultKind::textTooLong, input.Path(), {}};
  progress.YieldNow();
  if (progress.StopRequested()) return Fault{FaultKind::stopped, input.Path(), {}};
  return lines;
}

// The index of the third character in bytes, or the length of a shorter text; at least 2.
std::size_t ThirdCharacter(std::string_view text) {
  std::size_t place = 0;
  for (int characters = 0; place < text.size(); ++place) {
    const bool begins = (static_cast<std::uint8_t>(text[place]) & 0xC0U) != 0x80;
    if (begins && ++characters == 3) break;
  }
  return std::max<std::size_t>(place, 2);
}

}  // namespace

std::string FinishedText(std::string text) {
  text = Normalized(std::move(text));
  BlankDoubleHyphens(text, ThirdCharacter(text));
  return text;
}

Result<PreparedText> PrepareUnicodeText(const InputBytes& input, const UnicodeOptions& options,
                                        Progress& progress) {
  Result<PreparedText> prepared = ReadLines(input, progress);
  if (!prepared) return prepared;
  std::string& text = prepared->text;
  HtmlOutcome outcome = HtmlOutcome::notAPage;
  if (PathNamesHtml(input.Path())) {
    outcome = StripPage(text, true, options.ignoreLists, progress);
  }
  if (outcome == HtmlOutcome::noHead) return Fault{FaultKind::noHead, input.Path(), {}};
  if (outcome == HtmlOutcome::prepared) {
    text = DecodeReferences(text);
  } else {
    progress.BeginPhase("Compacting spaces");
    CompactSpaces(text);
  }
  progress.BeginPhase("Processing file");
  progress.YieldNow();
  text = FinishedText(std::move(text));
  if (IsTooLong(text)) return Fault{FaultKind::textTooLong, input.Path(), {}};
  progress.YieldNow();
  if (progress.StopRequested()) return Fault{FaultKind::stopped, input.Path(), {}};
  return prepared;
}

}  // namespace quorvel
