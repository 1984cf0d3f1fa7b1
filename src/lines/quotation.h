// The text that a listing quotes: in the bytes of its code page or, where it has too many different
// characters for one, in code units.
//
// What composes a listing is a template over the two, so that the common case pays with neither
// time nor memory for the other.
#pragma once

#include <string>
#include <string_view>

#include "input/document.h"
#include "util/ansi.h"
#include "util/code_page.h"

namespace quorvel {

// A document as a listing quotes it; the document must outlive it.
template <typename Char>
class Quotation;

template <>
class Quotation<char> {
 public:
  explicit Quotation(const Document& document)
      : page_(*document.codePage), text_(document.narrowText) {}

  [[nodiscard]] std::string_view Text() const { return text_; }

  // A word of the text.
  [[nodiscard]] std::string Of(std::u16string_view word) const { return page_.Encode(word); }

  // Whether a text in these characters may hold this one.
  [[nodiscard]] bool MayHold(char16_t ch) const { return page_.ByteOf(ch).has_value(); }

  [[nodiscard]] std::u16string InCodeUnits(std::string_view part) const {
    return page_.Decode(part);
  }

  // Appends what is composed of it to the bytes of a listing.
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

// The program's own marks: characters that are alike in all texts.
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
