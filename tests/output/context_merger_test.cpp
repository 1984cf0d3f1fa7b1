#include "output/context_merger.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

#include "naive/naive_forms.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

constexpr std::u16string_view NO_WORD = u"zzz";  // that stands in no context

// Contexts of few pieces, some of which look like markers, so that base texts meet whole ones.
std::vector<std::string> TangledContexts(std::mt19937& random) {
  static constexpr std::array<std::string_view, 6> PARTS = {"a", "b", " (x", " (x2)", "3)", " (y"};
  std::vector<std::string> contexts(random() % 40);
  for (std::string& context : contexts) {
    for (std::size_t left = random() % 4; left > 0; --left)
      context += PARTS[random() % PARTS.size()];
  }
  return contexts;
}

std::string Merged(ContextMerger& merger, const std::vector<std::string>& contexts) {
  merger.Start(static_cast<std::int32_t>(contexts.size()));
  for (const std::string& context : contexts) merger.Add(context);
  std::string text;
  for (const MergedContext& context : merger.Contexts()) {
    text += "... " + TextWithMarker(context) + "\r\n";
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
  for (const bool countRepeats : {true, false}) {
    ContextMerger merger(countRepeats, true, RandomHashSeed());
    for (int i = 0; i < 4000; ++i) {
      const std::vector<std::string> contexts = TangledContexts(random);
      ASSERT_EQ(Merged(merger, contexts), MergedNaively(contexts, countRepeats))
          << testing::PrintToString(contexts);
    }
  }
}

}  // namespace
}  // namespace quorvel
