#include "run/session.h"

#include <gtest/gtest.h>

#include <new>

#include "run/stop_word_choice.h"
#include "support/test_run.h"

namespace quorvel {

TEST(Session, EndsWithoutMemoryAndCanGoOn) {
  const std::pair<const char*, bool> rows[] = {{"+ Reading file ...", false},
                                               {"+ Creating concordance ...", true}};
  for (const auto& [moment, isAgain] : rows) {
    SCOPED_TRACE(moment);
    TestRun run("the cat and the dog\r\n");
    run.settings.createIndexFile = true;
    if (isAgain) (void)run.Go();
    const auto files = run.folder.Files();
    run.ui.events[moment] = [] { throw std::bad_alloc(); };
    EXPECT_EQ(isAgain ? run.session.ListAgain() : run.Go(), RunOutcome::failed);
    EXPECT_EQ(run.ui.Said(run.settings.inputFile),
              "Quorvel: There is not enough memory for\r\n@.\n");
    EXPECT_TRUE(run.ui.log.ends_with("counting off\n= \nlabel \nlabel \nlabel \nasks Quorvel\n"));
    EXPECT_EQ(run.folder.Files(), files);
    // Neither the listing nor the words stay in memory.
    EXPECT_EQ(run.session.ListAgain(), RunOutcome::nothingToList);
    run.ui.events.clear();
    run.ui.log.clear();
    EXPECT_EQ(run.Go(), RunOutcome::done);
    EXPECT_NE(run.ui.log.find("+ Sorting"), std::string::npos);
  }
}

TEST(Session, RefusesAnInputThatCannotBeUsed) {
  const std::tuple<const char*, std::string, std::string, std::string> rows[] = {
      {"", "", "", ""},
      {"a.qvl.conc.txt", "", "Invalid input: This is an QVL concordance file.\n", ""},
      {"a.txt", "", "Fatal error: File @ is zero-length.\n", "+ Checking file ...\n"},
      {"a.docx", "hello there",
       "Quorvel: The file @\r\nhas a 'docx' extension but does not appear to be an MS Word 'docx' "
       "file.\n",
       ""}};
  for (const auto& [name, bytes, said, begin] : rows) {
    TestRun run("the old harbour\r\n", "old.txt");
    EXPECT_EQ(run.Go(), RunOutcome::done);
    run.settings.inputFile = *name == '\0' ? "" : run.folder.Write(name, bytes);
    run.ui.log.clear();
    run.session.SetInput(Session::InputOrigin::chosen);
    EXPECT_EQ(run.settings.inputFile, "");
    EXPECT_EQ(run.ui.Said(run.folder.Path(name)), said);
    EXPECT_TRUE(run.ui.log.starts_with("= \nlabel \nlabel \nlabel \n" + begin));
    EXPECT_EQ(run.session.ListAgain(), RunOutcome::nothingToList);
  }
  TestRun run("PK\x03\x04 is how a document begins", "a.docx");
  run.session.SetInput(Session::InputOrigin::chosen);
  EXPECT_EQ(run.settings.outputFile, run.folder.Path("a.qvl.conc.txt"));
  // A packed document is not checked like a text. ODT counts as packed only in the Unicode reading.
  for (const Reading reading : {Reading::unicode, Reading::windows1252}) {
    TestRun odt("PK\x03\x04 is how a document begins", "a.odt");
    odt.session.ChangeReading(reading);
    odt.session.SetInput(Session::InputOrigin::chosen);
    const bool isChecked = odt.ui.log.find("+ Checking file") != std::string::npos;
    EXPECT_EQ(isChecked, reading == Reading::windows1252);
  }
}

// The run tells later what is wrong with such an input.
TEST(Session, TakesAnInputThatIsNoFileForEnglish) {
  TestRun run("das Haus und der Hund\r\n");
  for (const std::string& path : {run.folder.Path("none.txt"), run.folder.Path("")}) {
    run.settings.inputFile = path;
    EXPECT_EQ(run.session.RecognizeLanguage()->code, "en") << path;
  }
}

TEST(Session, LoadsTheSettingsThatItSaved) {
  TestRun run("the sea\r\n");
  const std::string path = run.folder.Path("s.lvz");
  run.settings.contextSize = 7;
  EXPECT_EQ(run.session.SaveSettings(path), "");
  run.settings.contextSize = 2;
  EXPECT_EQ(run.session.LoadSettings(path, false)->errorText, "");
  EXPECT_EQ(run.settings.contextSize, 7);
}

TEST(Session, HasNoKeywordsOfAFileAfterSettingsAreLoaded) {
  TestRun run("the sea\r\n");
  run.session.Lists().keywords.fileKeywords = {u"sea"};
  run.session.TakeLoadedSettings();
  EXPECT_TRUE(run.session.Lists().keywords.fileKeywords.empty());
}

TEST(Session, ReadsTheWordsOfAllLanguagesThatASettingsFileNames) {
  for (const Language& language : {ALL_LANGUAGES, LANGUAGES[0]}) {
    TestRun run("the sea\r\n");
    run.settings.stopWordsFile = StopWordsPath(language);
    run.session.TakeLoadedSettings();
    EXPECT_EQ(run.session.Lists().stopWords.loaded, language.code == ALL_LANGUAGES.code);
  }
}

TEST(Session, TakesTheWordsOfTheIndexFileBesideAnInput) {
  TestRun run("the harbour\r\n");
  run.settings.createIndexFile = true;
  EXPECT_EQ(run.Go(), RunOutcome::done);
  for (const bool isThere : {true, false}) {
    if (!isThere) fs::remove(run.folder.Path("a.qvl.ndx"));
    ScriptedConversation ui;
    Session session(ui);
    session.Settings() = run.settings;
    session.Settings().createIndexFile = false;
    session.SetInput(Session::InputOrigin::chosen);
    EXPECT_EQ(session.RunConcordance(), RunOutcome::done);
    EXPECT_EQ(ui.log.find("+ Sorting") == std::string::npos, isThere) << ui.log;
  }
}

// Two files can have the same length and time.
TEST(Session, ReadsAnotherInputAnew) {
  TestRun run("the harbour\r\n");
  run.session.SetInput(Session::InputOrigin::chosen);
  const std::string other = run.folder.Write("b.txt", "the seaside\r\n");
  fs::last_write_time(other, fs::last_write_time(run.settings.inputFile));
  run.settings.inputFile = other;
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_NE(run.ui.output.find("[seaside 1]"), std::string::npos) << run.ui.output;
}

TEST(Session, ReadsTheStopWordsAgainAfterAChangeOfTheReading) {
  TestRun run("ağaç bar\r\n");
  run.settings.inputIsUtf8 = true;
  run.settings.stopWordsFile = run.folder.Write("own.txt", "ağaç\r\n");
  EXPECT_EQ(run.Go(), RunOutcome::done);
  run.session.ChangeReading(Reading::unicode);
  EXPECT_EQ(run.Go(), RunOutcome::done);
  const std::string listed = run.ListedText();
  EXPECT_NE(listed.find("[bar 1]"), std::string::npos) << listed;
  EXPECT_EQ(listed.find("\r\n[a"), std::string::npos) << listed;
}

TEST(Session, FollowsAnInput) {
  using enum Session::InputOrigin;
  const std::tuple<Session::InputOrigin, const char*, const char*> rows[] = {
      {chosen, "out.txt", "own.txt"}, {restored, "out.txt", "none"}, {restored, "", "own.txt"}};
  for (const auto& [origin, output, stopWords] : rows) {
    SCOPED_TRACE(output);
    TestRun run("Der Hafen war still, und die Boote lagen in der N\xC3\xA4he. \xE2\x80\x93\r\n");
    const std::string own = run.folder.Write("own.txt", "still\r\n");
    run.settings.stopWordsFile = run.folder.Path(stopWords);
    run.settings.outputFile = output;
    run.settings.outputToFileDisabled = true;
    run.session.SetInput(origin);
    EXPECT_TRUE(run.settings.inputIsUtf8);
    EXPECT_EQ(run.settings.outputFile,
              std::string_view(stopWords) == "none" ? output : run.folder.Path("a.qvl.conc.txt"));
    EXPECT_EQ(run.settings.outputToFileDisabled, origin == restored);
    EXPECT_EQ(run.settings.stopWordsFile, *output == '\0' ? own : StopWordsPath(LANGUAGES[1]));
    EXPECT_EQ(run.ui.log.find("asks"), run.ui.log.rfind("asks Stop words loaded"));
  }
}

}  // namespace quorvel
