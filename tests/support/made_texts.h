#pragma once

#include <random>
#include <string>
#include <vector>

namespace quorvel {

inline std::string Repeated(std::string_view part, int times) {
  std::string text;
  for (; times > 0; --times) text += part;
  return text;
}

// Prose of some ten thousand different words, this many megabytes long, so that a user can act in
// each phase of a run.
inline std::string LongText(int megabytes) {
  std::mt19937 random(1);
  std::string text = Repeated("The harbour is there, and this is the old ship.\r\n", 200);
  while (text.size() < 1U << 20U) {
    for (auto number = 1000 + random() % 20000; number > 0; number /= 20) {
      text += static_cast<char>('b' + number % 20);
    }
    text += random() % 12 == 0 ? "\r\n" : " ";
  }
  return Repeated(text, megabytes);
}

// A text of up to `mostParts` of the given parts in random order. Sometimes a stretch of it is
// repeated, so that whole contexts recur.
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
