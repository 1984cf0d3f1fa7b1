// The text of a word-processor document or a book, of its unpacked parts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "unicode/packed_documents.h"
#include "unicode/prepared_text.h"
#include "unicode/text_walker.h"
#include "unicode/xml_reader.h"
#include "util/progress.h"
#include "util/progress_bar.h"

namespace quorvel {

// Paragraphs and chapters are joined by a blank. Chapters of a book are read as web pages are, each
// by its own character set; all else by an XML parser.
class PackedText {
 public:
  // The parts must outlive it.
  PackedText(const UnpackedParts& parts, const UnicodeOptions& options);

  // Reads on. False when a stop was requested: whoever calls again, with the same `progress`, goes
  // on where it was. In long parts a progress bar shows how far it has come, until the end.
  [[nodiscard]] bool Read(Progress& progress);

  // Whether a part turned out to be no well-formed XML, or a chapter in a character set that cannot
  // be read: its text is missing from there on.
  [[nodiscard]] bool IsDamaged() const { return isDamaged_; }

  // What has been read so far, prepared; to be taken once.
  [[nodiscard]] PreparedText Take();

 private:
  [[nodiscard]] std::size_t ReadXml(const std::string& part);
  void ReadChapter(const std::string& part);

  const UnpackedParts& parts_;
  bool ignoreLists_;
  TextWalker walker_;
  std::optional<XmlReader> xml_;  // of a part that is being read
  GrowingText chapters_;
  std::int64_t replaced_ = 0;
  bool isDamaged_ = false;
  std::size_t part_ = 0;      // the 0-based number of the part that is read next, ...
  std::size_t place_ = 0;     // ... the 0-based place in it, ...
  std::uint64_t passed_ = 0;  // ... and the bytes of those before it
  std::optional<ProgressBar> bar_;
};

// The text of a whole document, unpacked and read in silence: empty where that cannot be done
// without a question.
[[nodiscard]] std::string TextOfIntactPacked(const InputBytes& input, PackedKind kind,
                                             const UnicodeOptions& options);

}  // namespace quorvel
