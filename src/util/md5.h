// The MD5 message digest (RFC 1321) of bytes in memory, and bytes as hexadecimal digits.
//
// It shows whether a file is still the one that a concordance was made from. Not for passwords or
// signatures: anyone can construct colliding inputs.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quorvel {

// A digest in progress. A default-constructed context is ready for use.
struct Md5Context {
  std::array<uint32_t, 4> state = {0x67452301, 0xefcdab89, 0x98badcfe, 0x10325476};
  uint64_t bitCount = 0;                      // of all bytes so far, modulo 2^64
  std::array<unsigned char, 64> buffer = {};  // the bytes that do not fill a block yet
};

using Md5Digest = std::array<uint8_t, 16>;

// A context that has seen no bytes.
[[nodiscard]] Md5Context Md5Init();

// Adds `bytes` to the message. The digest does not depend on how a message is split into calls.
void Md5Update(Md5Context& context, std::string_view bytes);

// Returns the digest of all bytes added so far. `context` is a copy, so the caller can add more
// bytes.
[[nodiscard]] Md5Digest Md5Final(Md5Context context);

// Formats each byte as two hexadecimal digits, upper-case, high nibble first, without separators.
// `withBlanks` puts a blank between bytes, `lowerCase` uses "a" to "f", and `nibblesSwapped` puts
// the low nibble first.
[[nodiscard]] std::string HexOfBytes(std::span<const uint8_t> bytes, bool withBlanks,
                                     bool lowerCase, bool nibblesSwapped);

}  // namespace quorvel
