// The tags that the body of a word-processor document is read by.
//
// Their names have a prefix that the document chooses in its first element. Nearly all choose "w".
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

// A piece of mark-up to be looked for.
class Tag {
 public:
  // Of at least two characters, the first of them "<".
  explicit Tag(std::string text);

  // Its first 0-based place in the XML from `from` on; npos when there is none.
  [[nodiscard]] std::size_t FindIn(std::string_view xml, std::size_t from) const;

  [[nodiscard]] std::size_t Length() const { return text_.size(); }

 private:
  std::string text_;
  std::uint32_t beginning_ = 0;  // as many of its first characters as a number holds, ...
  std::uint32_t mask_ = 0;       // ... and which of the number's bits these are
};

// The prefix of the words of a body with its colon, "w:", or nothing where the document needs none.
// "w:" where it declares none.
[[nodiscard]] std::string WordPrefixOf(std::string_view xml);

}  // namespace quorvel
