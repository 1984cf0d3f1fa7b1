// Extracts the text of a word-processor document or a book from its unpacked parts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "unicode/packed_documents.h"
#include "unicode/prepared_text.h"
#include "unicode/text_walker.h"
#include "unicode/xml_reader.h"
#include "util/progress.h"
#include "util/progress_bar.h"

namespace quorvel {

// Paragraphs and chapters are joined by blanks. The chapters of a book are read like web pages,
// each in its own character set; everything else is read by an XML parser.
class PackedText {
 public:
  // `parts` must outlive the object.
  PackedText(const UnpackedParts& parts, const UnicodeOptions& options);

  // Reads to the end. Returns false when a stop was requested; the next call, with the same
  // `progress`, continues at the same place. For long parts a progress bar is shown.
  [[nodiscard]] bool Read(Progress& progress);

  // True when a part was not well-formed XML, or a chapter had an unsupported character set. The
  // text of that part is missing from there on.
  [[nodiscard]] bool IsDamaged() const { return isDamaged_; }

  // Returns the text read so far, prepared. May be called only once.
  [[nodiscard]] PreparedText Take();

 private:
  [[nodiscard]] std::size_t ReadXml(const std::string& part);
  void ReadChapter(const std::string& part);

  const UnpackedParts& parts_;
  bool ignoreLists_;
  TextWalker walker_;
  std::optional<XmlReader> xml_;  // parser of the current part
  GrowingText chapters_;
  std::int64_t replaced_ = 0;
  bool isDamaged_ = false;
  std::size_t part_ = 0;      // 0-based number of the current part
  std::size_t place_ = 0;     // 0-based index in the current part
  std::uint64_t passed_ = 0;  // bytes of the parts before it
  std::optional<ProgressBar> bar_;
};

// Returns the text of a whole document, unpacked in memory. Empty when the user would have to be
// asked about the document, or when it cannot be read.
[[nodiscard]] std::string TextOfIntactPacked(const InputBytes& input, PackedKind kind,
                                             const UnicodeOptions& options);

}  // namespace quorvel
