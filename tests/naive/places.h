// Strings of any width counted from 1, as all positions of the program are; 0 is no place.
#pragma once

#include <string>
#include <type_traits>

namespace quorvel::naive {

int Length(const auto& s) { return static_cast<int>(s.size()); }

// At most `length` characters from `start` on, a place from 1 on.
auto Mid(const auto& s, int start, int length) {
  if (start > Length(s) || length < 1) return s.substr(0, 0);
  return s.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(length));
}

auto From(const auto& s, int start) { return Mid(s, start < 1 ? 1 : start, Length(s)); }
auto Left(const auto& s, int length) { return Mid(s, 1, length); }
auto Right(const auto& s, int length) { return From(s, Length(s) - length + 1); }

// The first place of `what` at or after `start`, and the last place of all. No place is one more
// than the standard library's largest number.
int Find(const auto& s, int start, const auto& what) {
  return static_cast<int>(s.find(what, static_cast<std::size_t>(start - 1)) + 1);
}
int FindLast(const auto& s, const auto& what) { return static_cast<int>(s.rfind(what) + 1); }

// Every occurrence of `what`, left to right, replaced; what was put there is not looked at again.
template <typename String>
String Replace(String s, const std::type_identity_t<String>& what,
               const std::type_identity_t<String>& by) {
  for (int at = 1; (at = Find(s, at, what)) > 0; at += Length(by)) {
    s = Left(s, at - 1) + by + From(s, at + Length(what));
  }
  return s;
}

}  // namespace quorvel::naive
