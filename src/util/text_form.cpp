#include "util/text_form.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "util/ansi.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

// The number of bytes at the end of UTF-8 `text` that begin an incomplete character.
std::size_t OpenCharacter(std::string_view text) {
  constexpr std::size_t MOST_OPEN = 3;
  for (std::size_t length = 1; length <= std::min(MOST_OPEN, text.size()); ++length) {
    const auto byte = static_cast<std::uint8_t>(text[text.size() - length]);
    if (byte >= 0x80 && byte < 0xC0) continue;
    const std::size_t needed =
        1U + (byte >= 0xC2 ? 1U : 0U) + (byte >= 0xE0 ? 1U : 0U) + (byte >= 0xF0 ? 1U : 0U);
    return needed > length ? length : 0;
  }
  return 0;
}

void EndLinesInLf(std::string& text) {
  std::size_t done = text.find(LINE_END);
  if (done == std::string::npos) return;
  std::size_t out = done;
  while (done < text.size()) {
    const std::size_t next = std::min(text.find(LINE_END, done + 1), text.size());
    std::copy(text.begin() + static_cast<std::ptrdiff_t>(done) + 1,
              text.begin() + static_cast<std::ptrdiff_t>(next),
              text.begin() + static_cast<std::ptrdiff_t>(out));
    out += next - done - 1;
    done = next;
  }
  text.resize(out);
}

}  // namespace

std::string FormConverter::Next(std::string piece) {
  if (!kept_.empty()) piece.insert(0, std::exchange(kept_, {}));
  const std::size_t closed = piece.size() - OpenEnd(piece);
  kept_ = piece.substr(closed);
  piece.resize(closed);
  return Changed(std::move(piece));
}

std::string FormConverter::End() { return Changed(std::exchange(kept_, {})); }

std::string FormConverter::Changed(std::string text) const {
  if (!to_.endsInCrLf) EndLinesInLf(text);
  if (from_ == to_.coding) return text;
  return from_ == Coding::utf8 ? EncodeAnsi(DecodeUtf8(text)) : EncodeUtf8(DecodeAnsi(text));
}

std::size_t FormConverter::OpenEnd(std::string_view text) const {
  if (!to_.endsInCrLf && text.ends_with('\r')) return 1;
  return from_ == Coding::utf8 && to_.coding != from_ ? OpenCharacter(text) : 0;
}

std::string InForm(std::string text, Coding from, const TextForm& to) {
  FormConverter converter(from, to);
  std::string result = converter.Next(std::move(text));
  return result.append(converter.End());
}

}  // namespace quorvel
