// The mark-up spans of the input's kind: the strings that begin and end each of them.
//
// They are recorded for every run but decide nothing. Mark-up is removed elsewhere, and the
// remaining text is scanned.
#pragma once

#include <span>
#include <string_view>

namespace quorvel {

struct SkipSpan {
  std::string_view start;
  std::string_view end;
};

struct SkipSpans {
  std::span<const SkipSpan> pairs;  // static data; empty for plain text
  bool inputIsHtml = false;
};

// Sets `spans` for an input with this extension, which must be in lower case without a dot.
void SetSkipSpans(std::string_view extension, SkipSpans& spans);

}  // namespace quorvel
