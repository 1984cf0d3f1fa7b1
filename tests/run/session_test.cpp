// What a session does beside its runs: settings, inputs, and ends for want of memory.

#include "run/session.h"

#include <gtest/gtest.h>

#include <new>

#include "run/stop_word_choice.h"
#include "run/word_lists.h"
#include "support/platform.h"
#include "support/test_run.h"

namespace quorvel {
namespace {

TEST(Session, EndsWithoutMemoryAndCanGoOn) {
  const std::pair<const char*, bool> rows[] = {{"+ Reading file ...", false},
                                               {"+ Sorting ...", false},
                                               {"+ Creating concordance ...", false},
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
    // Neither the listing nor the words are kept.
    EXPECT_EQ(run.session.ListAgain(), RunOutcome::nothingToList);
    run.ui.events.clear();
    run.ui.log.clear();
    EXPECT_EQ(run.Go(), RunOutcome::done);
    EXPECT_NE(run.ui.log.find("+ Sorting"), std::string::npos);
  }
  TestRun run("");
  EXPECT_FALSE(run.session.Enter("", [] { throw std::bad_alloc(); }));
  EXPECT_EQ(run.ui.Said(), "Quorvel: There is not enough memory.\n");
}

TEST(Session, DropsTheWordListsOfOtherSettings) {
  const TestFolder folder;
  for (const std::string& path :
       {folder.Write("own.txt", "the\r\n"), StopWordsPath(ALL_LANGUAGES)}) {
    ScriptedConversation ui;
    Session session(ui);
    session.Lists().stopWords.loaded = true;
    session.Lists().keywords.fileKeywords = {u"old"};
    session.Settings().stopWordsFile = path;
    session.TakeLoadedSettings();
    EXPECT_EQ(session.Lists().stopWords.loaded, path == StopWordsPath(ALL_LANGUAGES));
    EXPECT_FALSE(HoldKeywords(session.Lists().keywords));
    EXPECT_EQ(ui.log, "");
  }
}

TEST(Session, RefusesAnInputThatCannotBeUsed) {
  const struct {
    const char* name;
    std::string bytes;
    std::string said;
    std::string checking = "+ Checking file ...\n";
  } rows[] = {
      {"", "", "", ""},
      {"a.qvl.conc.txt", "", "Invalid input: This is an QVL concordance file.\n", ""},
      {"a.txt", "", "Fatal error: File @ is zero-length.\n"},
      {"a.docx", "hello there",
       "Quorvel: The file @\r\nhas a 'docx' extension but does not appear to be an MS Word 'docx' "
       "file.\n",
       ""}};
  for (const auto& row : rows) {
    TestRun run("the old harbour\r\n", "old.txt");
    EXPECT_EQ(run.Go(), RunOutcome::done);
    const bool isNamed = *row.name != '\0';
    run.settings.inputFile = isNamed ? run.folder.Write(row.name, row.bytes) : "";
    run.ui.log.clear();
    run.session.SetInput(Session::InputOrigin::chosen);
    EXPECT_EQ(run.settings.inputFile, "");
    EXPECT_EQ(run.settings.outputFile, run.folder.Path("out.txt"));
    EXPECT_EQ(run.ui.Said(run.folder.Path(row.name)), row.said);
    const std::string asks = isNamed ? "asks " + row.said.substr(0, row.said.find(':')) + "\n" : "";
    EXPECT_EQ(run.ui.log, "= \nlabel \nlabel \nlabel \n" + row.checking + asks);
    EXPECT_EQ(run.session.ListAgain(), RunOutcome::nothingToList);
  }
}

TEST(Session, TakesADocumentByItsFirstBytes) {
  TestRun run("PK\x03\x04 is how one begins", "a.docx");
  run.session.SetInput(Session::InputOrigin::chosen);
  EXPECT_EQ(run.settings.outputFile, run.folder.Path("a.qvl.conc.txt"));
}

TEST(Session, FollowsAnInput) {
  using enum Session::InputOrigin;
  const std::string german = StopWordsPath(LANGUAGES[1]);
  const struct {
    const char* name;
    Session::InputOrigin origin;
    const char* output;
    const char* stopWords;
    bool keepsOutput, keepsStopWords;
  } rows[] = {{"chosen", chosen, "out.txt", "own.txt", false, false},
              {"restored", restored, "out.txt", "own.txt", true, true},
              {"restored without a list", restored, "out.txt", "none", true, false},
              {"restored without an output", restored, "", "own.txt", false, true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    TestRun run("Der Hafen war still, und die Boote lagen in der N\xC3\xA4he. \xE2\x80\x93\r\n");
    (void)run.folder.Write("own.txt", "still\r\n");
    const std::string own = run.folder.Path(row.stopWords);
    run.settings.stopWordsFile = own;
    run.settings.outputFile = row.output;
    run.settings.outputToFileDisabled = true;
    run.session.SetInput(row.origin);
    EXPECT_TRUE(run.settings.inputIsUtf8);
    EXPECT_EQ(run.settings.outputFile,
              row.keepsOutput ? row.output : run.folder.Path("a.qvl.conc.txt"));
    EXPECT_EQ(run.settings.outputToFileDisabled, row.origin == restored);
    EXPECT_EQ(run.settings.stopWordsFile, row.keepsStopWords ? own : german);
    EXPECT_TRUE(run.session.Lists().stopWords.loaded);
    const std::string list =
        StopWordsLoadedText(run.session.Lists().stopWords, run.settings.stopWordsFile);
    EXPECT_EQ(run.ui.Said(), "Stop words loaded: " + list + "\n");
  }
}

// The last run leaves words and a text of another input behind.
TEST(Session, OffersTheIndexOfAnInput) {
  TestRun run("the old harbour\r\n");
  run.settings.createIndexFile = true;
  run.settings.contextSize = 0;
  const std::string other = run.folder.Write("b.txt", "the new cow\r\n");
  for (const std::string& input : {other, run.settings.inputFile}) {
    run.settings.inputFile = input;
    EXPECT_EQ(run.Go(), RunOutcome::done);
  }
  run.settings.inputFile = other;
  run.session.SetInput(Session::InputOrigin::restored);
  EXPECT_EQ(run.ui.questions.back().title, "Index file found");
  run.ui.log.clear();
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_EQ(run.ui.log.find("+ Sorting"), std::string::npos);
  EXPECT_EQ(run.ui.log.find("asks"), std::string::npos);
  EXPECT_EQ(run.ui.output, "cow 1\r\nnew 1\r\n");
}

// What was looked at before the run is looked at again where it is not the same any more.
TEST(Session, ReadsTheInputOfNow) {
  const std::string cow = "the new cow\r\n";
  for (const std::string before : {"", "der Hafen\r\n", "the new cow\r\n"}) {
    SCOPED_TRACE(before);
    TestRun run(before);
    (void)run.folder.Write("a.qvl.ndx", std::string(32, 'A') + "\r\n");
    if (before.empty()) std::filesystem::remove(run.settings.inputFile);
    EXPECT_EQ(run.session.RecognizeLanguage()->code, before.starts_with("der") ? "de" : "en");
    run.session.UseIndexFile();
    const std::string again = run.folder.Path("b.txt");
    if (before == cow) {
      std::filesystem::create_hard_link(run.settings.inputFile, again);
      run.settings.inputFile = again;
    } else {
      (void)run.folder.Write("a.txt", cow);
    }
    run.settings.contextSize = 0;
    EXPECT_EQ(run.Go(), RunOutcome::done);
    EXPECT_TRUE(run.folder.Read("out.txt").starts_with(
        "Input file: " + run.settings.inputFile +
        "\r\nMD5 message digest of input file: " + DigestOf(cow) + "\r\n"));
    EXPECT_EQ(run.Entries(), "cow 1\r\nnew 1\r\nthe 1\r\n\r\n");
  }
}

TEST(Session, KnowsNoLanguageOfWhatCannotBeOpened) {
  SKIP_ON_WINDOWS("links are made otherwise");
  TestRun run("");
  run.settings.inputFile = run.folder.Path("loop.txt");
  std::filesystem::create_symlink("loop.txt", run.settings.inputFile);
  EXPECT_FALSE(run.session.RecognizeLanguage());
  run.session.UseIndexFile();
  EXPECT_EQ(run.ui.Said(), "");
}

}  // namespace
}  // namespace quorvel
