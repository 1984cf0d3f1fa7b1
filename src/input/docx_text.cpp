#include "input/docx_text.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "input/lost_characters.h"
#include "input/utf8_repair.h"
#include "util/ascii.h"
#include "util/large_pages.h"

// The XML is searched for four strings, the tags with the document's prefix, without parsing its
// structure. Compatibility: the consequences decide which words a listing has, so they must stay. A
// run start is recognized by the character after it. So an empty run with attributes, such as
// "<w:t x='y'/>", takes everything up to the next run end as its text. A line break is recognized
// only in its shortest spelling, and a tab is ignored. Only the five entities that XML defines are
// decoded.

namespace quorvel {
namespace {

// The number of characters between two checks for a stop request, and the maximum length of a body
// without a progress bar.
constexpr std::size_t LOOK_INTERVAL = 65536;
constexpr std::size_t LARGEST_WITHOUT_BAR = 1000000;

// Plain punctuation makes a run longer by at most a third, so every text has fewer characters than
// a 32-bit position can hold.
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

// True when a repair could change the run. All sequences that are repaired begin with a byte from
// C2 to E2 hex.
bool NeedsRepair(std::string_view run) {
  constexpr std::uint8_t LOWEST_LEAD = 0xC2;
  return std::any_of(run.begin(), run.end(),
                     [](char byte) { return static_cast<std::uint8_t>(byte) >= LOWEST_LEAD; });
}

}  // namespace

Result<UnpackedEntry> UnpackDocumentBody(const InputBytes& document, const TemporaryFile& file,
                                         const BodyLimits& limits) {
  if (!file.HasFolder()) return Fault{FaultKind::noTemporaryFolder, document.Path(), {}};
  const auto write = [&file](std::string_view block) { return file.Write(block); };
  return UnpackEntry(document, BODY_ENTRY, limits.hard, write);
}

// Rarely more than half of a body is text; the rest is mark-up. With this reservation a long text
// is seldom moved when it grows.
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

// Processes the element at `start_`: a run, or another element whose name begins in the same way.
void DocumentRuns::ReadFromStart() {
  std::size_t place = start_ + runStart_.Length();
  // "<w:tab/>" and the elements of tables begin like a run.
  if (xml_[place] == ' ' || xml_[place] == '>') {
    // When the start tag has no ">", the first one found may be that of the run end.
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
    // Compatibility: in this order, an escaped "&amp;lt;" becomes "<" too, and users' listings
    // depend on it.
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
  // SilentProgress is never stopped.
  return runs.Read(nobody) ? std::move(runs.Text()) : std::string();
}

}  // namespace quorvel
