// Decodes the bytes of a text file, with and without the repair of UTF-8.

#include <cstring>

#include "fuzz_input.h"
#include "input/compact_spaces.h"
#include "input/text_file.h"
#include "input/utf8_repair.h"
#include "naive/naive_forms.h"
#include "naive/places.h"
#include "util/ansi.h"
#include "util/utf8.h"

namespace quorvel::fuzz {
namespace {

// The naive form: splits the lines of a file one by one and repairs each.
std::string JoinedNaively(std::string bytes, const TextFileOptions& options) {
  if (options.convertUtf8 && bytes.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
  bytes = naive::Replace(bytes, "\r\n", "\r");
  const char* const separator = options.join == LineJoin::blank ? " " : " / ";
  std::string text;
  while (!bytes.empty()) {
    std::string line = bytes.substr(0, bytes.find('\r'));
    bytes.erase(0, line.size() + 1);
    if (line.empty()) continue;
    if (options.convertUtf8) line = naive::PlainPunctuation(naive::RepairUtf8(line));
    text += (text.empty() ? "" : separator) + line;
  }
  return text;
}

void CheckRepairs(const std::string& bytes) {
  std::string text = bytes;
  RepairUtf8(text);
  RequireSame(text, naive::RepairUtf8(bytes), "RepairUtf8 equals its naive form");
  text = bytes;
  PlainPunctuation(text);
  RequireSame(text, naive::PlainPunctuation(bytes), "PlainPunctuation equals its naive form");
  text = bytes;
  CompactSpaces(text);
  std::string expected;
  for (const char ch : bytes) {
    const bool isBlank = static_cast<std::uint8_t>(ch) <= ' ';
    if (!isBlank || !expected.ends_with(' ')) expected += isBlank ? ' ' : ch;
  }
  RequireSame(text, expected, "CompactSpaces leaves one blank of each run");
}

void CheckCodecs(const std::string& bytes) {
  std::string ansi;
  AppendAnsi(ansi, DecodeAnsi(bytes));
  RequireSame(ansi, bytes, "Windows-1252 is decoded and encoded unchanged");
  const std::u16string text = DecodeUtf8(bytes);
  Require(DecodeUtf8(EncodeUtf8(text)) == text, "UTF-8 is encoded and decoded unchanged");
  std::u16string units(bytes.size() / sizeof(char16_t), u'\0');
  std::memcpy(units.data(), bytes.data(), units.size() * sizeof(char16_t));
  const std::string utf8 = EncodeUtf8(units);
  RequireSame(EncodeUtf8(DecodeUtf8(utf8)), utf8, "any code units are encoded as UTF-8");
  AppendAnsi(ansi, units);
  Require(ansi.size() <= bytes.size() + units.size(), "a character becomes one byte");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const LineJoin join = input.Flag() ? LineJoin::blank : LineJoin::slash;
  const std::string bytes = input.Rest();
  for (const bool convertUtf8 : {false, true}) {
    const TextFileOptions options = {convertUtf8, join};
    RequireSame(ReadTextFile(bytes, options), JoinedNaively(bytes, options),
                "ReadTextFile equals its naive form");
  }
  CheckRepairs(bytes);
  CheckCodecs(bytes);
  return 0;
}

}  // namespace quorvel::fuzz
