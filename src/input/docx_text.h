// From a word-processor document to its text, as bytes.
//
// Such a document is a zip archive, one entry of which is the body, an XML file.
// The body is unpacked into a temporary folder, its text runs are read, and the
// folder is removed again. No XML reader: only run starts and ends, line breaks
// and ends of paragraphs are looked for, so headers, footnotes and whatever else
// stands in other entries is left out. Whether a damaged or a large body is to be read is for the
// caller to ask, between the steps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "files/read_file.h"
#include "files/temporary_folder.h"
#include "input/docx_tags.h"
#include "util/fault.h"
#include "util/progress.h"
#include "util/progress_bar.h"

namespace quorvel {

// The size limits of an unpacked body, in bytes.
struct BodyLimits {
  std::uint64_t hard = 20971520;
  std::uint64_t warning = 10485760;  // above it the user is asked
};

// The entry of a document that holds its body, and so the place of that in a temporary folder.
inline constexpr const char* BODY_ENTRY = "word/document.xml";

struct UnpackedBody {
  std::uint64_t length = 0;  // in bytes
  bool isDamaged = false;    // of another checksum, or only a part of it
};

// Unpacks the body of a document into a temporary file that was made for BODY_ENTRY.
// `noTemporaryFolder`, `temporaryFolderFull`, `bodyTooLarge` (then nothing of it is kept),
// `notRead`.
[[nodiscard]] Result<UnpackedBody> UnpackDocumentBody(const InputBytes& document,
                                                      const TemporaryFile& file,
                                                      const BodyLimits& limits);

// The text of the runs in the XML of a body, each byte one Windows-1252 character. Runs of one
// paragraph are joined with nothing between them, so that a word in several runs stays one; a line
// break or an end of paragraph becomes a blank.
class DocumentRuns {
 public:
  // The XML must outlive it.
  explicit DocumentRuns(std::string_view xml);

  // Reads on. False when a stop was requested: whoever calls again, with the same `progress`, goes
  // on where it was. In a long body a progress bar shows how far it has come, until the end.
  [[nodiscard]] bool Read(Progress& progress);

  // What has been read so far.
  [[nodiscard]] std::string& Text() { return text_; }

  // How many characters of the runs are not in it.
  [[nodiscard]] std::int64_t LostCharacters() const { return lostCharacters_; }

 private:
  void ReadFromStart();
  void AppendRun(std::string_view xml, bool afterBreak);

  [[nodiscard]] bool IsRunStart(std::size_t place) const;
  [[nodiscard]] bool HoldsBreak(std::string_view xml) const;

  std::string_view xml_;
  std::string prefix_;  // of the tags
  Tag runStart_;
  Tag runEnd_;
  Tag lineBreak_;
  Tag paragraphEnd_;
  std::string text_;
  std::int64_t lostCharacters_ = 0;
  std::string run_;           // room for one run, used again and again
  std::size_t start_ = 0;     // 0-based place of what may be the start of the next run
  std::size_t end_ = 0;       // of the end of that run
  std::size_t nextLook_ = 0;  // from where on the stop request is looked at again
  std::optional<std::size_t> previousEnd_;
  std::optional<ProgressBar> bar_;
};

// The text of a document's body, unpacked in memory and read in silence: empty where that cannot be
// done without a question.
[[nodiscard]] std::string TextOfIntactDocument(const InputBytes& document);

}  // namespace quorvel
