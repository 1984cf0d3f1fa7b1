#include "unicode/unicode_sample.h"

#include <string_view>

#include "files/path_names.h"
#include "unicode/decoding.h"
#include "unicode/packed_documents.h"
#include "unicode/packed_text.h"
#include "unicode/prepared_text.h"
#include "util/ansi.h"
#include "util/progress.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

constexpr std::size_t MOST_BYTES = 3;  // per code unit, in any encoding

std::string BeginningOfText(const InputBytes& input, std::size_t length) {
  if (const auto kind = PackedKindOf(input)) return TextOfIntactPacked(input, *kind, {});
  if (!PathNamesHtml(input.Path())) {
    return TextOfBytes(input.View().substr(0, MOST_BYTES * length)).text;
  }
  SilentProgress nobody;
  const Result<PreparedText> page = PrepareUnicodeText(input, {}, nobody);
  return page ? page->text : std::string();
}

}  // namespace

std::string UnicodeSample(const InputBytes& input, std::size_t length) {
  const std::string text = BeginningOfText(input, length);
  const std::string_view beginning = std::string_view(text).substr(0, MOST_BYTES * length);
  return EncodeAnsi(DecodeUtf8(beginning).substr(0, length));
}

}  // namespace quorvel
