#include "util/hash_seed.h"

#include <chrono>
#include <exception>
#include <memory>
#include <random>

namespace quorvel {
namespace {

HashSeed SeedOfTheMoment() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
  const auto memory = std::make_unique<char>();
  std::mt19937_64 numbers(static_cast<std::uint64_t>(now) ^
                          reinterpret_cast<std::uintptr_t>(memory.get()));  // NOLINT(*-cast)
  HashSeed seed{};
  for (std::uint64_t& number : seed) number = numbers();
  return seed;
}

}  // namespace

HashSeed RandomHashSeed() {
  try {
    std::random_device system;
    std::uniform_int_distribution<std::uint64_t> any;
    HashSeed seed{};
    for (std::uint64_t& number : seed) number = any(system);
    return seed;
  } catch (const std::exception&) {
    return SeedOfTheMoment();
  }
}

}  // namespace quorvel
