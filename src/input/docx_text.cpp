#include "input/docx_text.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "input/lost_characters.h"
#include "input/utf8_repair.h"
#include "input/zip_archive.h"
#include "util/ansi.h"
#include "util/large_pages.h"

// The walk over the XML knows four strings, of tags with the document's prefix, and no structure.
// What follows from that is kept, since it decides which words a concordance holds: a run start is
// told by the character behind it, so an empty run that has attributes
// ("<w:t x=""/>") takes all up to the next run end for its text; a line break is
// one in its shortest spelling only, and a tab is nothing; of the entities only
// the five that XML itself names are decoded.

namespace quorvel {
namespace {

// Characters of a body between two looks at the stop request, and up to which no
// progress bar is drawn.
constexpr std::size_t LOOK_INTERVAL = 65536;
constexpr std::size_t LARGEST_WITHOUT_BAR = 1000000;

// A run grows by a third at most when its punctuation is made plain, so a text
// never has more characters than a 32-bit position can tell.
static_assert(BodyLimits().hard < std::numeric_limits<std::int32_t>::max() / 2);

void DecodeEntity(std::string& text, std::string_view entity, char character) {
  std::size_t out = 0;
  for (std::size_t in = 0; in < text.size(); ++out) {
    if (text[in] == entity[0] && text.compare(in, entity.size(), entity) == 0) {
      text[out] = character;
      in += entity.size();
    } else {
      text[out] = text[in++];
    }
  }
  text.resize(out);
}

// Whether the repairs could find anything: every sequence they know begins with a
// byte from C2 to E2 hex.
bool NeedsRepair(std::string_view run) {
  constexpr std::uint8_t LOWEST_LEAD = 0xC2;
  return std::any_of(run.begin(), run.end(),
                     [](char byte) { return static_cast<std::uint8_t>(byte) >= LOWEST_LEAD; });
}

}  // namespace

Result<UnpackedBody> UnpackDocumentBody(const InputBytes& document, const TemporaryFile& file,
                                        const BodyLimits& limits) {
  if (!file.HasFolder()) return Fault{FaultKind::noTemporaryFolder, document.Path(), {}};
  const auto write = [&file](std::string_view block) { return file.Write(block); };
  const Result<UnpackedEntry> entry = UnpackEntry(document, BODY_ENTRY, limits.hard, write);
  if (!entry) return entry.Why();
  return UnpackedBody{entry->length, entry->isDamaged};
}

// Hardly more than half of a body is text, the rest mark-up: with this room the text of a long one
// is seldom moved as it grows.
DocumentRuns::DocumentRuns(std::string_view xml)
    : xml_(xml),
      prefix_(WordPrefixOf(xml)),
      runStart_("<" + prefix_ + "t"),
      runEnd_("</" + prefix_ + "t>"),
      lineBreak_("<" + prefix_ + "br/>"),
      paragraphEnd_("</" + prefix_ + "p>"),
      start_(runStart_.FindIn(xml, 0)),
      end_(runEnd_.FindIn(xml, 0)) {
  ReserveLarge(text_, xml.size() / 2);
}

bool DocumentRuns::Read(Progress& progress) {
  if (xml_.size() > LARGEST_WITHOUT_BAR && !bar_) bar_.emplace(progress);
  while (end_ != std::string_view::npos && start_ < end_) {
    if (start_ >= nextLook_) {
      nextLook_ = start_ + LOOK_INTERVAL;
      if (bar_) bar_->Update(static_cast<std::int64_t>(start_), std::ssize(xml_), 0);
      progress.YieldNow();
      if (progress.StopRequested()) return false;
    }
    ReadFromStart();
  }
  bar_.reset();
  return true;
}

// Passes what begins at `start_`: a run, or another element whose name begins so.
void DocumentRuns::ReadFromStart() {
  std::size_t place = start_ + runStart_.Length();
  if (IsRunStart(start_)) {
    // The first ">" may be that of the run end, where the start has none.
    const std::size_t textStart = std::min(xml_.find('>', place) + 1, end_);
    const bool afterBreak =
        previousEnd_ && HoldsBreak(xml_.substr(*previousEnd_, start_ - *previousEnd_));
    AppendRun(xml_.substr(textStart, end_ - textStart), afterBreak);
    previousEnd_ = end_;
    place = end_ + runEnd_.Length();
    end_ = runEnd_.FindIn(xml_, place);
  }
  start_ = runStart_.FindIn(xml_, place);
}

// "<w:tab/>" and the elements of tables begin like a run.
bool DocumentRuns::IsRunStart(std::size_t place) const {
  const char next = xml_[place + runStart_.Length()];
  return next == ' ' || next == '>';
}

bool DocumentRuns::HoldsBreak(std::string_view xml) const {
  return lineBreak_.FindIn(xml, 0) != std::string_view::npos ||
         paragraphEnd_.FindIn(xml, 0) != std::string_view::npos;
}

void DocumentRuns::AppendRun(std::string_view xml, bool afterBreak) {
  run_.assign(afterBreak ? 1 : 0, ' ').append(xml);
  if (TrimBlanks(run_).empty()) {
    text_ += ' ';
    return;
  }
  if (run_.find('&') != std::string::npos) {
    // In this order, so that an escaped "&lt;" ends as "<" too: so meant.
    DecodeEntity(run_, "&amp;", '&');
    DecodeEntity(run_, "&lt;", '<');
    DecodeEntity(run_, "&gt;", '>');
    DecodeEntity(run_, "&quot;", '"');
    DecodeEntity(run_, "&apos;", '\'');
  }
  if (NeedsRepair(run_)) {
    lostCharacters_ += CharactersNotRepaired(run_);
    RepairUtf8(run_);
    PlainPunctuation(run_);
  }
  text_ += run_;
}

std::string TextOfIntactDocument(const InputBytes& document) {
  std::string xml;
  const auto write = [&xml](std::string_view block) {
    xml += block;
    return true;
  };
  const Result<UnpackedEntry> body = UnpackEntry(document, BODY_ENTRY, BodyLimits().hard, write);
  if (!body || body->isDamaged) return {};
  SilentProgress nobody;
  DocumentRuns runs(xml);
  // Nobody can stop it.
  return runs.Read(nobody) ? std::move(runs.Text()) : std::string();
}

}  // namespace quorvel
