// From a word-processor document to its text, as bytes.
//
// Such a document is a zip archive, one entry of which is the body, an XML file.
// The body is unpacked into a temporary folder, its text runs are read, and the
// folder is removed again. No XML reader: only run starts and ends, line breaks
// and ends of paragraphs are looked for, so headers, footnotes and whatever else
// stands in other entries is left out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "util/user_interface.h"

namespace quorvel {

enum class ExtractionCode {
  success = 0,
  noTemporaryFolder = -1,
  damageDeclined = -2,  // damaged, and the user chose not to scan it
  damaged = -3,         // damaged, and asking was not allowed
  tooLarge = -4,        // the body is above the hard limit
  sizeDeclined = -5,    // the body is above the warning threshold and the user declined
  noBody = -6,          // nothing of the body could be unpacked
  unwritable = -7,      // the temporary folder cannot take the body
  stopped = -8,         // by the user, while the text was read
  unreadable = -9,      // the system did not give the bytes of the document or of its body
};

// The size limits of an unpacked body, in bytes.
struct BodyLimits {
  std::uint64_t hard = 20971520;
  std::uint64_t warning = 10485760;
};

struct ExtractOptions {
  bool askOnBadChecksum = true;  // else a damaged archive is refused
  bool askOnBigFile = true;      // else only the hard limit counts
  BodyLimits limits;
};

struct ExtractedText {
  ExtractionCode code = ExtractionCode::success;
  std::string text;  // empty unless the code is success
};

// The text of a document, each byte one Windows-1252 character. `folderTag` is how
// the name of the temporary folder begins. The user is asked about a damaged
// archive and a big body and told when they declined the latter; the other
// failures are for the caller to report. After `stopped` the stop request stands.
[[nodiscard]] ExtractedText ExtractDocumentText(const std::string& path, std::string_view folderTag,
                                                const ExtractOptions& options, UserInterface& ui);

struct DocumentRuns {
  std::string text;      // of all runs, one after the other
  bool stopped = false;  // by the user: then `text` ends where the walk did
};

// The text of the runs in the XML of a body. Runs of one paragraph are joined with
// nothing between them, so that a word in several runs stays one; a line break or
// an end of paragraph becomes a blank. The user may stop the walk; in a long body
// a progress bar shows how far it has come.
[[nodiscard]] DocumentRuns ReadDocumentRuns(std::string_view xml, UserInterface& ui);

}  // namespace quorvel
