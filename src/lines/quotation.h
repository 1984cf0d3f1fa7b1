// The text that a listing quotes: as bytes of a code page or, if the text has too many different
// characters for a code page, as code units.
//
// The code that composes a listing is a template over both forms, so the common case needs no extra
// time or memory for the other.
#pragma once

#include <string>
#include <string_view>

#include "input/document.h"
#include "util/code_page.h"
#include "util/utf8.h"

namespace quorvel {

// A document as a listing quotes it. The document must outlive it.
template <typename Char>
class Quotation;

template <>
class Quotation<char> {
 public:
  explicit Quotation(const Document& document)
      : page_(*document.codePage), text_(document.narrowText) {}

  [[nodiscard]] std::string_view Text() const { return text_; }

  // Converts a word of the text.
  [[nodiscard]] std::string Of(std::u16string_view word) const { return page_.Encode(word); }

  // Whether a text in these characters can contain `ch`.
  [[nodiscard]] bool MayHold(char16_t ch) const { return page_.ByteOf(ch).has_value(); }

  [[nodiscard]] std::u16string InCodeUnits(std::string_view part) const {
    return page_.Decode(part);
  }

  // Appends a part of the text to the UTF-8 bytes of a listing.
  void AppendUtf8(std::string& bytes, std::string_view part) const {
    page_.AppendUtf8(bytes, part);
  }

 private:
  const CodePage& page_;
  std::string_view text_;
};

template <>
class Quotation<char16_t> {
 public:
  explicit Quotation(const Document& document) : text_(document.documentText) {}

  [[nodiscard]] std::u16string_view Text() const { return text_; }
  [[nodiscard]] static std::u16string Of(std::u16string_view word) { return std::u16string(word); }
  [[nodiscard]] static bool MayHold(char16_t /*ch*/) { return true; }
  [[nodiscard]] static std::u16string_view InCodeUnits(std::u16string_view part) { return part; }
  static void AppendUtf8(std::string& bytes, std::u16string_view part) {
    quorvel::AppendUtf8(bytes, part);
  }

 private:
  std::u16string_view text_;
};

// Converts marks that the program adds. Their characters are the same in all code pages.
template <typename Char>
[[nodiscard]] std::basic_string<Char> MarkInText(std::u16string_view mark) {
  return {mark.begin(), mark.end()};
}

// Calls `work` with the quotation of a document.
template <typename Work>
auto WithQuotation(const Document& document, Work work) {
  return document.codePage != nullptr ? work(Quotation<char>(document))
                                      : work(Quotation<char16_t>(document));
}

}  // namespace quorvel
