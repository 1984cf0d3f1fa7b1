// String functions with 1-based positions, for strings of any character type. 0 means no position.
#pragma once

#include <string>
#include <type_traits>

namespace quorvel::naive {

int Length(const auto& s) { return static_cast<int>(s.size()); }

// At most `length` characters starting at the 1-based position `start`.
auto Mid(const auto& s, int start, int length) {
  if (start > Length(s) || length < 1) return s.substr(0, 0);
  return s.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(length));
}

auto From(const auto& s, int start) { return Mid(s, start < 1 ? 1 : start, Length(s)); }
auto Left(const auto& s, int length) { return Mid(s, 1, length); }
auto Right(const auto& s, int length) { return From(s, Length(s) - length + 1); }

// The first position of `what` at or after `start`, and its last position. The result is 0 if there
// is none, because npos + 1 is 0.
int Find(const auto& s, int start, const auto& what) {
  return static_cast<int>(s.find(what, static_cast<std::size_t>(start - 1)) + 1);
}
int FindLast(const auto& s, const auto& what) { return static_cast<int>(s.rfind(what) + 1); }

// Replaces every occurrence of `what` from left to right. The replacements are not searched again.
template <typename String>
String Replace(String s, const std::type_identity_t<String>& what,
               const std::type_identity_t<String>& by) {
  for (int at = 1; (at = Find(s, at, what)) > 0; at += Length(by)) {
    s = Left(s, at - 1) + by + From(s, at + Length(what));
  }
  return s;
}

}  // namespace quorvel::naive
