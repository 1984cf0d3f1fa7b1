// Runs of a session, and listing again.

#include <gtest/gtest.h>

#include <chrono>

#include "naive/places.h"
#include "run/word_lists.h"
#include "support/made_texts.h"
#include "support/platform.h"
#include "support/test_run.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

constexpr const char* HARBOUR =
    "the old harbour was silent now\r\nthe old harbour was silent too\r\n";

const std::string NO_COUNTS = "label \nlabel \nlabel \n";
const std::string READING = "+ Reading file ...\n+ Compacting spaces ...\n+ Processing file ...\n";
const std::string ORDERING =
    "+ Applying filters ...\n+ Counting words ...\n+ Ordering by frequency ...\ncounting off\n";

// What is said in a run until it begins its listing.
std::string Start(const std::string& reading, int words, int occurrences) {
  return "stop on\ncounting on\nstop on\n= \n" + NO_COUNTS + reading + ORDERING +
         "label Number of words: " + std::to_string(words) +
         "\nlabel Number of occurrences: " + std::to_string(occurrences) + "\n";
}

// What was said since this was last asked.
std::string News(TestRun& run) { return std::exchange(run.ui.log, ""); }

void Touch(TestRun& run) {
  const fs::path input(run.settings.inputFile);
  fs::last_write_time(input, fs::last_write_time(input) - std::chrono::hours(1));
}

TEST(SessionRun, SaysHowFarItIs) {
  TestRun run(HARBOUR);
  run.settings.createIndexFile = true;
  const std::string listed =
      "+ Creating concordance ...\nlabel \nlabel Number of keywords found: 7\n= [harbour 2]\n"
      "pops up Concordance file written\n";
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_EQ(News(run), Start(READING + "+ Sorting ...\n", 7, 12) + listed + "counting off\n");
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_EQ(News(run), Start("", 7, 12) + listed + "counting off\n");
  EXPECT_EQ(run.session.ListAgain(), RunOutcome::done);
  EXPECT_EQ(News(run),
            "stop on\ncounting off\nlabel Number of words: 7\nlabel Number of occurrences: 12\n" +
                listed);
  run.settings.mode = Mode::search;
  run.settings.extraKeywords = "harb* too";
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_EQ(News(run), Start("", 2, 3) +
                           "+ Getting search results ...\nlabel \n= [harbour 2]\ncounting off\n");
  run.settings.extraKeywords = "whale";
  EXPECT_EQ(run.Go(), RunOutcome::nothingFound);
  EXPECT_EQ(News(run),
            Start("", 0, 0) + "= No words satisfying the conditions were found.\ncounting off\n");
  EXPECT_EQ(run.session.ListAgain(), RunOutcome::nothingFound);
  EXPECT_EQ(News(run), "stop on\n= \n");
}

TEST(SessionRun, SaysWhyItIsRefusedAndKeepsTheLastListing) {
  using enum Mode;
  using Settings = ConcordanceSettings;
  const std::string extension =
      ": This program acts only on text files,\r\nWord DOCX files and HTML files.\n";
  const std::string cannotBe = " file cannot be the same as the ";
  const struct {
    Mode mode;
    std::string Settings::*setting;
    std::string value;  // "@" stands for the folder
    std::string said;
  } rows[] = {
      {create, &Settings::inputFile, "  ", "Quorvel: Input file not specified.\n"},
      {create, &Settings::inputFile, "@a.log", "List words" + extension},
      {create, &Settings::inputFile, "@a.qvl.conc.txt",
       "Invalid input: This is an QVL concordance file.\n"},
      {create, &Settings::inputFile, "@a.qvl.ndx", "Invalid input: This is an QVL index file.\n"},
      {create, &Settings::inputFile, "@none.txt", "Fatal error: File @none.txt not found.\n"},
      {create, &Settings::outputFile, "@./a.txt",
       "Quorvel: The concordance" + cannotBe + "input file.\n"},
      {search, &Settings::searchResultsFile, " @a.txt ",
       "Quorvel: The search results" + cannotBe + "input file.\n"},
      {create, &Settings::keywordsFile, "@a.qvl.ndx",
       "Quorvel: The index" + cannotBe + "keywords file.\n"},
      {search, &Settings::extraKeywords, "",
       "Search: Specify a keywords file or type one or more extra keywords.\n"},
      {create, &Settings::stopWordsFile, "none",
       "Stop words: Stop words file not found:\r\nnone\n"},
      {create, &Settings::extraStopWords, "it's",
       "Character not allowed: The character ' occurs in some stop word\r\n"
       "but is not a character allowed in a word.\n"},
      {create, &Settings::extraKeywords, "a%",
       "Invalid input: The extra keywords textbox contains an inadmissable character: %\n"},
      // Only what a run uses is checked.
      {search, &Settings::extraKeywords, "old", ""},
      {search, &Settings::stopWordsFile, "none", ""},
      {create, &Settings::outputFile, "", ""}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.said);
    TestRun run(HARBOUR);
    const std::string folder = run.folder.Path("");
    run.settings.createIndexFile = true;
    run.settings.extraKeywords = "*";
    EXPECT_EQ(run.Go(), RunOutcome::done);
    const ConcordanceSettings before = run.settings;
    const auto files = run.folder.Files();
    (void)News(run);
    run.settings.mode = row.mode;
    const std::string value = naive::Replace(row.value, "@", folder);
    run.settings.*row.setting = value;
    if (row.said.empty()) {
      run.settings.keywordsFile = folder + "a.qvl.ndx";
      fs::remove(run.settings.keywordsFile);
    }
    EXPECT_EQ(run.Go(), row.said.empty() ? RunOutcome::done : RunOutcome::refused);
    EXPECT_EQ(run.ui.Said(folder), row.said);
    if (row.said.empty()) {
      EXPECT_EQ(run.folder.Files().contains("a.qvl.ndx"), false);  // without a concordance
      continue;
    }
    EXPECT_EQ(run.folder.Files(), files);
    const bool isOfWords = value == "none" || value == "it's" || value == "a%";
    EXPECT_EQ(News(run).ends_with(NO_COUNTS + "counting off\n"), !isOfWords);
    run.settings = before;
    EXPECT_EQ(run.session.ListAgain(), RunOutcome::done);
  }
}

TEST(SessionRun, StopsAtAnyMoment) {
  const std::string_view lastLines[] = {
      "Stopped when reading file.", "Stopped with 7 words found.\r\n", "\r\nListing stopped.\r\n"};
  std::size_t phase = 0;
  int stops[] = {0, 0, 0};
  for (int moment = 1;; ++moment) {
    SCOPED_TRACE(moment);
    TestRun run(HARBOUR);
    run.settings.mode = Mode::search;  // which waits for no digest
    run.settings.extraKeywords = "*";
    run.settings.searchResultsFile = run.settings.outputFile;
    run.ui.stopAtYield = moment;
    const RunOutcome outcome = run.Go();
    if (outcome == RunOutcome::done) {
      // Only while the whole listing is put in its place does a stop come too late.
      EXPECT_TRUE(run.ui.StopRequested());
      break;
    }
    EXPECT_EQ(outcome, RunOutcome::stopped);
    while (phase < 2 && !run.ui.output.ends_with(lastLines[phase])) ++phase;
    ASSERT_TRUE(run.ui.output.ends_with(lastLines[phase])) << run.ui.output;
    const bool listed = phase == 2;
    EXPECT_EQ(run.ui.Said(), "");
    EXPECT_EQ(run.folder.Count(), listed ? 2 : 1);
    EXPECT_EQ(run.ui.labels[Label::numberOfWords].back(), listed ? "Number of words: 7" : "");
    EXPECT_EQ(run.ui.log.ends_with("found.\n" + NO_COUNTS + "counting off\n"), phase == 1);
    if (++stops[phase] == 1 && listed) {
      EXPECT_TRUE(run.Entries().starts_with("[harbour 2]\r\n"));
      EXPECT_EQ(run.Entries().find("[now"), std::string::npos);
    }
    // What was listed can be listed again, whole; what was not can not.
    run.ui.output = "as it was";
    EXPECT_EQ(run.session.ListAgain(), listed ? RunOutcome::done : RunOutcome::nothingToList);
    EXPECT_EQ(run.ui.output == "as it was", !listed);
    EXPECT_EQ(run.Go(), RunOutcome::done);
  }
  EXPECT_GE(stops[0], 2);
  EXPECT_GE(stops[1], 1);
  EXPECT_EQ(stops[2], 7);  // once in each entry
}

TEST(SessionRun, StopsWithOneWordFound) {
  TestRun run("harbour harbour");
  run.ui.events["+ Sorting ..."] = [&run] { run.ui.RequestStop(); };
  EXPECT_EQ(run.Go(), RunOutcome::stopped);
  EXPECT_EQ(run.ui.appends.back(), "Stopped with 1 word found.\r\n");
}

TEST(SessionRun, TellsThatItsInputWentAtTheLastMoment) {
  TestRun run(HARBOUR);
  run.ui.events["label "] = [&run] { fs::remove(run.settings.inputFile); };
  EXPECT_EQ(run.Go(), RunOutcome::refused);
  EXPECT_EQ(run.ui.Said(run.settings.inputFile), "Fatal error: File @ not found.\n");
}

// The digest belongs to the text, whatever becomes of the file meanwhile.
TEST(SessionRun, GivesTheDigestOfTheBytesThatItRead) {
  const std::string digest = "9E693739212B562FC5E90CF3EA378B3D\r\n";
  TestRun run(HARBOUR);
  run.settings.createIndexFile = true;
  run.ui.events["+ Reading file ..."] = [&run] {
    (void)run.folder.Write("a.txt", "another text by now\r\n");
  };
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_NE(run.folder.Read("out.txt").find(digest), std::string::npos);
  EXPECT_TRUE(run.folder.Read("a.qvl.ndx").starts_with(digest));
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_TRUE(run.ui.output.starts_with("[another 1]"));
}

TEST(SessionRun, KeepsTheListingFromALinkToItThatComesLate) {
  SKIP_ON_WINDOWS("links are made otherwise");
  TestRun run(HARBOUR);
  run.settings.createIndexFile = true;
  run.ui.events["pops up Concordance file written"] = [&run] {
    fs::create_symlink("out.txt", run.folder.Path("a.qvl.ndx"));
  };
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_EQ(run.session.Report().fileFault->reason, "concordance file");
  EXPECT_TRUE(run.folder.Read("out.txt").starts_with("Input file: "));
}

// Words that were kept serve the same input, read in the same way.
TEST(SessionRun, ScansAnewWhatHasChanged) {
  const std::string page = "<!DOCTYPE html><head></head><body>caf\xC3\xA9 bar <ul><li>bar</ul> zz";
  const std::string other = "<!DOCTYPE html><head></head><body>a cow is";
  const std::string listed = "bar 2\r\ncaf\xC3 1\r\n\r\n";
  const struct {
    const char* name;
    std::string bytes, entries;
    bool scans;
    bool isUtf8 = false, ignoreLists = false, fromFile = false;
    std::string title = "";  // of a message
  } rows[] = {{"a.htm", page, listed, false},
              {"a.htm", page, "bar 2\r\ncaf\xE9 1\r\n\r\n", true, true, false, false,
               "UTF-8 or ANSI file?"},
              {"a.htm", page, "bar 1\r\ncaf\xC3 1\r\n\r\n", true, false, true},
              {"a.htm", other, "cow 1\r\n\r\n", true},
              {"a.htm", other, "cow 1\r\n\r\n", true, false, false, true, "Bad index file"},
              {"b.htm", page, listed, true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    TestRun run(page, "a.htm");
    run.settings.createIndexFile = true;
    run.settings.contextSize = 0;
    EXPECT_EQ(run.Go(), RunOutcome::done);
    if (row.fromFile) run.session.UseIndexFile();
    run.settings.inputFile = run.folder.Write(row.name, row.bytes);
    Touch(run);
    run.settings.inputIsUtf8 = row.isUtf8;
    run.settings.ignoreLists = row.ignoreLists;
    (void)News(run);
    EXPECT_EQ(run.Go(), RunOutcome::done);
    EXPECT_EQ(News(run).find("+ Sorting") != std::string::npos, row.scans);
    EXPECT_EQ(run.Entries(), row.entries);
    EXPECT_EQ(run.ui.questions.empty() ? "" : run.ui.questions.back().title, row.title);
    EXPECT_TRUE(run.folder.Read("out.txt").starts_with("Input file: " + run.settings.inputFile));
  }
}

// The input was touched, so that its bytes are compared; where it was not, the listing is stopped.
TEST(SessionRun, StopsWhileItComparesTheInput) {
  for (const bool isTouched : {true, false}) {
    TestRun run(HARBOUR);
    run.settings.createIndexFile = true;
    EXPECT_EQ(run.Go(), RunOutcome::done);
    run.session.UseIndexFile();
    EXPECT_EQ(run.Go(), RunOutcome::done);
    const std::string before = run.folder.Read("out.txt");
    if (isTouched) Touch(run);
    run.settings.contextSize = 1;
    run.ui.stopAtYield = run.ui.yields + 1;
    EXPECT_EQ(run.Go(), RunOutcome::stopped);
    EXPECT_EQ(run.ui.output == "Stopped when reading file.", isTouched);
    EXPECT_EQ(run.folder.Read("out.txt") == before, isTouched);
    EXPECT_EQ(run.ui.Said(), "");
    (void)News(run);
    EXPECT_EQ(run.session.ListAgain(), RunOutcome::done);
    EXPECT_EQ(run.Go(), RunOutcome::done);
    EXPECT_EQ(News(run).find("+ Sorting"), std::string::npos);
  }
}

// What a listing again is made of, whatever became of settings and files meanwhile.
TEST(SessionRun, ListsAgainFromTheValuesOfTheListing) {
  using enum RunOutcome;
  using enum Mode;
  const struct {
    const char* name;
    Mode mode;
    RunOutcome outcome;
    void (*meanwhile)(TestRun&);
  } rows[] = {
      {"input gone", create, done, [](TestRun& run) { fs::remove(run.settings.inputFile); }},
      {"words typed", create, done, [](TestRun& run) { run.settings.extraStopWords = "harbour"; }},
      {"other keywords", search, done,
       [](TestRun& run) {
         run.settings.extraKeywords = "zzz";
         EXPECT_TRUE(GetExtraKeywords(run.settings, run.session.Lists().keywords, run.ui));
       }},
      {"other mode", create, nothingToList, [](TestRun& run) { run.settings.mode = Mode::search; }},
      {"its input as its output", create, refused,
       [](TestRun& run) { run.settings.outputFile = run.settings.inputFile; }},
      {"encoding question cancelled", create, nothingToList, [](TestRun& run) {
         run.settings.inputIsUtf8 = true;
         run.ui.answers = {Answer::cancel};
         EXPECT_EQ(run.Go(), refused);
       }}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    TestRun run(HARBOUR);
    run.settings.searchResultsFile = row.mode == search ? run.settings.outputFile : "";
    run.settings.extraKeywords = "*";
    run.settings.mode = row.mode;
    EXPECT_EQ(run.Go(), done);
    const std::string listed = run.folder.Read("out.txt");
    row.meanwhile(run);
    const std::string box = run.ui.output;
    run.settings.contextSize = 0;
    EXPECT_EQ(run.session.ListAgain(), row.outcome);
    const std::string again = run.folder.Read("out.txt");
    EXPECT_EQ(again.substr(0, 80), listed.substr(0, 80));
    EXPECT_EQ(again == listed && run.ui.output == box, row.outcome != done);
    EXPECT_EQ(run.ui.questions.size(), row.outcome == refused ? 1U : run.ui.answers.size());
    if (row.outcome == done) {
      EXPECT_EQ(run.Entries(),
                "harbour 2\r\nnow 1\r\nold 2\r\nsilent 2\r\nthe 2\r\ntoo 1\r\nwas 2\r\n\r\n");
    }
  }
}

}  // namespace
}  // namespace quorvel
