#include "cli/word_lists.h"

#include <gtest/gtest.h>

#include "support/platform.h"
#include "support/run_program.h"

namespace quorvel {

TEST(CommandLineWordLists, AreThoseOfTheLanguageOrTheFile) {
  const std::string german = "der Hund und die Katze sind nicht hier the\r\n";
  const std::string unknown = "zz yy the xqwv\r\n";
  // The options, the text, the listed words, and the last message.
  const std::tuple<std::string, std::string, std::string, std::string> rows[] = {
      {"", german, "Hund 1\nKatze 1\nthe 1\n", ""},
      {"--language de", german, "Hund 1\nKatze 1\nthe 1\n", "stwds_de.txt\n"},
      {"--language all", german, "Hund 1\nKatze 1\n", "stwds_en_de_es_pt_it_fr.txt\n"},
      {"", "zz yy xqwv vwqx\r\n", "vwqx 1\nxqwv 1\n", ""},
      {"--language en -q", unknown, "xqwv 1\n", ""},
      {"--stop-words w.txt", unknown, "the 1\n", "quorvel-cli: One stop word loaded from w.txt\n"},
      {"-k w.txt", unknown, "xqwv 1\n", "quorvel-cli: One keyword word loaded from w.txt\n"},
  };
  const TestFolder folder;
  (void)folder.Write("w.txt", "xqwv\r\n");
  for (const auto& [options, text, words, end] : rows) {
    SCOPED_TRACE(options);
    (void)folder.Write("a.txt", text);
    EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "a.txt -c 0 -o - " + options), 0);
    EXPECT_TRUE(folder.Read("out").ends_with("\n\n" + words + "\n")) << folder.Read("out");
    std::string said = folder.Read("err");
    std::erase(said, '\r');
    EXPECT_TRUE(end.empty() ? said.empty() : said.ends_with(end)) << said;
  }
}

// Saved settings choose the list by the language of the input, unless a file with the name in the
// settings exists.
TEST(CommandLineWordLists, AreThoseOfTheInputsLanguageInSavedSettings) {
  const TestFolder folder;
  (void)folder.Write("en.txt", "the cat and the dog\r\n");
  (void)folder.Write("de.txt", "der Hund und die Katze\r\n");
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "en.txt -c 0 --save-settings s.lvz"), 0);
  const std::string listsGerman = "-s s.lvz de.txt -q -o -";
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, listsGerman), 0);
  EXPECT_TRUE(folder.Read("out").ends_with("\n\nHund 1\nKatze 1\n\n")) << folder.Read("out");
  (void)folder.Write("stwds_auto.txt", "Hund\r\n");
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, listsGerman), 0);
  EXPECT_TRUE(folder.Read("out").ends_with("\n\nder 1\ndie 1\nKatze 1\nund 1\n\n"));
}

// One of the lists for recognising languages cannot be read.
TEST(CommandLineWordLists, AreEnglishWhereTheLanguageIsUnknown) {
  SKIP_ON_WINDOWS("links are for administrators");
  const TestFolder folder;
  const std::string program = folder.Path("cli" + PathOfBytes(QUORVEL_CLI).extension().string());
  std::filesystem::copy_file(QUORVEL_CLI, PathOfBytes(program));
  std::filesystem::create_symlink("/dev/null", folder.Path("stwds_de.txt"));
  (void)folder.Write("a.txt", "the cat and the dog\r\n");
  EXPECT_EQ(RunProgram(folder, program, "a.txt -c 0 -o -"), 0);
  EXPECT_EQ(folder.Read("err"),
            "quorvel-cli: The language of a.txt could not be recognized; English stop words are "
            "used.\n");
  (void)folder.Write("a.txt", "the of and\r\n");
  EXPECT_EQ(RunProgram(folder, program, "a.txt -c 0 -o -"), 3);
  EXPECT_EQ(folder.Read("err"),
            "quorvel-cli: a.txt: No words satisfying the conditions were found.\n");
}

}  // namespace quorvel
