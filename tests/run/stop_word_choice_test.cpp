// The stop-words files that come with the program, and which of them an input gets.

#include "run/stop_word_choice.h"

#include <gtest/gtest.h>

#include "run/word_lists.h"
#include "support/run_program.h"
#include "support/scripted_conversation.h"

namespace quorvel {
namespace {

TEST(StopWordsFiles, AreThoseOfTheGenerator) {
  const TestFolder folder;
  const std::string data = QUORVEL_TEST_DATA "/../../data/";
  ASSERT_EQ(RunProgram(folder, QUORVEL_MAKE_STOP_WORDS, "'" + data + "stopwords' ."), 0);
  for (const Language& language : LANGUAGES) {
    const std::string name(language.stopWordsFile);
    SilentProgress nobody;
    EXPECT_TRUE(ReadInput(data + name, nobody)->View() == folder.Read(name))
        << name << ": ./dev stopwords renews it";
  }
}

TEST(StopWordChoice, ReadsTheListOfTheLanguageUnlessItIsInUse) {
  const std::string english = StopWordsPath(LANGUAGES[0]);
  const std::string german = StopWordsPath(LANGUAGES[1]);
  const std::string all = StopWordsPath(ALL_LANGUAGES);
  const Language missing = {"xx", "None", "none.txt"};
  const std::string question =
      "Stop words: No stop words file is set.\r\nDo you wish to use the English list?\n";
  const struct {
    const char* name;
    std::optional<Language> language;
    std::string inUse;
    bool loaded;
    std::optional<Answer> answer;  // else Enter
    std::string chosen;
    bool reads;
  } rows[] = {{"in use", LANGUAGES[1], german, true, {}, german, false},
              {"named, not read", LANGUAGES[1], german, false, {}, german, true},
              {"all in use", LANGUAGES[1], all, true, {}, all, false},
              {"language unknown, no", {}, "", false, Answer::no, "", false},
              {"language unknown, Enter", {}, "", false, {}, english, true},
              {"its file is missing, yes", missing, german, true, Answer::yes, german, true}};
  for (const auto& row : rows) {
    ConcordanceSettings settings;
    settings.stopWordsFile = row.inUse;
    StopWordList list;
    list.loaded = row.loaded;
    ScriptedConversation ui;
    if (row.answer) ui.answers = {*row.answer};
    ChooseStopWords(row.language, settings, list, ui);
    EXPECT_EQ(settings.stopWordsFile, row.chosen) << row.name;
    EXPECT_EQ(!list.words.empty(), row.reads) << row.name;
    const bool asks = !row.language || row.language->code == missing.code;
    const std::string loaded =
        "Stop words loaded: " + StopWordsLoadedText(list, settings.stopWordsFile) + "\n";
    EXPECT_EQ(ui.Said(), (asks ? question : "") + (row.reads ? loaded : "")) << row.name;
  }
}

}  // namespace
}  // namespace quorvel
