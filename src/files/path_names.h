// What the name of a file tells of its kind, and the names of the files that a run
// writes beside its input.
//
// Only names are looked at here, never the disk. Both "\" and "/" end a folder
// name, wherever the program runs.
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// The extension of `path` as it is written, without its dot: what follows the
// last "." of the file's own name; empty when that has none.
[[nodiscard]] std::string_view ExtensionOf(std::string_view path);

// The same with A to Z in lower case.
[[nodiscard]] std::string LowerExtensionOf(std::string_view path);

// Whether `path` holds "htm" anywhere, in any case: so a web page is told, and so
// is every file in a folder of such a name.
[[nodiscard]] bool PathNamesHtml(std::string_view path);

// Whether the extension is one of those of text and mark-up files.
[[nodiscard]] bool HasTextFileExtension(std::string_view path);

// The concordance or index file of an input: its extension replaced by
// "qvl.conc.txt" or "qvl.ndx", or that appended after a dot where it has none.
[[nodiscard]] std::string DefaultConcordanceFileName(std::string_view inputFile);
[[nodiscard]] std::string DefaultIndexFileName(std::string_view inputFile);

// The same for the rows behind a concordance: "qvl.conc." and the extension given.
[[nodiscard]] std::string DefaultRowsFileName(std::string_view inputFile,
                                              std::string_view extension);

// Whether `path` names a file that the program itself wrote.
[[nodiscard]] bool IsConcordanceFileName(std::string_view path);
[[nodiscard]] bool IsIndexFileName(std::string_view path);

}  // namespace quorvel
