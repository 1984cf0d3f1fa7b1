#include "output/context_merger.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

#include "naive/naive_forms.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

constexpr std::u16string_view NO_WORD = u"zzz";  // a word that is in no context

// Contexts made of few pieces, some of which look like markers, so that the base text of one
// context often equals another context.
std::vector<std::string> TangledContexts(std::mt19937& random, bool withMarkers) {
  static constexpr std::array<std::string_view, 6> PARTS = {"a", "b", " (x", " (x2)", "3)", " (y"};
  std::vector<std::string> contexts(random() % 40);
  for (std::string& context : contexts) {
    for (std::size_t left = random() % 4; left > 0; --left)
      context += PARTS[random() % (withMarkers ? PARTS.size() : 2)];
  }
  return contexts;
}

template <typename Char>
std::string Merged(ContextMerger<Char>& merger, const std::vector<std::string>& contexts) {
  std::vector<std::basic_string<Char>> quoted;
  quoted.reserve(contexts.size());
  for (const std::string& context : contexts) quoted.emplace_back(context.begin(), context.end());
  merger.Start(static_cast<std::int32_t>(quoted.size()));
  for (const auto& context : quoted) merger.Add(context);
  std::string text;
  for (const MergedContext<Char>& context : merger.Contexts()) {
    const auto line = TextWithMarker(context);
    text.append("... ").append(line.begin(), line.end()).append("\r\n");
  }
  return text;
}

std::string MergedNaively(const std::vector<std::string>& contexts, bool countRepeats) {
  ConcordanceSettings settings;
  settings.showFrequencies = countRepeats;
  std::vector<std::u16string> decoded;
  decoded.reserve(contexts.size());
  for (const std::string& context : contexts) decoded.push_back(DecodeAnsi(context));
  const std::string entry =
      EncodeAnsi(naive::ComposeEntry(std::u16string(NO_WORD), decoded, settings));
  return entry.substr(entry.find("]\r\n") + 3);
}

TEST(ContextMerger, IsItsNaiveForm) {
  std::mt19937 random(1);
  for (int choice = 0; choice < 4; ++choice) {
    const bool countRepeats = choice % 2 == 0;
    const bool withMarkers = choice < 2;
    ContextMerger<char> merger(countRepeats, withMarkers, RandomHashSeed());
    ContextMerger<char16_t> wideMerger(countRepeats, withMarkers, RandomHashSeed());
    for (int i = 0; i < 1500; ++i) {
      const std::vector<std::string> contexts = TangledContexts(random, withMarkers);
      ASSERT_EQ(Merged(merger, contexts), MergedNaively(contexts, countRepeats))
          << testing::PrintToString(contexts);
      ASSERT_EQ(Merged(wideMerger, contexts), Merged(merger, contexts));
    }
  }
}

// So many contexts that some must have the same 32-bit hash.
TEST(ContextMerger, TellsContextsOfOneHashApart) {
  constexpr std::int32_t MANY = 300000;
  std::vector<std::string> contexts(MANY);
  for (int i = 0; i < MANY; ++i) contexts[static_cast<std::size_t>(i)] = std::to_string(i);
  ContextMerger<char> merger(true, false, RandomHashSeed());
  merger.Start(MANY);
  for (const std::string& context : contexts) merger.Add(context);
  EXPECT_EQ(merger.Contexts().size(), contexts.size());
}

}  // namespace
}  // namespace quorvel
