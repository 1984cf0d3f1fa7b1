#include "unicode/packed_text.h"

#include <utility>

#include "input/compact_spaces.h"
#include "input/text_file.h"
#include "unicode/chapter_text.h"
#include "unicode/declared_charset.h"
#include "unicode/decoding.h"
#include "unicode/page_entities.h"

namespace quorvel {
namespace {

// The number of bytes of XML between two checks for a stop request, and the maximum length of a
// document without a progress bar.
constexpr std::size_t LOOK_INTERVAL = 65536;
constexpr std::uint64_t LARGEST_WITHOUT_BAR = 1000000;

XmlEvents EventsFor(TextWalker& walker) {
  XmlEvents events;
  events.start = [&walker](const XmlName& name, const XmlAttributes&) { walker.Start(name); };
  events.end = [&walker](const XmlName&) { walker.End(); };
  events.text = [&walker](std::string_view text) { walker.Text(text); };
  return events;
}

// ODT writes soft and no-break hyphens as characters, DOCX as elements.
void PlainHyphens(std::string& text) {
  constexpr std::string_view SOFT = "\xC2\xAD";
  constexpr std::string_view NO_BREAK = "\xE2\x80\x91";
  std::string plain;
  for (std::size_t place = 0; place < text.size();) {
    const std::string_view rest = std::string_view(text).substr(place);
    if (rest.starts_with(SOFT)) {
      place += SOFT.size();
    } else if (rest.starts_with(NO_BREAK)) {
      plain += '-';
      place += NO_BREAK.size();
    } else {
      plain += text[place++];
    }
  }
  text = std::move(plain);
}

}  // namespace

PackedText::PackedText(const UnpackedParts& parts, const UnicodeOptions& options)
    : parts_(parts),
      ignoreLists_(options.ignoreLists),
      walker_(parts.kind == PackedKind::odt ? OpenDocumentRules() : WordTextRules(),
              options.notes) {}

bool PackedText::Read(Progress& progress) {
  if (parts_.length > LARGEST_WITHOUT_BAR && !bar_) bar_.emplace(progress);
  while (part_ < parts_.parts.size()) {
    const std::string& part = parts_.parts[part_];
    if (parts_.kind == PackedKind::epub) {
      ReadChapter(part);
      place_ = part.size();
    } else {
      place_ = ReadXml(part);
    }
    const std::uint64_t read = passed_ + place_;
    if (place_ >= part.size()) {
      passed_ += part.size();
      place_ = 0;
      ++part_;
    }
    if (bar_) {
      bar_->Update(static_cast<std::int64_t>(read), static_cast<std::int64_t>(parts_.length), 0);
    }
    progress.YieldNow();
    if (progress.StopRequested()) return false;
  }
  bar_.reset();
  return true;
}

// Reads a piece of a part. Returns the index of the next piece.
std::size_t PackedText::ReadXml(const std::string& part) {
  if (!xml_) {
    walker_.BeginPart();
    xml_.emplace(EventsFor(walker_));
  }
  const std::string_view piece = std::string_view(part).substr(place_, LOOK_INTERVAL);
  const std::size_t next = place_ + piece.size();
  if (!xml_->Read(piece, next == part.size())) {
    isDamaged_ = true;
    xml_.reset();
    return part.size();
  }
  if (next == part.size()) xml_.reset();
  return next;
}

void PackedText::ReadChapter(const std::string& part) {
  const DecodedMarkup markup = DecodeMarkup(part);
  if (!markup.unknownCharset.empty()) {
    isDamaged_ = true;
    return;
  }
  replaced_ += markup.decoded.replaced;
  const std::string lines =
      ReadTextFile(markup.decoded.text, {.join = LineJoin::blank, .lineFeedEnds = true});
  chapters_.wantsBlank = true;
  chapters_.Append(DecodeReferences(ChapterText(lines, ignoreLists_)));
}

PreparedText PackedText::Take() {
  if (parts_.kind == PackedKind::epub) {
    return {FinishedText(std::move(chapters_.text)), replaced_};
  }
  // The text is validated again, so that it does not depend on the parser.
  std::string text = Decode(walker_.Taken(), Charset::utf8).text;
  if (parts_.kind == PackedKind::odt) PlainHyphens(text);
  CompactSpaces(text);
  return {FinishedText(std::move(text)), replaced_};
}

std::string TextOfIntactPacked(const InputBytes& input, PackedKind kind,
                               const UnicodeOptions& options) {
  SilentProgress nobody;
  const Result<UnpackedParts> parts = UnpackTextParts(input, kind, options, BodyLimits(), nobody);
  if (!parts || parts->isDamaged) return {};
  PackedText text(*parts, options);
  // SilentProgress is never stopped.
  return text.Read(nobody) && !text.IsDamaged() ? text.Take().text : std::string();
}

}  // namespace quorvel
