#include "util/worker_pool.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace quorvel {
namespace {

constexpr std::chrono::milliseconds PATIENCE(1);

// Pieces of very different lengths, so that later ones are finished first.
std::string PieceOf(std::size_t i) { return std::string(i % 7 * i % 7 * 1000, 'a') + 'b'; }

WorkerPool::Maker Maker() {
  return [](std::size_t piece, std::string& to) {
    if (piece == 900) throw std::runtime_error("piece 900");
    to += PieceOf(piece);
  };
}

TEST(WorkerPool, HandsOverAllPiecesInOrderUpToWhatIsThrown) {
  for (const unsigned threads : {0U, 1U, 5U}) {
    { const WorkerPool unwanted(800, threads, Maker); }
    WorkerPool pool(1000, threads, Maker);
    for (std::size_t piece = 0; piece < 800;) {
      const std::optional<std::string_view> text = pool.Next(PATIENCE);
      if (text) {
        ASSERT_EQ(*text, PieceOf(piece++)) << threads << " threads";
      }
    }
    const auto takeRest = [&pool] {
      while (true) (void)pool.Next(PATIENCE);
    };
    EXPECT_THROW(takeRest(), std::runtime_error) << threads << " threads";
  }
}

}  // namespace
}  // namespace quorvel
