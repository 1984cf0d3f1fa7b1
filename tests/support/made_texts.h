// Texts that a test makes up.
#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

inline std::string Repeated(std::string_view part, int times) {
  std::string text;
  for (; times > 0; --times) text += part;
  return text;
}

// A text of up to `mostParts` of the given parts in random order, now and then with a stretch of
// it said again, so that whole contexts recur.
template <typename String>
String RandomText(const std::vector<String>& parts, std::size_t mostParts, std::mt19937& random) {
  String text;
  for (std::size_t left = random() % (mostParts + 1); left > 0; --left) {
    text += parts[random() % parts.size()];
    if (random() % 16 == 0) text += text.substr(random() % (text.size() + 1), random() % 64);
  }
  return text;
}

}  // namespace quorvel
