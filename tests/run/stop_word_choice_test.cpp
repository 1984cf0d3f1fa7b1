// The stop-words files that come with the program, and which of them an input gets.

#include "run/stop_word_choice.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "engine/language_recognition.h"
#include "support/run_program.h"
#include "support/scripted_conversation.h"
#include "util/ansi.h"
#include "util/characters.h"

namespace quorvel {
namespace {

constexpr const char* DATA = QUORVEL_TEST_DATA "/../../data/";

// Each word of a language's plain list in lower case and with a first capital.
std::string PlainWords(const Language& language) {
  std::ifstream file(DATA + ("stopwords/" + std::string(language.code)) + ".txt");
  std::string text;
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line.starts_with('#') ? "" : line);
    for (std::string bytes; words >> bytes;) {
      std::u16string word = DecodeUtf8(bytes);
      AppendAnsi(text, word + u", ");
      word.front() = ToUpperCase(word.front());
      AppendAnsi(text, word + u".\r\n");
    }
  }
  return text;
}

TEST(StopWordsFiles, DropEveryWordOfThePlainLists) {
  for (const Language& language : LANGUAGES) {
    const std::string words = PlainWords(language);
    EXPECT_GT(words.size(), 2000U) << language.code;
    for (const Language& list : {language, ALL_LANGUAGES}) {
      const TestFolder folder;
      (void)folder.Write("a.txt", words + "harbour\r\n\r\n");
      const std::string option = " --stop-words '" + StopWordsPath(list) + "'";
      EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "a.txt -q -c 0 -o out.txt" + option), 0);
      const std::string written = folder.Read("out.txt");
      EXPECT_EQ(written.substr(written.find("\r\n\r\n") + 4), "harbour 1\r\n\r\n") << list.name;
    }
  }
}

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

TEST(LanguageRecognition, GoesByTheBeginningOfTheText) {
  const std::string german = "Der Hafen war still, und die Boote lagen in der Nacht am Ufer. ";
  const std::string french = "Le port \xC3\xA9tait calme et les bateaux dormaient dans la nuit. ";
  const std::string filler(RECOGNITION_LENGTH, '.');
  const std::pair<std::string, const char*> rows[] = {
      {"The harbour was still, and the boats lay on the shore that night.", "en"},
      {german, "de"},
      {"El puerto estaba tranquilo y los barcos tambi\xE9n, pero yo no.", "es"},
      {"O porto estava calmo e os barcos dormiam na noite, mas eu n\xE3o.", "pt"},
      {"Il porto era tranquillo e le barche dormivano nella notte, ma io no.", "it"},
      {french, "fr"},
      {"Zzz 123 qqq www", "en"},
      {german + filler + french + french, "de"},
      {"<html><head><title>This is what you and they have been at</title></head><p class=\"the\">" +
           german + filler + french + french,
       "de"}};
  for (const auto& [bytes, code] : rows) {
    const char* name = bytes.starts_with('<') ? "a.htm" : "a.txt";
    EXPECT_EQ(RecognizeInputLanguage(InputBytes(name, bytes))->code, code) << bytes.substr(0, 60);
  }
  EXPECT_EQ(RecognizeInputLanguage(InputBytes("a.docx", "PK\x03\x04 no archive"))->code, "en");
}

TEST(StopWordChoice, ReadsTheListOfTheLanguageUnlessItIsInUse) {
  const std::string english = StopWordsPath(LANGUAGES[0]);
  const std::string german = StopWordsPath(LANGUAGES[1]);
  const std::string all = StopWordsPath(ALL_LANGUAGES);
  const std::string question =
      "Stop words: No stop words file is set.\r\nDo you wish to use the English list?\n";
  const struct {
    const char* name;
    std::optional<Language> language;
    std::string inUse;
    bool loaded;
    Answer answer;
    std::string chosen;
    bool reads;
  } rows[] = {{"none in use", LANGUAGES[1], "", false, Answer::ok, german, true},
              {"in use", LANGUAGES[1], german, true, Answer::ok, german, false},
              {"named, not read", LANGUAGES[1], german, false, Answer::ok, german, true},
              {"another in use", LANGUAGES[1], english, true, Answer::ok, german, true},
              {"all in use", LANGUAGES[1], all, true, Answer::ok, all, false},
              {"language unknown, no", {}, "", false, Answer::no, "", false},
              {"language unknown, yes", {}, "", false, Answer::yes, english, true},
              {"unknown, one in use", {}, german, true, Answer::yes, german, true}};
  for (const auto& row : rows) {
    ConcordanceSettings settings;
    settings.stopWordsFile = row.inUse;
    StopWordList list;
    list.loaded = row.loaded;
    ScriptedConversation ui;
    ui.answers = {row.answer};
    ChooseStopWords(row.language, settings, list, ui);
    EXPECT_EQ(settings.stopWordsFile, row.chosen) << row.name;
    EXPECT_EQ(!list.words.empty(), row.reads) << row.name;
    EXPECT_EQ(ui.Said().starts_with(question), !row.language) << row.name;
  }
}

}  // namespace
}  // namespace quorvel
