#include "output/context_window.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

// The context of the first "dog", apart at its word and whole.
std::string ContextOfDog(std::string_view text, const ContextOptions& options) {
  const std::size_t place = text.find("dog");
  const auto position = static_cast<std::int64_t>(place) + 1;
  const ContextCutter<char> cutter(text, options);
  std::string copies;
  copies.reserve(2 * cutter.LongestContext(3));
  const ContextParts parts = cutter.CutApart(position, 3, {place, place + 3}, copies);
  return std::string(parts.left) + "|" + std::string(parts.right) + " = " +
         std::string(cutter.Cut(position, 3, copies));
}

TEST(ContextWindow, IsCutAtItsWords) {
  const struct {
    const char* name;
    std::string text;
    int contextSize;
    std::string expected;
    bool showLineBreaks = false;
  } rows[] = {
      {"in the middle", "to us a dog is it so", 2, "us a | is it = us a dog is it"},
      {"at the front", "dog is it so we go", 2, "| is it so we = dog is it so we"},
      {"at the end", "we go to us a dog", 2, "us a| = us a"},
      {"line breaks", "it / is / dog / so / to us", 2, " is | so to =  is dog so to"},
      {"shown", "it / is / dog / so / to us", 2, " / is / | / so / to =  / is / dog / so / to",
       true},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ContextOfDog(row.text, {row.contextSize, row.showLineBreaks}), row.expected)
        << row.name;
  }
}

}  // namespace
}  // namespace quorvel
