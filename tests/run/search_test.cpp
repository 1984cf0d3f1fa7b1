// Whole runs in search mode.

#include <gtest/gtest.h>

#include "run/word_lists.h"
#include "support/test_run.h"

namespace quorvel {
namespace {

TEST(Search, ListsTheWantedLines) {
  const std::string text =
      "zz the ship lay in the harbour all day. In the harbour the Shipwright slept\r\n"
      "and slept; harbours, ships, and harbours again. Walk in the harbour all day\r\n"
      "the ship lay in the harbour all day zz zz zz zz\r\n";
  const std::string day = "... in the \xABharbour\xBB all day.\r\n";
  const std::string wright = "... In the \xABharbour\xBB the Shipwright\r\n";
  const std::string ships = "... and slept; \xABharbours\xBB, ships, and\r\n";
  const std::string again = "... ships, and \xABharbours\xBB again. Walk\r\n";
  const std::string twice = "... in the \xABharbour\xBB all day (x2)\r\n";
  const std::string all = day + wright + ships + again + twice;
  const std::string walk = "\r\n[Walk 1]\r\n... harbours again. \xABWalk\xBB in the\r\n";
  const struct {
    const char* keywords;
    const char* file;
    std::string entries;
  } rows[] = {
      {"harb*", "", "[harbour 6]\r\n" + all},
      {"harbour+ship*", "", "[harbour 6]\r\n" + wright + ships + again},
      {"harbour+nothing harbour+", "", "[harbour 6]\r\n"},
      {"harbour+?x#?", "", "[harbour 6]\r\n" + twice},  // a repeat marker is a word like others
      {"h*b* *r h*+again?", "", "[harbour 6]\r\n" + all + again + all},
      {"wal?", "harbours Ship4\r\n", "[harbour 6]\r\n" + all + walk},
      {"h* *r harb*+x", "HARBOUR walk\r\n", "[harbour 6]\r\n" + all + walk}};
  for (const auto& [keywords, file, entries] : rows) {
    for (const bool once : {false, true}) {
      SessionOptions options;
      options.listsOnce = once;
      TestRun run(text, "a.txt", options);
      run.settings.mode = Mode::search;
      run.settings.contextSize = 2;
      run.settings.searchResultsFile = "  " + run.settings.outputFile + " ";
      run.settings.extraKeywords = keywords;
      run.settings.allowWordsWithNumerals = true;
      run.settings.outputToFileDisabled = true;  // this concerns concordances alone
      if (*file != '\0') {
        EXPECT_TRUE(ReadKeywordsFile(run.folder.Write("k.txt", file), run.session.Lists().keywords,
                                     run.ui));
      }
      EXPECT_EQ(run.Go(), RunOutcome::done) << keywords;
      EXPECT_EQ(run.Entries(), entries + "\r\n") << keywords;
      EXPECT_EQ(run.ui.Said(), "");
      EXPECT_EQ(run.ui.popUps.size(), 0U);
      EXPECT_EQ(run.ui.labels[Label::keywordsFound].back(), "");
      EXPECT_EQ(run.ui.appends.back(), "Getting search results ...\r\n");
    }
  }
}

TEST(Search, WritesItsFileAndWordLines) {
  TestRun run("zz the ship lay in the harbour zz zz zz\r\n");
  run.settings.mode = Mode::search;
  run.settings.searchResultsFile = run.settings.outputFile;
  run.settings.extraKeywords = "ship+nothing lay";
  run.settings.extraStopWords = "ship";  // no stop word counts in a search
  run.settings.ignoreInfrequentWords = true;
  run.settings.contextSize = 0;
  EXPECT_EQ(run.Go(), RunOutcome::done);
  const std::string header = "Input file: " + run.settings.inputFile +
                             "\r\nSearch results file created using Quorvel (V.21.36): ";
  EXPECT_EQ(run.folder.Read("out.txt").substr(0, header.size()), header);
  EXPECT_EQ(run.Entries(), "lay 1\r\nship 1\r\n\r\n");
}

TEST(Search, RefusesOrStaysSilent) {
  const struct {
    const char* name;
    const char* keywords;
    const char* results;
    RunOutcome outcome;
    const char* said;
  } rows[] = {{"blank name", "ship", "  ", RunOutcome::done, ""},
              {"cannot be written", "ship", "/no/such/folder", RunOutcome::failed, ""},
              {"the input", "ship", " @ ", RunOutcome::refused,
               "Quorvel: The search results file cannot be the same as the input file.\n"},
              {"bad keyword", "a%", "", RunOutcome::refused,
               "Invalid input: The extra keywords textbox contains an inadmissable character: %\n"},
              {"nothing found", "whale", "", RunOutcome::nothingFound, ""}};
  for (const auto& [name, keywords, results, outcome, said] : rows) {
    TestRun run("zz the ship lay in the harbour zz\r\n");
    run.settings.mode = Mode::search;
    run.settings.extraKeywords = keywords;
    run.settings.searchResultsFile =
        std::string(results) == " @ " ? " " + run.settings.inputFile + " " : results;
    EXPECT_EQ(run.Go(), outcome) << name;
    EXPECT_EQ(run.ui.Said(), said) << name;
    EXPECT_EQ(run.folder.Count(), 1) << name;
  }
}

}  // namespace
}  // namespace quorvel
