// The stop-words files that come with the program, and which of them an input gets.

#include "run/stop_word_choice.h"

#include <gtest/gtest.h>

#include "engine/language_recognition.h"
#include "run/word_lists.h"
#include "support/run_program.h"
#include "support/scripted_conversation.h"

namespace quorvel {
namespace {

constexpr const char* DATA = QUORVEL_TEST_DATA "/../../data/";

TEST(StopWordsFiles, AreThoseOfTheGenerator) {
  const TestFolder folder;
  ASSERT_EQ(RunProgram(folder, QUORVEL_MAKE_STOP_WORDS, std::string("'") + DATA + "stopwords' ."),
            0);
  for (const Language& language : LANGUAGES) {
    const std::string name(language.stopWordsFile);
    SilentProgress nobody;
    EXPECT_TRUE(ReadInput(DATA + name, nobody)->View() == folder.Read(name))
        << name << ": ./dev stopwords renews it";
  }
  EXPECT_EQ(folder.Count(), 7 + 2);  // and what the generator said
}

TEST(StopWordChoice, GoesByTheBeginningOfTheText) {
  const std::string german = "Der Hafen war still, und die Boote lagen in der Nacht am Ufer. ";
  const std::string french = "Le port \xC3\xA9tait calme et les bateaux dormaient dans la nuit. ";
  const std::string filler(RECOGNITION_LENGTH - german.size(), '.');
  const std::pair<std::string, const char*> rows[] = {
      {"The harbour was still, and the boats lay on the shore that night.", "en"},
      {french, "fr"},
      {"Zzz 123 qqq www", "en"},
      {german + filler + french + french, "de"}};
  for (const auto& [bytes, code] : rows) {
    EXPECT_EQ(RecognizeInputLanguage(InputBytes("a.txt", bytes))->code, code);
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
  } rows[] = {{"none in use", LANGUAGES[1], "", false, {}, german, true},
              {"in use", LANGUAGES[1], german, true, {}, german, false},
              {"named, not read", LANGUAGES[1], german, false, {}, german, true},
              {"another in use", LANGUAGES[1], english, true, {}, german, true},
              {"all in use", LANGUAGES[1], all, true, {}, all, false},
              {"language unknown, no", {}, "", false, Answer::no, "", false},
              {"language unknown, Enter", {}, "", false, {}, english, true},
              {"its file is missing, no", missing, german, true, Answer::no, german, false},
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
