// Converts a word-processor document to text as bytes.
//
// The document is a zip archive, and one of its entries is the body, an XML file. The body is
// unpacked into a temporary folder, its text runs are read, and the folder is removed. There is no
// XML parser: only run starts, run ends, line breaks and ends of paragraphs are searched for.
// Headers, footnotes and all other entries are left out. Before reading a damaged or a large body,
// the caller asks the user between the steps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "files/read_file.h"
#include "files/temporary_folder.h"
#include "input/docx_tags.h"
#include "input/zip_archive.h"
#include "util/fault.h"
#include "util/progress.h"
#include "util/progress_bar.h"

namespace quorvel {

// The size limits of an unpacked body, in bytes.
struct BodyLimits {
  std::uint64_t hard = 20971520;
  std::uint64_t warning = 10485760;  // the user is asked about larger bodies
};

// The entry with the body of a document. It is also the path of the body in the temporary folder.
inline constexpr const char* BODY_ENTRY = "word/document.xml";

// Unpacks the body of a document into a temporary file that was created for BODY_ENTRY. Faults:
// `noTemporaryFolder`, `temporaryFolderFull`, `bodyTooLarge`.
[[nodiscard]] Result<UnpackedEntry> UnpackDocumentBody(const InputBytes& document,
                                                       const TemporaryFile& file,
                                                       const BodyLimits& limits);

// Reads the text of the runs in the XML of a body; each byte is one Windows-1252 character. The
// runs of a paragraph are joined without a separator, because a word may be split into several
// runs. A line break or an end of paragraph becomes a blank.
class DocumentRuns {
 public:
  // `xml` must outlive the object.
  explicit DocumentRuns(std::string_view xml);

  // Reads to the end. Returns false when a stop was requested; the next call, with the same
  // `progress`, continues at the same place. For a long body a progress bar is shown.
  [[nodiscard]] bool Read(Progress& progress);

  // The text read so far.
  [[nodiscard]] std::string& Text() { return text_; }

  // The number of characters of the runs that are missing from the text.
  [[nodiscard]] std::int64_t LostCharacters() const { return lostCharacters_; }

 private:
  void ReadFromStart();
  void AppendRun(std::string_view xml, bool afterBreak);

  [[nodiscard]] bool HoldsBreak(std::string_view xml) const;

  std::string_view xml_;
  std::string prefix_;  // of the tags
  Tag runStart_;
  Tag runEnd_;
  Tag lineBreak_;
  Tag paragraphEnd_;
  std::string text_;
  std::int64_t lostCharacters_ = 0;
  std::string run_;           // buffer for one run, kept to avoid allocations
  std::size_t start_ = 0;     // 0-based index of the possible start of the next run
  std::size_t end_ = 0;       // of the end of that run
  std::size_t nextLook_ = 0;  // index of the next check for a stop request
  std::optional<std::size_t> previousEnd_;
  std::optional<ProgressBar> bar_;
};

// Returns the text of a document's body, unpacked in memory. Empty when the user would have to be
// asked about the body, or when it cannot be read.
[[nodiscard]] std::string TextOfIntactDocument(const InputBytes& document);

}  // namespace quorvel
