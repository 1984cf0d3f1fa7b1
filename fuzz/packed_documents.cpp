// Reads any bytes as a DOCX, ODT or EPUB document in Unicode, and any bytes as the parts of one.

#include "fuzz_input.h"
#include "unicode/packed_text.h"
#include "util/utf8.h"

namespace quorvel::fuzz {
namespace {

constexpr std::uint64_t LIMIT = 65536;

// Requests a stop at every opportunity.
struct StoppingProgress : SilentProgress {
  void YieldNow() override { RequestStop(); }
};

void CheckText(const UnpackedParts& parts, const UnicodeOptions& options) {
  SilentProgress nobody;
  PackedText text(parts, options);
  Require(text.Read(nobody), "it is not stopped");
  const std::string whole = text.Take().text;
  RequireSame(EncodeUtf8(DecodeUtf8(whole)), whole, "the text is UTF-8");
  Require(whole.size() <= 9 * parts.length + 9, "the text is not longer than its parts allow");
  StoppingProgress stopping;
  PackedText again(parts, options);
  while (!again.Read(stopping)) stopping.ClearStop();
  RequireSame(again.Take().text, whole, "a stop does not change the text");
}

// Splits the bytes into parts at form feeds.
UnpackedParts PartsOf(PackedKind kind, const std::string& bytes) {
  UnpackedParts parts{.kind = kind, .parts = {}};
  for (std::size_t begin = 0; begin < bytes.size();) {
    parts.parts.push_back(bytes.substr(begin, bytes.find('\f', begin) - begin));
    begin += parts.parts.back().size() + 1;
    parts.length += parts.parts.back().size();
  }
  return parts;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const bool isArchive = input.Flag();
  const auto kind = static_cast<PackedKind>(input.Number(3));
  const UnicodeOptions options = {.ignoreLists = input.Flag(), .notes = input.Flag()};
  const std::string bytes = input.Rest();
  if (!isArchive) {
    CheckText(PartsOf(kind, bytes), options);
    return 0;
  }
  SilentProgress nobody;
  const InputBytes document("a.docx", bytes);
  const auto parts = UnpackTextParts(document, kind, options, {.hard = LIMIT}, nobody);
  Require(parts || parts.Error().kind == FaultKind::bodyTooLarge, "only the limit causes a fault");
  if (!parts) return 0;
  Require(parts->length <= LIMIT, "the limit holds");
  CheckText(*parts, options);
  return 0;
}

}  // namespace quorvel::fuzz
