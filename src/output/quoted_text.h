// The text that a listing quotes: in the bytes of Windows-1252 or in code units, as it was read.
//
// What composes a listing is a template over the two, so that the first reading pays with neither
// time nor memory for the second.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "input/document.h"
#include "util/ansi.h"

namespace quorvel {

// The text of a document that was read so.
template <typename Char>
[[nodiscard]] std::basic_string_view<Char> QuotedText(const Document& document);

template <>
[[nodiscard]] inline std::string_view QuotedText<char>(const Document& document) {
  return document.ansiText;
}
template <>
[[nodiscard]] inline std::u16string_view QuotedText<char16_t>(const Document& document) {
  return document.documentText;
}

// Characters of Windows-1252, the program's own or a document's, as the text has them.
template <typename Char>
[[nodiscard]] std::basic_string<Char> Quoted(std::u16string_view text);

template <>
[[nodiscard]] inline std::string Quoted<char>(std::u16string_view text) {
  return EncodeAnsi(text);
}
template <>
[[nodiscard]] inline std::u16string Quoted<char16_t>(std::u16string_view text) {
  return std::u16string(text);
}

// A part of the text in code units.
[[nodiscard]] inline std::u16string InCodeUnits(std::string_view text) { return DecodeAnsi(text); }
[[nodiscard]] inline std::u16string_view InCodeUnits(std::u16string_view text) { return text; }

// Calls `work` with a character of the type that the document's text consists of.
template <typename Work>
auto WithCharacterOf(const Document& document, Work work) {
  return document.options.reading == Reading::unicode ? work(char16_t{}) : work(char{});
}

}  // namespace quorvel
