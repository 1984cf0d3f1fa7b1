#include <gtest/gtest.h>

#include <chrono>

#include "naive/places.h"
#include "run/word_lists.h"
#include "support/platform.h"
#include "support/test_run.h"

namespace quorvel {
constexpr const char* HARBOUR =
    "the old harbour was silent now\r\nthe old harbour was silent too\r\n";

const std::string NO_COUNTS = "label \nlabel \nlabel \n";

TEST(SessionRun, SaysHowFarItIs) {
  TestRun run(HARBOUR);
  const std::string begin = "stop on\ncounting on\nstop on\n= \n" + NO_COUNTS;
  const std::string ordering =
      "+ Applying filters ...\n+ Counting words ...\n+ Ordering by frequency ...\ncounting off\n";
  const std::string listed =
      "label Number of words: 7\nlabel Number of occurrences: 12\n+ Creating concordance ...\n"
      "label \nlabel Number of keywords found: 7\n= [harbour 2]\n"
      "pops up Concordance file written\n";
  const std::string read = "+ Reading file ...\n+ Compacting spaces ...\n+ Processing file ...\n";
  for (const Reading reading : {Reading::unicode, Reading::windows1252}) {
    run.settings.reading = reading;
    EXPECT_EQ(run.Go(), RunOutcome::done);
    EXPECT_EQ(std::exchange(run.ui.log, ""),
              begin + read + "+ Sorting ...\n" + ordering + listed + "counting off\n");
  }
  EXPECT_EQ(run.session.ListAgain(), RunOutcome::done);
  EXPECT_EQ(run.ui.log, "stop on\ncounting off\n" + listed);
}

TEST(SessionRun, SaysWhyItIsRefusedAndKeepsTheLastListing) {
  using enum Mode;
  using Settings = ConcordanceSettings;
  const std::tuple<Mode, std::string Settings::*, std::string, std::string> rows[] = {
      {create, &Settings::inputFile, "  ", "Quorvel: Input file not specified.\n"},
      {create, &Settings::keywordsFile, "@a.qvl.ndx",
       "Quorvel: The index file cannot be the same as the keywords file.\n"},
      {search, &Settings::extraKeywords, "",
       "Search: Specify a keywords file or type one or more extra keywords.\n"},
      {create, &Settings::extraStopWords, "it's",
       "Character not allowed: The character ' occurs in some stop word\r\n"
       "but is not a character allowed in a word.\n"},
      {create, &Settings::extraKeywords, "a%",
       "Invalid input: The extra keywords textbox contains an inadmissable character: %\n"},
      // Only settings that the run uses are checked.
      {search, &Settings::stopWordsFile, "none", ""},
      {create, &Settings::outputFile, "", ""}};
  for (const auto& [mode, setting, value, said] : rows) {
    SCOPED_TRACE(said);
    TestRun run(HARBOUR);
    const std::string folder = run.folder.Path("");
    run.settings.createIndexFile = true;
    run.settings.extraKeywords = "*";
    EXPECT_EQ(run.Go(), RunOutcome::done);
    const ConcordanceSettings before = run.settings;
    const auto files = run.folder.Files();
    run.settings.mode = mode;
    run.settings.*setting = naive::Replace(value, "@", folder);
    if (said.empty()) run.settings.keywordsFile = folder + "a.qvl.ndx";
    EXPECT_EQ(run.Go(), said.empty() ? RunOutcome::done : RunOutcome::refused);
    EXPECT_EQ(run.ui.Said(folder), said);
    if (said.empty()) continue;
    EXPECT_EQ(run.folder.Files(), files);
    const bool isOfWords = value == "it's" || value == "a%";
    EXPECT_EQ(run.ui.log.ends_with(NO_COUNTS + "counting off\n"), !isOfWords);
    run.settings = before;
    EXPECT_EQ(run.session.ListAgain(), RunOutcome::done);
  }
}

TEST(SessionRun, ChecksTheInputBeforeTheKeywords) {
  TestRun run(HARBOUR);
  run.settings.mode = Mode::search;
  run.settings.inputFile = run.folder.Path("none.txt");
  EXPECT_EQ(run.Go(), RunOutcome::refused);
  EXPECT_EQ(run.ui.Said(run.settings.inputFile), "Fatal error: File @ not found.\n");
}

TEST(SessionRun, StopsAtAnyMoment) {
  const std::string_view lastLines[] = {
      "Stopped when reading file.", "Stopped with 7 words found.\r\n", "\r\nListing stopped.\r\n"};
  std::size_t phase = 0;
  int stops[] = {0, 0, 0};
  for (int moment = 1;; ++moment) {
    SCOPED_TRACE(moment);
    TestRun run(HARBOUR);
    run.settings.mode = Mode::search;  // a search needs no digest
    run.settings.extraKeywords = "*";
    run.settings.searchResultsFile = run.settings.outputFile;
    run.ui.stopAtYield = moment;
    const RunOutcome outcome = run.Go();
    // A stop is too late only while the complete file takes the place of the old one.
    if (outcome == RunOutcome::done) break;
    EXPECT_EQ(outcome, RunOutcome::stopped);
    while (phase < 2 && !run.ui.output.ends_with(lastLines[phase])) ++phase;
    ASSERT_TRUE(run.ui.output.ends_with(lastLines[phase])) << run.ui.output;
    const bool listed = phase == 2;
    EXPECT_EQ(run.ui.Said(), "");
    EXPECT_EQ(run.folder.Count(), listed ? 2 : 1);
    EXPECT_EQ(run.ui.log.ends_with("found.\n" + NO_COUNTS + "counting off\n"), phase == 1);
    ++stops[phase];
    // A stopped listing can be listed again completely. After an earlier stop there is nothing to
    // list.
    EXPECT_EQ(run.session.ListAgain(), listed ? RunOutcome::done : RunOutcome::nothingToList);
    EXPECT_EQ(run.Go(), RunOutcome::done);
  }
  EXPECT_EQ(stops[2], 7);  // one yield for each entry
  TestRun run("harbour harbour");
  run.ui.events["+ Sorting ..."] = [&run] { run.ui.RequestStop(); };
  EXPECT_EQ(run.Go(), RunOutcome::stopped);
  EXPECT_TRUE(run.ui.output.ends_with("Stopped with 1 word found.\r\n"));
  // An earlier listing cannot be listed again either.
  run.ui.events.clear();
  EXPECT_EQ(run.Go(), RunOutcome::done);
  // A click on Stop takes effect at the next yield.
  run.ui.events["+ Sorting ..."] = [&run] { run.ui.stopAtYield = run.ui.yields + 1; };
  EXPECT_EQ(run.Go(), RunOutcome::stopped);
  EXPECT_TRUE(run.ui.output.ends_with("Stopped with 1 word found.\r\n"));
  EXPECT_EQ(run.session.ListAgain(), RunOutcome::nothingToList);
}

// The digest is that of the text that was read, even if the file changes during the run.
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

// Nor does it ask whether to replace it.
TEST(SessionRun, SavesNothingInPlaceOfAnotherFileOfTheRun) {
  TestRun run(HARBOUR);
  EXPECT_EQ(run.Go(), RunOutcome::done);
  for (const char* kept : {"a.txt", "out.txt"}) {
    const auto before = run.folder.Files();
    const auto save = [](const PieceSink& take) { (void)take("x"); };
    const std::optional<Fault> fault = run.session.Save(run.folder.Path(kept), true, save);
    EXPECT_TRUE(fault && fault->kind == FaultKind::wouldReplace) << kept;
    EXPECT_EQ(run.folder.Files(), before);
  }
  EXPECT_EQ(run.ui.Said(), "");
}

// Words in memory are used again for the same input and the same reading.
TEST(SessionRun, ScansAnewWhatHasChanged) {
  const std::string page = "<!DOCTYPE html><head></head><body>caf\xC3\xA9 bar <ul><li>bar</ul> zz";
  const std::string other = "<!DOCTYPE html><head></head><body>a cow is";
  const struct {
    std::string bytes, entries;
    bool scans, isUtf8 = false, ignoreLists = false;
    std::string title = {};  // of the message
  } rows[] = {{page, "bar 2\r\ncaf\xC3 1\r\n\r\n", false},
              {page, "bar 2\r\ncaf\xE9 1\r\n\r\n", true, true, false, "UTF-8 or ANSI file?"},
              {page, "bar 1\r\ncaf\xC3 1\r\n\r\n", true, false, true},
              {other, "cow 1\r\n\r\n", true},
              {other, "cow 1\r\n\r\n", true, false, false, "Bad index file"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    TestRun run(page, "a.htm");
    run.settings.createIndexFile = true;
    run.settings.contextSize = 0;
    EXPECT_EQ(run.Go(), RunOutcome::done);
    if (row.title == "Bad index file") run.session.UseIndexFile();
    (void)run.folder.Write("a.htm", row.bytes);
    const fs::path input(run.settings.inputFile);
    fs::last_write_time(input, fs::last_write_time(input) - std::chrono::hours(1));
    run.settings.inputIsUtf8 = row.isUtf8;
    run.settings.ignoreLists = row.ignoreLists;
    run.ui.log.clear();
    EXPECT_EQ(run.Go(), RunOutcome::done);
    EXPECT_EQ(run.ui.log.find("+ Sorting") != std::string::npos, row.scans);
    EXPECT_EQ(run.Entries(), row.entries);
    EXPECT_EQ(run.ui.questions.empty() ? "" : run.ui.questions.back().title, row.title);
  }
}

TEST(SessionRun, ScansAnEqualInputOfAnotherName) {
  TestRun run(HARBOUR);
  run.settings.createIndexFile = true;
  EXPECT_EQ(run.Go(), RunOutcome::done);
  run.settings.inputFile = run.folder.Write("b.txt", HARBOUR);
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_NE(run.folder.Read("out.txt").find("b.txt\r\n"), std::string::npos);
}

// After a stop there is no message about an index file that could not be checked.
TEST(SessionRun, SaysNothingOfAnIndexFileAfterAStop) {
  TestRun run(HARBOUR);
  run.settings.createIndexFile = true;
  EXPECT_EQ(run.Go(), RunOutcome::done);
  run.session.UseIndexFile();
  const fs::path input(run.settings.inputFile);
  fs::last_write_time(input, fs::last_write_time(input) - std::chrono::hours(1));
  run.ui.events["label "] = [&run] { run.ui.RequestStop(); };
  EXPECT_EQ(run.Go(), RunOutcome::stopped);
  EXPECT_EQ(run.ui.Said(), "");
}

// Even if settings and files have changed meanwhile.
TEST(SessionRun, ListsAgainFromTheValuesOfTheListing) {
  for (const Mode mode : {Mode::create, Mode::search}) {
    TestRun run(HARBOUR);
    run.settings.mode = mode;
    run.settings.searchResultsFile = mode == Mode::search ? run.settings.outputFile : "";
    run.settings.extraKeywords = "*";
    EXPECT_EQ(run.Go(), RunOutcome::done);
    const std::string listed = run.folder.Read("out.txt");
    (void)run.folder.Write("a.txt", "another text by now\r\n");
    run.settings.extraStopWords = "harbour";
    run.settings.extraKeywords = "zzz";
    EXPECT_TRUE(GetExtraKeywords(run.settings, run.session.Lists().keywords, run.ui));
    run.settings.contextSize = 0;
    EXPECT_EQ(run.session.ListAgain(), RunOutcome::done);
    EXPECT_EQ(run.folder.Read("out.txt").substr(0, 80), listed.substr(0, 80));
    EXPECT_EQ(run.Entries(),
              "harbour 2\r\nnow 1\r\nold 2\r\nsilent 2\r\nthe 2\r\ntoo 1\r\nwas 2\r\n\r\n");
    run.settings.mode = mode == Mode::create ? Mode::search : Mode::create;
    EXPECT_EQ(run.session.ListAgain(), RunOutcome::nothingToList);
  }
  TestRun run("the 1990 zzz\r\n");
  run.settings.extraStopWords = "the";
  EXPECT_EQ(run.Go(), RunOutcome::nothingFound);
  run.ui.output = "old";
  EXPECT_EQ(run.session.ListAgain(), RunOutcome::nothingFound);
  EXPECT_EQ(run.ui.output, "");
}

}  // namespace quorvel
