#include "util/code_page.h"

#include <algorithm>
#include <cstring>

#include "util/ansi.h"
#include "util/append_blocks.h"
#include "util/ascii.h"
#include "util/large_pages.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

constexpr std::size_t ALL_CODE_UNITS = 0x10000;
constexpr char16_t FIRST_OTHER = FIRST_BEYOND_ASCII;

// The number of code units handled at a time.
constexpr std::size_t UNITS_AT_ONCE = 64;

}  // namespace

CodePage::CodePage(const std::array<char16_t, BYTES>& characters)
    : characters_(characters), bytes_(ALL_CODE_UNITS) {
  // In descending order, because unused bytes map to "\0", and "\0" itself must map to byte 0.
  for (std::size_t byte = BYTES; byte-- > 0;) {
    bytes_[characters[byte]] = static_cast<std::uint8_t>(byte);
    const std::string utf8 = EncodeUtf8({&characters[byte], 1});
    std::copy(utf8.begin(), utf8.end(), sequences_[byte].bytes.begin());
    sequences_[byte].length = static_cast<std::uint8_t>(utf8.size());
  }
}

std::shared_ptr<const CodePage> CodePage::Windows1252() {
  static const std::shared_ptr<const CodePage> PAGE = [] {
    std::array<char16_t, BYTES> characters{};
    for (std::size_t byte = 0; byte < BYTES; ++byte) {
      characters[byte] = AnsiCharacter(static_cast<std::uint8_t>(byte));
    }
    return std::shared_ptr<const CodePage>(new CodePage(characters));
  }();
  return PAGE;
}

// Unused bytes of the page map to "\0".
std::shared_ptr<const CodePage> CodePage::Of(std::u16string_view text) {
  std::vector<std::uint8_t> stands(ALL_CODE_UNITS);
  for (std::size_t i = 0; i < text.size(); i += UNITS_AT_ONCE) {
    const std::u16string_view units = text.substr(i, UNITS_AT_ONCE);
    // A constant length lets the compiler vectorize the loop of `IsAscii`.
    const bool isBlock = units.size() == UNITS_AT_ONCE;
    if (isBlock && IsAscii(std::u16string_view(units.data(), UNITS_AT_ONCE))) continue;
    for (const char16_t ch : units) stands[ch] = 1;
  }
  std::array<char16_t, BYTES> characters{};
  for (char16_t ch = 0; ch < FIRST_OTHER; ++ch) characters[ch] = ch;
  for (const char16_t mark : std::u16string_view(u"«»")) {
    characters[mark] = mark;
    stands[mark] = 0;
  }
  std::size_t byte = FIRST_OTHER;
  for (std::size_t i = FIRST_OTHER; i < ALL_CODE_UNITS; ++i) {
    if (stands[i] == 0) continue;
    const auto ch = static_cast<char16_t>(i);
    while (byte < BYTES && characters[byte] != 0) ++byte;
    if (byte == BYTES || IsHighSurrogate(ch)) return nullptr;
    characters[byte] = ch;
  }
  return std::shared_ptr<const CodePage>(new CodePage(characters));
}

std::optional<char> CodePage::ByteOf(char16_t ch) const {
  const std::uint8_t byte = bytes_[ch];
  if (characters_[byte] != ch) return std::nullopt;
  return static_cast<char>(byte);
}

std::string CodePage::Encode(std::u16string_view text) const {
  std::string bytes;
  ReserveLarge(bytes, text.size());
  AppendInBlocks(bytes, text, [this](const char16_t* units, std::size_t length, char* to) {
    if (IsAscii(std::u16string_view(units, length))) {
      std::transform(units, units + length, to, [](char16_t ch) { return static_cast<char>(ch); });
    } else {
      std::transform(units, units + length, to,
                     [this](char16_t ch) { return static_cast<char>(bytes_[ch]); });
    }
  });
  return bytes;
}

std::u16string CodePage::Decode(std::string_view bytes) const {
  std::u16string text;
  for (const char byte : bytes) text += characters_[static_cast<std::uint8_t>(byte)];
  return text;
}

// ASCII is copied several bytes at a time. Any other sequence is copied with its maximum length,
// and the next sequence overwrites the surplus bytes.
void CodePage::AppendUtf8(std::string& utf8, std::string_view bytes) const {
  constexpr std::size_t STEP = 8;
  std::array<char, UNITS_AT_ONCE * sizeof(Sequence)> block{};
  char* out = block.data();
  for (; !bytes.empty(); bytes.remove_prefix(std::min(STEP, bytes.size()))) {
    if (static_cast<std::size_t>(block.end() - out) < STEP * sizeof(Sequence)) {
      utf8.append(block.begin(), out);
      out = block.data();
    }
    const std::string_view part = bytes.substr(0, STEP);
    if (part.size() == STEP && AreEightAscii(part.data())) {
      out = std::copy(part.begin(), part.end(), out);
      continue;
    }
    for (const char byte : part) {
      const Sequence& sequence = sequences_[static_cast<std::uint8_t>(byte)];
      std::memcpy(out, &sequence, sizeof(sequence));
      out += sequence.length;
    }
  }
  utf8.append(block.begin(), out);
}

}  // namespace quorvel
