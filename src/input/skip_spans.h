// The mark-up spans of the input's kind: what begins and what ends each of them.
//
// A record of the input only. It is set for every run and decides nothing: mark-up
// is removed from pages elsewhere, and what remains of it is scanned as text.
#pragma once

#include <span>
#include <string_view>

namespace quorvel {

struct SkipSpan {
  std::string_view start;
  std::string_view end;
};

struct SkipSpans {
  std::span<const SkipSpan> pairs;  // lasts as long as the program; empty for plain text
  bool inputIsHtml = false;
};

// Sets `spans` for an input with this extension, in lower case and without a dot.
void SetSkipSpans(std::string_view extension, SkipSpans& spans);

}  // namespace quorvel
