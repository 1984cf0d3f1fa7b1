// The tags that the body of a word-processor document is searched for.
//
// Their names have a prefix, which the document declares in its first element. Nearly all documents
// declare "w".
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

// A piece of mark-up to search for.
class Tag {
 public:
  // `text` must have at least two characters and begin with "<".
  explicit Tag(std::string text);

  // The 0-based index of the first match at or after `from`, or npos.
  [[nodiscard]] std::size_t FindIn(std::string_view xml, std::size_t from) const;

  [[nodiscard]] std::size_t Length() const { return text_.size(); }

 private:
  std::string text_;
  std::uint32_t beginning_ = 0;  // the first characters of the text, as many as fit in the number
  std::uint32_t mask_ = 0;       // the bits of the number that these characters use
};

// Returns the prefix of the tags of a body with its colon, such as "w:", or an empty string when
// the document uses no prefix. Returns "w:" when the document declares no namespace.
[[nodiscard]] std::string WordPrefixOf(std::string_view xml);

}  // namespace quorvel
