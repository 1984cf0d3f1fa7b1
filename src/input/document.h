// A document: its text, how it was read, and from which input.
//
// It is made in two steps. First, the bytes of a text file or web page become one byte string
// (ReadInputFile; docx_text.h does this for word-processor documents). Then MakeDocument turns it
// into a document. Between the steps the user may be asked only about the encoding. A document
// never changes.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "files/digest.h"
#include "files/read_file.h"
#include "input/skip_spans.h"
#include "util/alphabet.h"
#include "util/code_page.h"
#include "util/fault.h"
#include "util/progress.h"

namespace quorvel {

// The options that decide which text is made from an input.
struct ReadingOptions {
  Reading reading = Reading::windows1252;
  bool isUtf8 = false;
  bool ignoreLists = false;  // leave out the lists of web pages
  bool notes = false;        // include the notes of word-processor documents (Unicode reading only)

  bool operator==(const ReadingOptions&) const = default;
};

// The input of a document.
struct DocumentSource {
  std::string path;
  FileStamp stamp;                            // the stamp of the file just before it was read
  std::shared_ptr<const InputDigest> digest;  // of the bytes of the document; null when not wanted
};

struct Document {
  DocumentSource source;
  ReadingOptions options;       // options that it was read with
  SkipSpans skipSpans;          // for this kind of input
  std::u16string documentText;  // words are found in this text; its double hyphens are blanked
  // The same text with one byte for each character, for quoting in listings. A Unicode text may
  // have too many different characters for a code page; then `codePage` is null, and listings quote
  // `documentText`.
  std::shared_ptr<const CodePage> codePage = CodePage::Windows1252();
  std::string narrowText;
  // The number of characters of the input that are not in the text. In the Unicode reading, the
  // number of U+FFFD that replace invalid bytes.
  std::int64_t lostCharacters = 0;

  // The alphabet that the text was read with.
  [[nodiscard]] const Alphabet& AlphabetOf() const { return Alphabet::Of(options.reading); }
};

// True when an input is a word-processor document: its extension is "docx" and it begins like a zip
// archive. Any other file with this extension is read as a text file.
[[nodiscard]] bool IsWordDocument(const InputBytes& input);

// Returns the text of a text file or a web page: the non-empty lines, joined by " / ", or by one
// blank for a web page, with UTF-8 repaired. Faults: `textTooLong` when the text has more
// characters than a position can hold, `stopped`.
[[nodiscard]] Result<std::string> ReadInputFile(const InputBytes& input, bool isUtf8,
                                                Progress& progress);

// Makes the document of a text returned by ReadInputFile: removes the mark-up of a web page and
// compacts blanks. `lostCharacters` is stored in the document. Faults: `noHead` for a web page
// without a head, `stopped`.
[[nodiscard]] Result<std::shared_ptr<const Document>> MakeDocument(DocumentSource source,
                                                                   const ReadingOptions& options,
                                                                   std::string text,
                                                                   Progress& progress,
                                                                   std::int64_t lostCharacters);

// Makes the document of a text in UTF-8 that was read as Unicode (see unicode/prepared_text.h).
[[nodiscard]] std::shared_ptr<const Document> MakeUnicodeDocument(DocumentSource source,
                                                                  const ReadingOptions& options,
                                                                  std::string_view text,
                                                                  std::int64_t lostCharacters);

}  // namespace quorvel
