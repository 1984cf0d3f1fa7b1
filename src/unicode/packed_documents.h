// Documents that are zip archives of XML: DOCX, ODT and EPUB, and the parts of them that hold text.
//
// The parts are unpacked in memory. Which they are the archive itself says; a name in it is only
// ever looked up in the archive again.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "files/read_file.h"
#include "input/docx_text.h"
#include "unicode/prepared_text.h"
#include "util/fault.h"
#include "util/progress.h"

namespace quorvel {

enum class PackedKind { docx, odt, epub };

// The kind of an input that is named so and is a zip archive by its first bytes. Nothing for all
// others, which are read like text files.
[[nodiscard]] std::optional<PackedKind> PackedKindOf(const InputBytes& input);

struct UnpackedParts {
  PackedKind kind = PackedKind::docx;
  std::vector<std::string> parts;  // in the order in which they are read
  std::uint64_t length = 0;        // of all parts, in bytes
  bool isDamaged = false;          // a part is missing, encrypted, or has another checksum
};

// Unpacks the parts of a document that hold its text: the body, with `notes` also the notes of a
// DOCX document; the chapters of an EPUB book in its order, each once. `bodyTooLarge` where all
// parts together have more than `limits.hard` bytes, `stopped`. Whether a large or damaged document
// is to be read is for the caller to ask; there is nothing to read where its length is 0.
[[nodiscard]] Result<UnpackedParts> UnpackTextParts(const InputBytes& input, PackedKind kind,
                                                    const UnicodeOptions& options,
                                                    const BodyLimits& limits, Progress& progress);

}  // namespace quorvel
