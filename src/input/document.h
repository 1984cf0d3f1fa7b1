// A document as it is worked on: its text, how that was read, and of which bytes it was made.
//
// Made in two steps, between which nothing but the encoding is for the user to say: the bytes of a
// text file or web page become one string of bytes (ReadInputFile; docx_text.h for a word-processor
// document), and that the document (MakeDocument). Nothing is changed afterwards.
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

// What decides which text is made of an input.
struct ReadingOptions {
  Reading reading = Reading::windows1252;
  bool isUtf8 = false;
  bool ignoreLists = false;  // leave out the lists of a web page
  bool notes = false;        // of a word-processor document that is read as Unicode: its notes too

  bool operator==(const ReadingOptions&) const = default;
};

// The input that a document was made from.
struct DocumentSource {
  std::string path;
  FileStamp stamp;                            // of the file just before it was read
  std::shared_ptr<const InputDigest> digest;  // of the very bytes; null where nobody wants it
};

struct Document {
  DocumentSource source;
  ReadingOptions options;       // how it was read
  SkipSpans skipSpans;          // of an input of its kind
  std::u16string documentText;  // in which words are told apart; its double hyphens are blanked
  // The same in a byte for each character, as a listing quotes it. In Unicode there may be too many
  // characters for a code page: then there is none, and the text is quoted as it is.
  std::shared_ptr<const CodePage> codePage = CodePage::Windows1252();
  std::string narrowText;
  // How many of the input are not in it; in Unicode, how many U+FFFD stand for bytes that were
  // none.
  std::int64_t lostCharacters = 0;

  [[nodiscard]] const Alphabet& AlphabetOf() const { return Alphabet::Of(options.reading); }
};

// Whether an input is a word-processor document: named so, and a zip archive by its
// first bytes. Anything else named "docx" is read like a text file.
[[nodiscard]] bool IsWordDocument(const InputBytes& input);

// The text of a text file or web page: its non-empty lines, joined by one blank for a page, by
// " / " otherwise, with UTF-8 repaired. `textTooLong` where its characters cannot all be counted,
// `stopped`.
[[nodiscard]] Result<std::string> ReadInputFile(const InputBytes& input, bool isUtf8,
                                                Progress& progress);

// The document of a text that was read so: a web page without its mark-up, the blanks compacted.
// `lostCharacters` is for the document, which says it. `noHead` for a page that has none,
// `stopped`.
[[nodiscard]] Result<std::shared_ptr<const Document>> MakeDocument(DocumentSource source,
                                                                   const ReadingOptions& options,
                                                                   std::string text,
                                                                   Progress& progress,
                                                                   std::int64_t lostCharacters);

// The document of a text that was read as Unicode and prepared (unicode/prepared_text.h): UTF-8.
[[nodiscard]] std::shared_ptr<const Document> MakeUnicodeDocument(DocumentSource source,
                                                                  const ReadingOptions& options,
                                                                  std::string_view text,
                                                                  std::int64_t lostCharacters);

}  // namespace quorvel
