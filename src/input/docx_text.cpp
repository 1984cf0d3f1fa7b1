#include "input/docx_text.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "files/file_system.h"
#include "files/path_names.h"
#include "files/temporary_folder.h"
#include "input/utf8_repair.h"
#include "input/zip_archive.h"
#include "util/ansi.h"
#include "util/progress_bar.h"

// The walk over the XML knows four strings and no structure. What follows from
// that is kept, since it decides which words a concordance holds: a run start is
// told by the character behind it, so an empty run that has attributes
// ("<w:t x=""/>") takes all up to the next run end for its text; a line break is
// one in its shortest spelling only, and a tab is nothing; of the entities only
// the five that XML itself names are decoded.

namespace quorvel {
namespace {

constexpr std::string_view RUN_START = "<w:t";
constexpr std::string_view RUN_END = "</w:t>";
constexpr std::string_view LINE_BREAK = "<w:br/>";
constexpr std::string_view PARAGRAPH_END = "</w:p>";

// Characters of a body between two looks at the stop request, and up to which no
// progress bar is drawn.
constexpr std::size_t LOOK_INTERVAL = 65536;
constexpr std::size_t LARGEST_WITHOUT_BAR = 1000000;

// A run grows by a third at most when its punctuation is made plain, so a text
// never has more characters than a 32-bit position can tell.
static_assert(BodyLimits().hard < std::numeric_limits<std::int32_t>::max() / 2);

Message Question(std::string text, std::string title, Icon icon, Answer preset) {
  return {std::move(text), std::move(title), icon, Buttons::yesNo, preset};
}

std::string BodyEntryOf(const std::string& path) {
  return LowerExtensionOf(path) == "odt" ? "content.xml" : "word/document.xml";
}

bool WishesToScanAnyway(const std::string& path, UserInterface& ui) {
  return ui.Ask(Question("Invalid checksum found when processing\r\n" + path +
                             "\r\nDo you wish to scan this file anyway?",
                         "Error", Icon::exclamation, Answer::yes)) == Answer::yes;
}

bool WishesToScanBigFile(const std::string& path, UserInterface& ui) {
  const char* const title = "Big file";
  const std::string text = path +
                           "\r\nis rather large.  It may take awhile to scan.\r\n"
                           "Do you wish to continue?";
  if (ui.Ask(Question(text, title, Icon::none, Answer::no)) == Answer::yes) return true;
  ui.Tell("You could try saving it as a text file\r\nand applying this program to that file.",
          title, Icon::information);
  return false;
}

// Unpacks the body below `folder` and has its size accepted.
ExtractionCode UnpackDocumentBody(const std::string& path, const std::string& folder,
                                  const ExtractOptions& options, UserInterface& ui) {
  const std::string entry = BodyEntryOf(path);
  const UnpackOutcome outcome = UnpackEntry(path, entry, folder, options.limits.hard);
  switch (outcome) {
    case UnpackOutcome::done:
      break;
    case UnpackOutcome::failed:
      if (!options.askOnBadChecksum) return ExtractionCode::damaged;
      if (!WishesToScanAnyway(path, ui)) return ExtractionCode::damageDeclined;
      break;
    case UnpackOutcome::tooLarge:
      return ExtractionCode::tooLarge;
    case UnpackOutcome::unreadable:
      return ExtractionCode::unreadable;
    case UnpackOutcome::unwritable:
      return ExtractionCode::unwritable;
  }
  const std::int64_t length = FileLength(JoinPath(folder, entry)).value_or(0);
  if (length == 0 && outcome == UnpackOutcome::failed) return ExtractionCode::noBody;
  const bool isBig = static_cast<std::uint64_t>(length) > options.limits.warning;
  if (isBig && options.askOnBigFile && !WishesToScanBigFile(path, ui)) {
    return ExtractionCode::sizeDeclined;
  }
  return ExtractionCode::success;
}

// Lets pending events run. True when the user has asked for a stop and stands by
// it; otherwise the request is withdrawn.
bool IsStopped(UserInterface& ui) {
  ui.YieldNow();
  if (!ui.StopRequested()) return false;
  if (ui.Ask(Question("Many different words have been found.\r\nDo you really wish to stop?",
                      "Stop", Icon::none, Answer::yes)) == Answer::yes) {
    return true;
  }
  ui.ClearStop();
  return false;
}

// "<w:tab/>" and the elements of tables begin like a run.
bool IsRunStart(std::string_view xml, std::size_t place) {
  const char next = xml[place + RUN_START.size()];
  return next == ' ' || next == '>';
}

bool HoldsBreak(std::string_view xml) {
  return xml.find(LINE_BREAK) != std::string_view::npos ||
         xml.find(PARAGRAPH_END) != std::string_view::npos;
}

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

// Appends one run; `run` is room for it that is used again and again.
void AppendRun(std::string& text, std::string_view xml, bool afterBreak, std::string& run) {
  run.assign(afterBreak ? 1 : 0, ' ').append(xml);
  if (TrimBlanks(run).empty()) {
    text += ' ';
    return;
  }
  if (run.find('&') != std::string::npos) {
    // In this order, so that an escaped "&lt;" ends as "<" too: so meant.
    DecodeEntity(run, "&amp;", '&');
    DecodeEntity(run, "&lt;", '<');
    DecodeEntity(run, "&gt;", '>');
    DecodeEntity(run, "&quot;", '"');
    DecodeEntity(run, "&apos;", '\'');
  }
  if (NeedsRepair(run)) {
    RepairUtf8(run);
    PlainPunctuation(run);
  }
  text += run;
}

}  // namespace

DocumentRuns ReadDocumentRuns(std::string_view xml, UserInterface& ui) {
  DocumentRuns runs;
  std::optional<ProgressBar> bar;
  if (xml.size() > LARGEST_WITHOUT_BAR) bar.emplace(ui);
  std::string run;
  std::size_t nextLook = 0;
  std::optional<std::size_t> previousEnd;
  std::size_t end = xml.find(RUN_END);
  std::size_t start = xml.find(RUN_START);
  while (end != std::string_view::npos && start < end) {
    if (start >= nextLook) {
      if (bar) bar->Update(static_cast<std::int64_t>(start), std::ssize(xml), 0);
      runs.stopped = IsStopped(ui);
      if (runs.stopped) break;
      nextLook = start + LOOK_INTERVAL;
    }
    std::size_t place = start + RUN_START.size();
    if (IsRunStart(xml, start)) {
      // The first ">" may be that of the run end, where the start has none.
      const std::size_t textStart = std::min(xml.find('>', place) + 1, end);
      const bool afterBreak =
          previousEnd && HoldsBreak(xml.substr(*previousEnd, start - *previousEnd));
      AppendRun(runs.text, xml.substr(textStart, end - textStart), afterBreak, run);
      previousEnd = end;
      place = end + RUN_END.size();
      end = xml.find(RUN_END, place);
    }
    start = xml.find(RUN_START, place);
  }
  return runs;
}

ExtractedText ExtractDocumentText(const std::string& path, std::string_view folderTag,
                                  const ExtractOptions& options, UserInterface& ui) {
  const TemporaryFolder folder(folderTag, BodyEntryOf(path), ui);
  if (folder.Path().empty()) return {ExtractionCode::noTemporaryFolder, {}};
  const ExtractionCode code = UnpackDocumentBody(path, folder.Path(), options, ui);
  if (code != ExtractionCode::success) return {code, {}};
  const FileRead body = ReadFileBytes(JoinPath(folder.Path(), BodyEntryOf(path)));
  if (!body.error.empty()) return {ExtractionCode::unreadable, {}};
  DocumentRuns runs = ReadDocumentRuns(body.bytes, ui);
  if (runs.stopped) return {ExtractionCode::stopped, {}};
  return {ExtractionCode::success, std::move(runs.text)};
}

}  // namespace quorvel
