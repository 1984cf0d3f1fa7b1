// Whole runs on texts of many kinds, against the slow, obvious form.

#include <gtest/gtest.h>

#include "naive/naive_forms.h"
#include "run/run_driver.h"
#include "support/scripted_interface.h"
#include "support/test_folder.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

std::string Repeated(const std::string& part, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += part;
  return text;
}

std::string AllBytes() {
  std::string text;
  for (int a = 1; a < 256; ++a) text += "x" + std::string(1, static_cast<char>(a)) + "yz\r\n";
  return text + text;
}

std::string Story() {
  const TestFolder nowhere;
  std::ifstream file(QUORVEL_TEST_DATA "/../../data/sample/the-lamp-at-harbour-end.txt",
                     std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string UpperCase(std::string text) {
  for (char& ch : text) ch = static_cast<char>(ch >= 'a' && ch <= 'z' ? ch - 'a' + 'A' : ch);
  return text;
}

std::string WithoutLineEnds(std::string text) {
  std::erase(text, '\r');
  return text;
}

std::string WordList() {
  std::string text;
  for (int i = 0; i < 500; ++i) text += "word" + std::string(1, char('a' + i % 7)) + "s\r\n";
  return text;
}

TEST(TextKinds, ComeOutAsTheSlowFormHasThem) {
  const std::string story = Story();
  ASSERT_GT(story.size(), 8000U);
  const struct {
    const char* name;
    std::string text;
  } rows[] = {
      {"story", story},
      {"all capitals", UpperCase(story)},
      {"no line ends", WithoutLineEnds(story)},
      {"one word", "harbour"},
      {"one word and a blank", "harbour "},
      {"two words", "harbour lamp"},
      {"one sentence again and again", Repeated("The lamp is lit, come home by it. ", 300)},
      {"the same, a line each", Repeated("The lamp is lit, come home.\r\n", 300)},
      {"word list", WordList()},
      {"every byte", AllBytes()},
      {"only line ends", "\r\n\r\n\r\n"},
      {"markers and marks in the text",
       Repeated("foo (x2) lamps \xBBs \xABlamp\xBB foo lamp / / foo (x3) -- x12 end. ", 30)},
      {"long words", Repeated(std::string(31, 'b') + "a " + std::string(29, 'b') + "a ", 9)},
      {"hyphens", Repeated("well-known -- co-op-- <!--note--> --end- ---- 3-d ", 20)}};
  for (const auto& row : rows) {
    for (const int contextSize : {0, 1, 5, 9}) {
      for (const bool lineBreaks : {false, true}) {
        SCOPED_TRACE(std::string(row.name) + ", context " + std::to_string(contextSize) +
                     (lineBreaks ? ", line breaks" : ""));
        const TestFolder folder;
        RunState state;
        state.settings.inputFile = folder.Write("a.txt", row.text);
        state.settings.contextSize = contextSize;
        state.settings.showLineBreaks = lineBreaks;
        state.settings.allowWordsWithNumerals = true;
        ScriptedInterface ui;
        const RunOutcome outcome = RunConcordance(state, ui);
        const std::u16string expected = naive::ListWords(state.documentText, state.settings);
        EXPECT_EQ(outcome, expected.empty() ? RunOutcome::nothingFound : RunOutcome::done);
        EXPECT_TRUE(DecodeAnsi(state.outputText) == expected);
      }
    }
  }
}

}  // namespace
}  // namespace quorvel
