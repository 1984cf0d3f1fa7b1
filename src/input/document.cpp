#include "input/document.h"

#include <cstdint>
#include <limits>
#include <utility>

#include "files/path_names.h"
#include "input/compact_spaces.h"
#include "input/double_hyphens.h"
#include "input/html_text.h"
#include "input/text_file.h"
#include "input/utf8_repair.h"
#include "input/zip_archive.h"
#include "util/ansi.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

// Converts an input as it was read to plain text with compacted blanks. Returns false for a web
// page without a head.
bool PrepareText(const std::string& path, const ReadingOptions& options, std::string& text,
                 Progress& progress) {
  HtmlOutcome outcome = HtmlOutcome::notAPage;
  if (PathNamesHtml(path)) {
    outcome = PrepareHtmlText(text, options.isUtf8, options.ignoreLists, progress);
  }
  if (outcome == HtmlOutcome::notAPage) {
    progress.BeginPhase("Compacting spaces");
    CompactSpaces(text);
    progress.BeginPhase("Processing file");
  }
  return outcome != HtmlOutcome::noHead;
}

}  // namespace

bool IsWordDocument(const InputBytes& input) {
  return LowerExtensionOf(input.Path()) == "docx" && BeginsLikeArchive(input);
}

Result<std::string> ReadInputFile(const InputBytes& input, bool isUtf8, Progress& progress) {
  progress.BeginPhase("Reading file");
  const bool isPage = PathNamesHtml(input.Path());
  const LineJoin join = isPage ? LineJoin::blank : LineJoin::slash;
  std::string text = ReadTextFile(input.View(), {isUtf8, join});
  if (text.size() > std::numeric_limits<std::int32_t>::max()) {
    return Fault{FaultKind::textTooLong, input.Path(), {}};
  }
  if (isUtf8 && !isPage) {
    // The text was repaired line by line and is repaired again as a whole. Compatibility: a
    // character that is alone on its line can only be completed now, and users' listings and index
    // files depend on the result.
    progress.BeginPhase("Converting UTF-8");
    RepairUtf8(text);
    PlainPunctuation(text);
  }
  progress.YieldNow();
  if (progress.StopRequested()) return Fault{FaultKind::stopped, input.Path(), {}};
  return text;
}

Result<std::shared_ptr<const Document>> MakeDocument(DocumentSource source,
                                                     const ReadingOptions& options,
                                                     std::string text, Progress& progress,
                                                     std::int64_t lostCharacters) {
  Document document;
  SetSkipSpans(LowerExtensionOf(source.path), document.skipSpans);
  if (!PrepareText(source.path, options, text, progress)) {
    return Fault{FaultKind::noHead, source.path, {}};
  }
  progress.YieldNow();
  BlankDoubleHyphens(text);
  document.documentText = DecodeAnsi(text);
  document.narrowText = std::move(text);
  progress.YieldNow();
  if (progress.StopRequested()) return Fault{FaultKind::stopped, source.path, {}};
  document.source = std::move(source);
  document.options = options;
  document.lostCharacters = lostCharacters;
  return std::make_shared<const Document>(std::move(document));
}

std::shared_ptr<const Document> MakeUnicodeDocument(DocumentSource source,
                                                    const ReadingOptions& options,
                                                    std::string_view text,
                                                    std::int64_t lostCharacters) {
  Document document;
  SetSkipSpans(LowerExtensionOf(source.path), document.skipSpans);
  document.documentText = DecodeUtf8(text);
  document.codePage = CodePage::Of(document.documentText);
  if (document.codePage) document.narrowText = document.codePage->Encode(document.documentText);
  document.lostCharacters = lostCharacters;
  document.source = std::move(source);
  document.options = options;
  return std::make_shared<const Document>(std::move(document));
}

}  // namespace quorvel
