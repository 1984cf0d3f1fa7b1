// From the bytes of a text file to its characters, with and without the repair of UTF-8.

#include <algorithm>
#include <cstring>

#include "fuzz_input.h"
#include "input/compact_spaces.h"
#include "input/text_file.h"
#include "input/utf8_repair.h"
#include "naive/naive_forms.h"
#include "naive/places.h"

namespace quorvel::fuzz {
namespace {

// The lines of a file, taken off one by one and each repaired for itself.
std::string JoinedNaively(std::string bytes, const ReadOptions& options) {
  const char* const separators[] = {"\r\n", " ", " / "};
  if (options.convertUtf8 && bytes.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
  bytes = naive::Replace(bytes, "\r\n", "\r");
  std::string text;
  for (std::int64_t kept = 0; !bytes.empty() && (kept == 0 || kept != options.maxLines);) {
    std::string line = bytes.substr(0, bytes.find('\r'));
    bytes.erase(0, line.size() + 1);
    if (options.skipEmptyLines && line.empty()) continue;
    ++kept;
    if (options.convertUtf8) line = naive::RepairUtf8(line);
    if (options.convertUtf8 && options.cleanUp) line = naive::PlainPunctuation(line);
    text += (text.empty() ? "" : separators[static_cast<int>(options.join)]) + line;
  }
  return text;
}

std::string Joined(std::string_view bytes, std::size_t pieceLength, const ReadOptions& options) {
  LineJoiner joiner(options, 0);
  while (!bytes.empty() && joiner.Add(bytes.substr(0, pieceLength))) {
    bytes.remove_prefix(std::min(bytes.size(), pieceLength));
  }
  return joiner.Finish().text;
}

void CheckRepairs(const std::string& bytes) {
  std::string text = bytes;
  RepairUtf8(text);
  RequireSame(text, naive::RepairUtf8(bytes), "RepairUtf8 is its naive form");
  text = bytes;
  PlainPunctuation(text);
  RequireSame(text, naive::PlainPunctuation(bytes), "PlainPunctuation is its naive form");
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
  RequireSame(ansi, bytes, "Windows-1252 comes back");
  const std::u16string text = DecodeUtf8(bytes);
  Require(DecodeUtf8(EncodeUtf8(text)) == text, "UTF-8 comes back");
  std::u16string units(bytes.size() / sizeof(char16_t), u'\0');
  std::memcpy(units.data(), bytes.data(), units.size() * sizeof(char16_t));
  const std::string utf8 = EncodeUtf8(units);
  RequireSame(EncodeUtf8(DecodeUtf8(utf8)), utf8, "any code units become UTF-8");
  AppendAnsi(ansi, units);
  Require(ansi.size() <= bytes.size() + units.size(), "a character becomes one byte");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  ReadOptions options;
  options.skipEmptyLines = input.Flag();
  options.cleanUp = input.Flag();
  options.join = static_cast<LineJoin>(input.Number(3));
  options.maxLines = input.Number(4);
  const std::size_t pieceLength = 1 + static_cast<std::size_t>(input.Number(7));
  const std::string bytes = input.Rest();
  for (const bool convertUtf8 : {false, true}) {
    options.convertUtf8 = convertUtf8;
    RequireSame(Joined(bytes, pieceLength, options), JoinedNaively(bytes, options),
                "LineJoiner is its naive form");
  }
  CheckRepairs(bytes);
  CheckCodecs(bytes);
  return 0;
}

}  // namespace quorvel::fuzz
