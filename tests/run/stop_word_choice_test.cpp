// The stop-words files that come with the program, and which of them an input gets.

#include "run/stop_word_choice.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "engine/language_recognition.h"
#include "files/file_system.h"
#include "support/run_program.h"
#include "support/test_run.h"
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
      TestRun run(words + "harbour\r\n\r\n");
      run.settings.contextSize = 0;
      AttemptToReadStopWords(StopWordsPath(list), run.settings, run.state.lists.stopWords, run.ui);
      (void)run.Go();
      EXPECT_EQ(run.state.outputText, "harbour 1\r\n") << list.name;
    }
  }
}

TEST(StopWordsFiles, AreThoseOfTheGenerator) {
  const TestFolder folder;
  ASSERT_EQ(RunProgram(folder, QUORVEL_MAKE_STOP_WORDS, std::string("'") + DATA + "stopwords' ."),
            0);
  for (const Language& language : LANGUAGES) {
    const std::string name(language.stopWordsFile);
    EXPECT_TRUE(ReadFileBytes(DATA + name).bytes == folder.Read(name))
        << name << ": ./dev stopwords renews it";
  }
  EXPECT_EQ(folder.Count(), 7 + 2);  // and what the generator said
}

TEST(LanguageRecognition, GoesByTheBeginningOfTheText) {
  const std::string german = "Der Hafen war still, und die Boote lagen in der Nacht am Ufer. ";
  const std::string french = "Le port \xC3\xA9tait calme et les bateaux dormaient dans la nuit. ";
  const std::string filler(RECOGNITION_LENGTH, '.');
  ScriptedInterface ui;
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
    const TestFolder folder;
    const char* name = bytes.starts_with('<') ? "a.htm" : "a.txt";
    EXPECT_EQ(RecognizeInputLanguage(folder.Write(name, bytes), ui)->code, code)
        << bytes.substr(0, 60);
  }
  EXPECT_EQ(RecognizeInputLanguage("/no/such/file.docx", ui)->code, "en");
  EXPECT_EQ(RecognizeInputLanguage("/proc/self/mem", ui), std::nullopt);
  EXPECT_EQ(ui.Said(), "");
}

}  // namespace
}  // namespace quorvel
