// Reads any bytes as a text, a page or an XML text in Unicode, and decodes them in every character
// set.

#include "fuzz_input.h"
#include "unicode/chapter_text.h"
#include "unicode/decoding.h"
#include "unicode/page_entities.h"
#include "unicode/prepared_text.h"
#include "util/normalization.h"
#include "util/utf8.h"

namespace quorvel::fuzz {
namespace {

void RequireUtf8(std::string_view text, std::string_view what) {
  while (!text.empty()) {
    std::uint32_t codePoint = 0;
    const std::size_t length = ReadCodePoint(text, codePoint);
    Require(length > 0, what);
    text.remove_prefix(length);
  }
}

// The number of U+FFFD in a text.
std::int64_t Replacements(std::string_view text) {
  std::int64_t count = 0;
  for (std::size_t i = text.find("\xEF\xBF\xBD"); i != std::string_view::npos;
       i = text.find("\xEF\xBF\xBD", i + 3)) {
    ++count;
  }
  return count;
}

void CheckDecoding(const std::string& bytes) {
  for (const Charset charset : {Charset::utf8, Charset::utf16LittleEndian, Charset::utf16BigEndian,
                                Charset::windows1252, Charset::iso885915}) {
    const Utf8Text utf8 = Decode(bytes, charset);
    RequireUtf8(utf8.text, "every character set becomes UTF-8");
    Require(Replacements(utf8.text) >= utf8.replaced, "the text contains all replacements");
    const std::string normalized = Normalized(utf8.text);
    RequireUtf8(normalized, "a composed text is UTF-8");
    RequireSame(Normalized(normalized), normalized, "a composed text is unchanged by composing");
  }
  const Utf8Text utf8 = TextOfBytes(bytes);
  Require(utf8.replaced > 0 || CharsetMarkOf(bytes) || utf8.text.size() >= bytes.size(),
          "no byte is lost");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const char* const names[] = {"a.txt", "a.htm", "a.xml"};
  const std::string name = names[input.Number(3)];
  const bool ignoreLists = input.Flag();
  const std::string bytes = input.Rest();
  CheckDecoding(bytes);
  SilentProgress nobody;
  const auto prepared = PrepareUnicodeText(InputBytes(name, bytes), {ignoreLists}, nobody);
  if (prepared) {
    RequireUtf8(prepared->text, "a prepared text is UTF-8");
    Require(std::all_of(prepared->text.begin(), prepared->text.end(),
                        [](char ch) { return static_cast<std::uint8_t>(ch) >= ' '; }),
            "a prepared text has no ASCII control characters");
  }
  const std::string text = Decode(bytes, Charset::utf8).text;
  RequireUtf8(DecodeReferences(ChapterText(text, ignoreLists)), "the text of a chapter is UTF-8");
  return 0;
}

}  // namespace quorvel::fuzz
