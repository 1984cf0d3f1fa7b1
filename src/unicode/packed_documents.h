// Documents that are zip archives of XML (DOCX, ODT and EPUB), and the parts with their text.
//
// The parts are unpacked in memory. The archive itself names the parts, and these names are only
// looked up in the archive, never on the disk.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/read_file.h"
#include "input/docx_text.h"
#include "unicode/prepared_text.h"
#include "util/alphabet.h"
#include "util/fault.h"
#include "util/progress.h"

namespace quorvel {

enum class PackedKind { docx, odt, epub };

// True when a document with this name is one that the reading unpacks: DOCX in both readings, the
// other kinds in the Unicode reading.
[[nodiscard]] bool IsPackedName(std::string_view path, Reading reading);

// Returns the kind of an input that has the extension and begins like a zip archive. Returns
// nothing for all other inputs, which are read as text files.
[[nodiscard]] std::optional<PackedKind> PackedKindOf(const InputBytes& input);

struct UnpackedParts {
  PackedKind kind = PackedKind::docx;
  std::vector<std::string> parts;  // in reading order
  std::uint64_t length = 0;        // of all parts, in bytes
  bool isDamaged = false;          // a part is missing, encrypted, or has a wrong checksum
};

// Unpacks the parts of a document with its text: the body, and with `notes` also the notes of a
// DOCX document; for an EPUB book its chapters in order, each once. Faults: `bodyTooLarge` when all
// parts together are longer than `limits.hard` bytes, `stopped`, `libraryMissing`. The caller asks
// the user whether to read a large or damaged document. A document of length 0 has nothing to read.
[[nodiscard]] Result<UnpackedParts> UnpackTextParts(const InputBytes& input, PackedKind kind,
                                                    const UnicodeOptions& options,
                                                    const BodyLimits& limits, Progress& progress);

}  // namespace quorvel
