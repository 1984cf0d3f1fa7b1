// The characters of a text that has few different ones, each as one byte.
//
// So a listing is composed of bytes in nearly every language, in half the memory and time that code
// units take. In every code page ASCII has its own bytes, and "«" and "»" those of Windows-1252.
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
  // Lives as long as the program.
  [[nodiscard]] static std::shared_ptr<const CodePage> Windows1252();

  // That of a text; null where it has more different characters than bytes can tell, or one of two
  // code units.
  [[nodiscard]] static std::shared_ptr<const CodePage> Of(std::u16string_view text);

  // The byte of a character; nothing for one that is not in the page.
  [[nodiscard]] std::optional<char> ByteOf(char16_t ch) const;

  // The bytes of characters that are in the page.
  [[nodiscard]] std::string Encode(std::u16string_view text) const;

  [[nodiscard]] std::u16string Decode(std::string_view bytes) const;

  // Appends the UTF-8 of what the bytes stand for.
  void AppendUtf8(std::string& utf8, std::string_view bytes) const;

 private:
  static constexpr std::size_t BYTES = 256;

  struct Sequence {
    std::array<char, 3> bytes{};
    std::uint8_t length = 0;
  };

  explicit CodePage(const std::array<char16_t, BYTES>& characters);

  std::array<char16_t, BYTES> characters_;
  std::array<Sequence, BYTES> sequences_;  // in UTF-8
  std::vector<std::uint8_t> bytes_;        // of each code unit; 0 also for one that has none
};

}  // namespace quorvel
