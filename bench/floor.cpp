#include "floor.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <vector>

#include "files/output_file.h"
#include "files/read_file.h"
#include "util/large_pages.h"
#include "util/text_hash.h"

namespace quorvel {
namespace {

constexpr std::array<bool, 256> MakeLetters() {
  std::array<bool, 256> letters{};
  for (std::size_t ch = 'a'; ch <= 'z'; ++ch) letters[ch] = letters[ch - 'a' + 'A'] = true;
  return letters;
}

constexpr std::array<bool, 256> LETTERS = MakeLetters();

bool IsLetter(char ch) { return LETTERS[static_cast<std::uint8_t>(ch)]; }

}  // namespace

bool WriteFloor(const std::string& input, const std::string& output) {
  constexpr std::size_t SHORTEST_WORD = 3;
  constexpr std::size_t SLICE = 60;
  constexpr std::size_t MOST_PER_BYTE = 12;  // ten for words of five letters
  constexpr std::size_t COUNTERS = 65536;
  SilentProgress nobody;
  const HashSeed seed = RandomHashSeed();
  const Result<InputBytes> file = ReadInput(input, nobody);
  if (!file) return false;
  const std::string_view text = file->View();
  std::vector<std::uint32_t> counts(COUNTERS);
  std::string slices;
  ReserveLarge(slices, MOST_PER_BYTE * text.size());
  std::size_t end = 0;
  for (std::size_t begin = 0; begin < text.size(); begin = end + 1) {
    for (end = begin; end < text.size() && IsLetter(text[end]);) ++end;
    if (end - begin < SHORTEST_WORD) continue;
    ++counts[HashOf(text.substr(begin, end - begin), seed) % COUNTERS];
    slices += text.substr(begin, SLICE);
  }
  benchmark::DoNotOptimize(counts.data());
  OutputFile written(output, {});
  return written.Write(slices) && written.Commit();
}

}  // namespace quorvel
