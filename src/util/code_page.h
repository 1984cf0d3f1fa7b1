// A code page for one text: each of its characters is stored as one byte.
//
// Most texts have fewer than 256 different characters. Composing a listing from bytes takes half
// the memory and time that code units would take. Every code page has the ASCII characters at their
// own bytes, and "«" and "»" at their bytes in Windows-1252.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

class CodePage {
 public:
  // Returns a page that lives until the program ends.
  [[nodiscard]] static std::shared_ptr<const CodePage> Windows1252();

  // Makes the code page of a text. Returns null when the text has too many different characters for
  // 256 bytes, or a character of two code units.
  [[nodiscard]] static std::shared_ptr<const CodePage> Of(std::u16string_view text);

  // The byte of a character, or nothing when the page does not have it.
  [[nodiscard]] std::optional<char> ByteOf(char16_t ch) const;

  // Encodes characters, all of which must be in the page.
  [[nodiscard]] std::string Encode(std::u16string_view text) const;

  // Decodes bytes of this page, one character for each.
  [[nodiscard]] std::u16string Decode(std::string_view bytes) const;

  // Appends the decoded `bytes` as UTF-8.
  void AppendUtf8(std::string& utf8, std::string_view bytes) const;

 private:
  static constexpr std::size_t BYTES = 256;

  struct Sequence {
    std::array<char, 3> bytes{};
    std::uint8_t length = 0;
  };

  explicit CodePage(const std::array<char16_t, BYTES>& characters);

  std::array<char16_t, BYTES> characters_;
  std::array<Sequence, BYTES> sequences_;  // of each character, in UTF-8
  std::vector<std::uint8_t> bytes_;        // by code unit; 0 also when not in the page
};

}  // namespace quorvel
