#include "util/md5.h"

#include <algorithm>
#include <bit>
#include <cstring>

// Each of the four rounds uses the sixteen words of a block once, in its own order (`FACTOR * i +
// OFFSET` modulo 16), with its own mixing function and four rotations used in turn. Words are
// assembled and split by shifts, so the result does not depend on the byte order of the machine.

namespace quorvel {
namespace {

constexpr size_t BLOCK_SIZE = 64;
constexpr size_t LENGTH_PLACE = BLOCK_SIZE - 8;  // where the bit count stands in the last block

// The integer part of 2^32 times the absolute value of sin(i + 1).
constexpr std::array<uint32_t, 64> SINES = {
    0xd76aa478, 0xe8c7b756, 0x242070db, 0xc1bdceee, 0xf57c0faf, 0x4787c62a, 0xa8304613, 0xfd469501,
    0x698098d8, 0x8b44f7af, 0xffff5bb1, 0x895cd7be, 0x6b901122, 0xfd987193, 0xa679438e, 0x49b40821,
    0xf61e2562, 0xc040b340, 0x265e5a51, 0xe9b6c7aa, 0xd62f105d, 0x02441453, 0xd8a1e681, 0xe7d3fbc8,
    0x21e1cde6, 0xc33707d6, 0xf4d50d87, 0x455a14ed, 0xa9e3e905, 0xfcefa3f8, 0x676f02d9, 0x8d2a4c8a,
    0xfffa3942, 0x8771f681, 0x6d9d6122, 0xfde5380c, 0xa4beea44, 0x4bdecfa9, 0xf6bb4b60, 0xbebfbc70,
    0x289b7ec6, 0xeaa127fa, 0xd4ef3085, 0x04881d05, 0xd9d4d039, 0xe6db99e5, 0x1fa27cf8, 0xc4ac5665,
    0xf4292244, 0x432aff97, 0xab9423a7, 0xfc93a039, 0x655b59c3, 0x8f0ccc92, 0xffeff47d, 0x85845dd1,
    0x6fa87e4f, 0xfe2ce6e0, 0xa3014314, 0x4e0811a1, 0xf7537e82, 0xbd3af235, 0x2ad7d2bb, 0xeb86d391,
};

using Words = std::array<uint32_t, 16>;

constexpr uint32_t MixF(uint32_t x, uint32_t y, uint32_t z) { return z ^ (x & (y ^ z)); }
// A sum instead of an "or" (the operands share no bit): one half does not depend on the previous
// step, so the processor can compute it early.
constexpr uint32_t MixG(uint32_t x, uint32_t y, uint32_t z) { return (y & ~z) + (x & z); }
constexpr uint32_t MixH(uint32_t x, uint32_t y, uint32_t z) { return x ^ (y ^ z); }
constexpr uint32_t MixI(uint32_t x, uint32_t y, uint32_t z) { return y ^ (x | ~z); }

uint32_t LoadWord(const unsigned char* bytes) {
  return uint32_t{bytes[0]} | uint32_t{bytes[1]} << 8 | uint32_t{bytes[2]} << 16 |
         uint32_t{bytes[3]} << 24;
}

template <auto MIX, size_t NUMBER, size_t FACTOR, size_t OFFSET, int S0, int S1, int S2, int S3>
inline void Round(std::array<uint32_t, 4>& state, const Words& words) {
  auto [a, b, c, d] = state;
  const auto addend = [&words](size_t i) {
    return words[(FACTOR * i + OFFSET) % words.size()] + SINES[NUMBER * words.size() + i];
  };
  for (size_t i = 0; i < words.size(); i += 4) {
    a = b + std::rotl(addend(i) + a + MIX(b, c, d), S0);
    d = a + std::rotl(addend(i + 1) + d + MIX(a, b, c), S1);
    c = d + std::rotl(addend(i + 2) + c + MIX(d, a, b), S2);
    b = c + std::rotl(addend(i + 3) + b + MIX(c, d, a), S3);
  }
  state = {a, b, c, d};
}

void AddBlock(std::array<uint32_t, 4>& state, const unsigned char* block) {
  Words words;
  for (size_t i = 0; i < words.size(); ++i) words[i] = LoadWord(block + 4 * i);
  std::array<uint32_t, 4> mixed = state;
  Round<MixF, 0, 1, 0, 7, 12, 17, 22>(mixed, words);
  Round<MixG, 1, 5, 1, 5, 9, 14, 20>(mixed, words);
  Round<MixH, 2, 3, 5, 4, 11, 16, 23>(mixed, words);
  Round<MixI, 3, 7, 0, 6, 10, 15, 21>(mixed, words);
  for (size_t i = 0; i < state.size(); ++i) state[i] += mixed[i];
}

size_t BufferedBytes(const Md5Context& context) { return context.bitCount / 8 % BLOCK_SIZE; }

}  // namespace

Md5Context Md5Init() { return {}; }

void Md5Update(Md5Context& context, std::string_view bytes) {
  size_t used = BufferedBytes(context);
  context.bitCount += uint64_t{bytes.size()} * 8;
  while (!bytes.empty()) {
    if (used == 0 && bytes.size() >= BLOCK_SIZE) {
      AddBlock(context.state, reinterpret_cast<const unsigned char*>(bytes.data()));
      bytes.remove_prefix(BLOCK_SIZE);
      continue;
    }
    const size_t taken = std::min(BLOCK_SIZE - used, bytes.size());
    std::memcpy(context.buffer.data() + used, bytes.data(), taken);
    bytes.remove_prefix(taken);
    used += taken;
    if (used < BLOCK_SIZE) return;
    AddBlock(context.state, context.buffer.data());
    used = 0;
  }
}

Md5Digest Md5Final(Md5Context context) {
  const uint64_t messageBits = context.bitCount;
  std::string padding = "\x80";
  const size_t used = (BufferedBytes(context) + 1) % BLOCK_SIZE;
  padding.append((LENGTH_PLACE + BLOCK_SIZE - used) % BLOCK_SIZE, '\0');
  for (int shift = 0; shift < 64; shift += 8) {
    padding += static_cast<char>(messageBits >> shift & 0xff);
  }
  Md5Update(context, padding);

  Md5Digest digest;
  for (size_t i = 0; i < digest.size(); ++i) {
    digest[i] = static_cast<uint8_t>(context.state[i / 4] >> (8 * (i % 4)) & 0xff);
  }
  return digest;
}

std::string HexOfBytes(std::span<const uint8_t> bytes, bool withBlanks, bool lowerCase,
                       bool nibblesSwapped) {
  const char* digits = lowerCase ? "0123456789abcdef" : "0123456789ABCDEF";
  std::string text;
  for (const uint8_t byte : bytes) {
    if (withBlanks && !text.empty()) text += ' ';
    const char high = digits[byte >> 4];
    const char low = digits[byte & 15];
    text += nibblesSwapped ? low : high;
    text += nibblesSwapped ? high : low;
  }
  return text;
}

}  // namespace quorvel
