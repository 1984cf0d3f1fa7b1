#include "hostile_texts.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <random>

namespace quorvel {
namespace {

constexpr std::size_t WORD_LENGTH = 8;
using Word = std::array<char16_t, WORD_LENGTH>;

// A text of these words, ten to a line.
class WordLines {
 public:
  static constexpr int COUNT = 80000;

  [[nodiscard]] bool IsFull() const { return count_ == COUNT; }
  void Add(const Word& word) {
    if (IsFull()) return;
    for (const char16_t ch : word) text_ += static_cast<char>(ch);
    text_ += ++count_ % 10 == 0 ? "\r\n" : " ";
  }
  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  std::string text_;
  int count_ = 0;
};

constexpr std::uint64_t MULTIPLIER = 0x9E3779B97F4A7C15U;

std::uint64_t HalfOf(const Word& word, std::size_t from) {
  std::uint64_t half = 0;
  std::memcpy(&half, word.data() + from, sizeof(half));
  return half;
}

// The slot of a word in a table of 2^18 slots, by two rounds of multiplication and rotation. It is
// a good hash function, but without a secret anyone can construct collisions.
std::uint32_t SlotWithoutSecret(std::uint64_t turnedFront, const Word& word) {
  constexpr unsigned UNUSED_BITS = 16;
  constexpr std::uint32_t SLOTS = 1U << 18U;
  const std::uint64_t mixed = (turnedFront ^ HalfOf(word, WORD_LENGTH / 2)) * MULTIPLIER;
  return static_cast<std::uint32_t>(std::rotl(mixed, 29) >> UNUSED_BITS) % SLOTS;
}

// Adds the words with this beginning whose slot is 0. The low bits of the slot depend on a single
// letter, so few words have to be tried.
void AddColliding(Word word, WordLines& lines) {
  constexpr char16_t LOW_BITS = 31;
  const std::uint64_t turned = std::rotl(HalfOf(word, 0) * MULTIPLIER, 29);
  const auto letter = static_cast<char16_t>((turned & LOW_BITS) + u'a' - 1);
  if (letter < u'a' || letter > u'z') return;
  word[4] = letter;
  // A final "s" is skipped, because the plural rule would remove it.
  for (word[7] = u'a'; word[7] <= u'r'; ++word[7]) {
    for (word[6] = u'a'; word[6] <= u'z'; ++word[6]) {
      for (word[5] = u'a'; word[5] <= u'z'; ++word[5]) {
        if (SlotWithoutSecret(turned, word) == 0) lines.Add(word);
      }
    }
  }
}

Word RandomWord(std::mt19937& random) {
  Word word{};
  for (char16_t& letter : word) letter = static_cast<char16_t>(u'a' + random() % 18);
  return word;
}

std::string Tokens(bool hostile) {
  std::mt19937 random(1);
  WordLines lines;
  while (!lines.IsFull()) {
    const Word word = RandomWord(random);
    if (hostile) {
      AddColliding(word, lines);
    } else {
      lines.Add(word);
    }
  }
  return lines.Text();
}

std::string Markers(bool hostile) {
  constexpr int LINES = 32000;
  std::string text;
  for (int line = 0; line < LINES; ++line) {
    std::string marker = hostile ? "(x333333" : "(y";
    for (int rest = line; marker.size() < 8; rest /= 10) {
      marker += static_cast<char>('0' + rest % 10);
    }
    text.append("lamp ").append(marker).append(" near keeper\r\n");
  }
  return text;
}

// There are as many runs of bytes as each run is long. When the repair reaches a run, it has lost
// as many bytes as there are runs before it. The dash makes the program detect UTF-8.
std::string Repairs(bool hostile) {
  constexpr std::size_t RUNS = 4472;
  std::string text = "harvest ";
  for (std::size_t run = 0; run < RUNS; ++run) {
    text += hostile ? "\xC3" : "\xC3\xA9";
    text.append(RUNS - (hostile ? 1 : 2), hostile ? '\x83' : '.');
  }
  return text + " \xE2\x80\x94 lamp\r\n";
}

}  // namespace

std::string HostileText(std::string_view name) {
  constexpr std::string_view BENIGN = "_benign";
  const bool hostile = !name.ends_with(BENIGN);
  if (!hostile) name.remove_suffix(BENIGN.size());
  if (name == "tokens") return Tokens(hostile);
  if (name == "markers") return Markers(hostile);
  if (name == "repairs") return Repairs(hostile);
  return {};
}

}  // namespace quorvel
