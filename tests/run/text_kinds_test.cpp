// Whole runs on texts of many kinds, against the slow, obvious form.

#include <gtest/gtest.h>

#include "files/read_file.h"
#include "naive/naive_forms.h"
#include "support/made_texts.h"
#include "support/test_run.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

std::string AllBytes() {
  std::string text;
  for (int a = 1; a < 256; ++a) text += "x" + std::string(1, static_cast<char>(a)) + "yz\r\n";
  return text + text;
}

// More words than the look-ups by spelling have room for at first.
std::string ManyWords() {
  std::string text;
  for (int n = 10000; n < 15000; ++n) text += "w" + std::to_string(n) + " ";
  return text + text;
}

TEST(TextKinds, ComeOutAsTheSlowFormHasThem) {
  const std::string story =
      *ReadFileBytes(QUORVEL_TEST_DATA "/../../data/sample/the-lamp-at-harbour-end.txt", 1U << 20U);
  ASSERT_GT(story.size(), 8000U);
  const std::pair<const char*, std::string> rows[] = {
      {"story", story},
      {"one word", "harbour"},
      {"one sentence again and again", Repeated("The lamp is lit, come home by it. ", 300)},
      {"every byte", AllBytes()},
      {"many words", ManyWords()},
      {"only line ends", "\r\n\r\n\r\n"},
      {"long words", Repeated(std::string(31, 'b') + "a " + std::string(29, 'b') + "a ", 9)},
      {"hyphens", Repeated("well-known -- co-op-- <!--note--> --end- ---- 3-d ", 20)}};
  for (const auto& [name, bytes] : rows) {
    for (const int contextSize : {0, 1, 5, 9}) {
      for (const bool lineBreaks : {false, true}) {
        SCOPED_TRACE(name + (", context " + std::to_string(contextSize)));
        TestRun run(bytes);
        run.settings.contextSize = contextSize;
        run.settings.showLineBreaks = lineBreaks;
        run.settings.allowWordsWithNumerals = true;
        const RunOutcome outcome = run.Go();
        const std::u16string expected =
            naive::ListWords(run.session.CurrentListing()->Source().documentText, run.settings);
        EXPECT_EQ(outcome, expected.empty() ? RunOutcome::nothingFound : RunOutcome::done);
        EXPECT_TRUE(DecodeAnsi(run.Entries()) ==
                    (expected.empty() ? expected : expected + u"\r\n"));
      }
    }
  }
}

}  // namespace
}  // namespace quorvel
