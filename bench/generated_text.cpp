#include "generated_text.h"

#include <algorithm>
#include <array>
#include <random>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

// A word of rank r, counted from 1, is drawn with a weight of 1 / (r + 2.7), which is close to the
// frequencies of English. The generator's numbers are used directly, because the distributions of
// the library differ between compilers.

namespace quorvel {
namespace {

using Random = std::mt19937;

template <std::size_t COUNT>
std::string_view Pick(const std::array<std::string_view, COUNT>& parts, Random& random) {
  return parts[random() % COUNT];
}

std::string Syllable(Random& random) {
  static constexpr std::array<std::string_view, 20> ONSETS = {
      "b", "c", "d", "f",  "g",  "h",  "l",  "m",  "n",  "p",
      "r", "t", "v", "pl", "st", "th", "sh", "tr", "wh", ""};
  static constexpr std::array<std::string_view, 8> VOWELS = {"a", "e",  "i",  "o",
                                                             "u", "ea", "ou", "ai"};
  static constexpr std::array<std::string_view, 8> CODAS = {"", "", "n", "r", "l", "nd", "t", "ck"};
  std::string syllable(Pick(ONSETS, random));
  syllable += Pick(VOWELS, random);
  syllable += Pick(CODAS, random);
  return syllable;
}

// Frequent words are short.
std::size_t SyllablesAtRank(std::size_t rank, Random& random) {
  constexpr std::size_t LAST_SHORT = 600;
  constexpr std::size_t LAST_MIDDLING = 5000;
  if (rank <= LAST_SHORT) return 1;
  return (rank <= LAST_MIDDLING ? 1 : 2) + random() % 2;
}

// The words of the language in descending order of frequency.
std::vector<std::string> Vocabulary(std::size_t size) {
  Random random(1);
  std::vector<std::string> words;
  std::unordered_set<std::string> known;
  while (words.size() < size) {
    std::string word;
    for (std::size_t left = SyllablesAtRank(words.size() + 1, random); left > 0; --left) {
      word += Syllable(random);
    }
    if (known.insert(word).second) words.push_back(std::move(word));
  }
  return words;
}

// The cumulative sums of the weights.
std::vector<double> WeightSums(std::size_t size) {
  constexpr double FLATTENING = 2.7;
  std::vector<double> sums;
  double sum = 0;
  for (std::size_t rank = 1; rank <= size; ++rank) {
    sums.push_back(sum += 1 / (static_cast<double>(rank) + FLATTENING));
  }
  return sums;
}

std::size_t DrawPlace(const std::vector<double>& weightSums, Random& random) {
  const double share = static_cast<double>(random()) / (static_cast<double>(Random::max()) + 1);
  const auto found =
      std::upper_bound(weightSums.begin(), weightSums.end(), share * weightSums.back());
  return static_cast<std::size_t>(std::min(found, weightSums.end() - 1) - weightSums.begin());
}

std::string_view Ending(Random& random) {
  static constexpr std::array<std::string_view, 40> ENDINGS = {"s", "s", "s", "s", "'s", ",",
                                                               ",", ",", ";", ":", " --"};
  return Pick(ENDINGS, random);  // most of them empty
}

std::string Sentence(const std::vector<std::string>& words, const std::vector<double>& weightSums,
                     Random& random) {
  constexpr std::size_t FEWEST_WORDS = 4;
  std::string sentence;
  for (std::size_t left = FEWEST_WORDS + random() % 24; left > 0; --left) {
    sentence.append(words[DrawPlace(weightSums, random)]).append(Ending(random)).append(" ");
  }
  sentence.append(words[DrawPlace(weightSums, random)]).append(random() % 8 == 0 ? "?" : ".");
  const char first = sentence.front();
  sentence.front() = static_cast<char>(first - 'a' + 'A');
  return sentence;
}

// Replaces the first blank after every seventy characters by CR LF.
std::string InLines(std::string_view paragraph) {
  constexpr std::size_t SHORTEST_LINE = 70;
  std::string lines;
  std::size_t start = 0;
  while (start < paragraph.size()) {
    const std::size_t end = std::min(paragraph.find(' ', start + SHORTEST_LINE), paragraph.size());
    lines.append(paragraph.substr(start, end - start)).append("\r\n");
    start = end + 1;
  }
  return lines;
}

}  // namespace

std::string GeneratedText(const TextShape& shape) {
  const std::vector<std::string> words = Vocabulary(shape.vocabulary);
  const std::vector<double> weightSums = WeightSums(shape.vocabulary);
  Random random(shape.seed);
  std::string text;
  while (text.size() < shape.length) {
    std::string paragraph = Sentence(words, weightSums, random);
    for (std::size_t left = random() % 8; left > 0; --left) {
      paragraph.append(" ").append(Sentence(words, weightSums, random));
    }
    text.append(InLines(paragraph)).append("\r\n");
  }
  return text;
}

std::string RepeatedSentence(std::size_t length) {
  std::string text;
  while (text.size() < length) {
    text += "The keeper of the lamp at harbour end walked home when the tide had turned.\r\n";
  }
  return text;
}

}  // namespace quorvel
