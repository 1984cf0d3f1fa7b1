// What a file name says about the kind of the file, and the names of the files that a run writes
// beside its input.
//
// These functions look only at names, never at the disk. Both "\" and "/" end a folder name on
// every platform.
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// The extension of `path` as written, without the dot: the part after the last "." of the file
// name. Empty when there is none.
[[nodiscard]] std::string_view ExtensionOf(std::string_view path);

// The extension with A to Z in lower case.
[[nodiscard]] std::string LowerExtensionOf(std::string_view path);

// True when `path` contains "htm" anywhere, in any case. Such a file counts as a web page. This
// includes all files in a folder with such a name.
[[nodiscard]] bool PathNamesHtml(std::string_view path);

// True when the extension is that of a text or mark-up file.
[[nodiscard]] bool HasTextFileExtension(std::string_view path);

// The default name of the concordance or index file of an input. The extension is replaced by
// "qvl.conc.txt" or "qvl.ndx"; without an extension, a dot and the new extension are appended.
[[nodiscard]] std::string DefaultConcordanceFileName(std::string_view inputFile);
[[nodiscard]] std::string DefaultIndexFileName(std::string_view inputFile);

// The default name of the rows file: the extension is replaced by "qvl.conc." and `extension`.
[[nodiscard]] std::string DefaultRowsFileName(std::string_view inputFile,
                                              std::string_view extension);

// True when the name is that of a file that the program writes.
[[nodiscard]] bool IsConcordanceFileName(std::string_view path);
[[nodiscard]] bool IsIndexFileName(std::string_view path);

}  // namespace quorvel
