// The stop-words files of the program, and which of them is chosen for an input.

#include "run/stop_word_choice.h"

#include <gtest/gtest.h>

#include "run/word_lists.h"
#include "support/run_program.h"
#include "support/scripted_conversation.h"

namespace quorvel {

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

TEST(StopWordChoice, RecognizesTheLanguageByTheBeginning) {
  const auto languages = ReadLanguages();
  for (const Reading reading : {Reading::windows1252, Reading::unicode}) {
    for (const std::size_t behind : {65536, 65537}) {
      const std::string text = std::string(behind - 3, '.') + "wir sind";
      EXPECT_EQ(RecognizeInputLanguage({"a.txt", text}, reading, *languages).code,
                behind == 65536 ? "de" : "en");
    }
    const std::string utf16("\xFF\xFEw\0i\0r\0", 8);
    EXPECT_EQ(RecognizeInputLanguage({"a.txt", utf16}, reading, *languages).code,
              reading == Reading::unicode ? "de" : "en");
  }
}

TEST(StopWordChoice, ReadsTheListOfTheLanguageUnlessItIsInUse) {
  const std::string english = StopWordsPath(LANGUAGES[0]);
  const std::string german = StopWordsPath(LANGUAGES[1]);
  const std::string all = StopWordsPath(ALL_LANGUAGES);
  const Language missing = {"xx", "None", "none.txt"};
  const std::string question =
      "Stop words: No stop words file is set.\r\nDo you wish to use the English list?\n";
  // The list in use and whether it is loaded; the answer, otherwise the preset; the chosen list,
  // and whether it is read.
  using Row = std::tuple<const char*, std::optional<Language>, std::string, bool,
                         std::optional<Answer>, std::string, bool>;
  const Row rows[] = {
      {"in use", LANGUAGES[1], german, true, {}, german, false},
      {"named, not read", LANGUAGES[1], german, false, {}, german, true},
      {"all in use", LANGUAGES[1], all, true, {}, all, false},
      {"language unknown, no", {}, "", false, Answer::no, "", false},
      {"language unknown, Enter", {}, "", false, {}, english, true},
      {"its file is missing, yes", missing, german, true, Answer::yes, german, true}};
  for (const auto& [name, language, inUse, loaded, answer, chosen, reads] : rows) {
    ConcordanceSettings settings;
    settings.stopWordsFile = inUse;
    StopWordList list;
    list.loaded = loaded;
    ScriptedConversation ui;
    if (answer) ui.answers = {*answer};
    ChooseStopWords(language, settings, list, ui);
    EXPECT_EQ(settings.stopWordsFile, chosen) << name;
    EXPECT_EQ(!list.words.empty(), reads) << name;
    const bool asks = !language || language->code == missing.code;
    const std::string told =
        "Stop words loaded: " + StopWordsLoadedText(list, settings.stopWordsFile) + "\n";
    EXPECT_EQ(ui.Said(), (asks ? question : "") + (reads ? told : "")) << name;
  }
}

}  // namespace quorvel
