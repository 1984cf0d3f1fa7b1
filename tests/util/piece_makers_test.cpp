#include "util/piece_makers.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quorvel {
namespace {

constexpr std::chrono::milliseconds PATIENCE(1);

// Pieces of very different lengths, so that later ones are made first.
std::string PieceOf(std::size_t i) { return std::string(i % 7 * i % 7 * 1000, 'a') + 'b'; }

PieceMakers::Maker Maker() {
  return [](std::size_t piece, std::string& to) {
    if (piece == 900) throw std::runtime_error("piece 900");
    to += PieceOf(piece);
  };
}

TEST(PieceMakers, HandOverAllPiecesInOrderUpToWhatIsThrown) {
  for (const unsigned threads : {0U, 1U, 5U}) {
    { const PieceMakers unwanted(800, threads, Maker); }
    PieceMakers makers(1000, threads, Maker);
    for (std::size_t piece = 0; piece < 800;) {
      const std::optional<std::string_view> text = makers.Next(PATIENCE);
      if (text) {
        ASSERT_EQ(*text, PieceOf(piece++)) << threads << " threads";
      }
    }
    const auto takeRest = [&makers] {
      while (true) (void)makers.Next(PATIENCE);
    };
    EXPECT_THROW(takeRest(), std::runtime_error) << threads << " threads";
  }
}

}  // namespace
}  // namespace quorvel
