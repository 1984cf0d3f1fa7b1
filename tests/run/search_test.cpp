// Whole runs in search mode.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "lists/wildcard.h"
#include "lists/word_file.h"
#include "support/made_texts.h"
#include "support/test_run.h"
#include "util/ansi.h"
#include "util/characters.h"

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
      {"harbour+day", "", "[harbour 6]\r\n" + twice},
      {"harbour+nothing harbour+", "", "[harbour 6]\r\n"},
      {"harbour+?x#?", "", "[harbour 6]\r\n" + twice},  // a repeat marker is a word like others
      {"h*b* *r h*+again?", "", "[harbour 6]\r\n" + all + again + all},
      {"wal?", "harbours Ship4\r\n", "[harbour 6]\r\n" + all + walk},
      {"h* *r harb*+x", "HARBOUR walk\r\n", "[harbour 6]\r\n" + all + walk}};
  for (const auto& [keywords, file, entries] : rows) {
    TestRun run(text);
    run.settings.mode = Mode::search;
    run.settings.contextSize = 2;
    run.settings.searchResultsFile = "  " + run.settings.outputFile + " ";
    run.settings.extraKeywords = keywords;
    run.settings.allowWordsWithNumerals = true;
    run.settings.outputToFileDisabled = true;  // this concerns concordances alone
    if (*file != '\0') {
      EXPECT_TRUE(
          ReadKeywordsFile(run.folder.Write("k.txt", file), run.state.lists.keywords, run.ui));
    }
    EXPECT_EQ(run.Go(), RunOutcome::done) << keywords;
    EXPECT_EQ(run.Entries(), entries + "\r\n") << keywords;
    EXPECT_EQ(run.ui.Said(), "");
    EXPECT_EQ(run.ui.popUps.size(), 0U);
    EXPECT_EQ(run.ui.labels[Label::keywordsFound], std::vector<std::string>{""});
    EXPECT_EQ(run.ui.appends.back(), "Getting search results ...\r\n");
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
  } rows[] = {{"no name", "ship", "", RunOutcome::done, ""},
              {"blank name", "ship", "  ", RunOutcome::done, ""},
              {"cannot be written", "ship", "/no/such/folder", RunOutcome::failed, ""},
              {"no keywords", " 's ", "", RunOutcome::refused,
               "Search: Specify a keywords file or type one or more extra keywords.\n"},
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

// The entry of a concordance as a search for `keywords` has it; empty for a word that
// none matches. Taken from the concordance line by line.
std::string Searched(const std::string& entry, const std::vector<ExtraKeyword>& keywords) {
  const std::size_t headerEnd = entry.find("]\r\n") + 3;
  const std::u16string word = ToLowerCase(DecodeAnsi(entry.substr(0, entry.find_first_of(" ]"))));
  std::string lines;
  bool listed = false;
  for (const ExtraKeyword& keyword : keywords) {
    if (!MatchesWildcard(word, keyword.wildcardPattern)) continue;
    listed = true;
    for (std::size_t start = headerEnd; start < entry.size();) {
      const std::size_t end = entry.find("\r\n", start) + 2;
      std::u16string line = ToLowerCase(DecodeAnsi(entry.substr(start + 4, end - start - 6)));
      std::erase_if(line, [](char16_t ch) { return ch == u'«' || ch == u'»'; });
      const auto words = SplitAtBlanks(line);
      if (!keyword.hasContextPattern ||
          std::any_of(words.begin(), words.end(), [&keyword](std::u16string_view one) {
            return MatchesWildcard(one, keyword.contextPattern);
          })) {
        lines += entry.substr(start, end - start);
      }
      start = end;
    }
  }
  return listed ? "\r\n[" + entry.substr(0, headerEnd) + lines : "";
}

TEST(Search, IsAPartOfTheConcordance) {
  std::mt19937 random(25);
  const std::vector<std::string> words = {"cat ",   "Cats ",      "dog ",    "dogs. ",
                                          "walk, ", "WALK ",      "walked ", "the ",
                                          "cot ",   "\xE9t\xE9 ", "zz "};
  const std::vector<std::string> patterns = {"cat",   "c?t", "*",   "d*g*",
                                             "walk*", "*k",  "the", "été"};
  for (int i = 0; i < 300; ++i) {
    TestRun run(RandomText(words, 200, random) + "zzzz\r\n");
    run.settings.contextSize = 1 + static_cast<int>(random() % 4);
    run.settings.showFrequencies = random() % 4 != 0;
    const RunOutcome outcome = run.Go();
    const std::string concordance = "\r\n" + run.state.outputText + "\r\n[";
    for (std::size_t left = random() % 4; left < 4; ++left) {
      run.settings.extraKeywords += patterns[random() % patterns.size()];
      if (random() % 2 == 0)
        run.settings.extraKeywords += "+" + patterns[random() % patterns.size()];
      run.settings.extraKeywords += " ";
    }
    run.settings.mode = Mode::search;
    const RunOutcome searchOutcome = run.Go();
    std::string expected;
    for (std::size_t start = 3; outcome == RunOutcome::done && start < concordance.size();) {
      const std::size_t end = concordance.find("\r\n[", start);
      expected += Searched(concordance.substr(start, end - start),
                           run.state.lists.keywords.extraKeywords.Keywords());
      start = end + 3;
    }
    if (!expected.empty()) expected.erase(0, 2);
    EXPECT_EQ(searchOutcome, expected.empty() ? RunOutcome::nothingFound : RunOutcome::done);
    if (searchOutcome == RunOutcome::done) {
      EXPECT_EQ(run.state.outputText, expected) << run.settings.extraKeywords;
    }
  }
}

}  // namespace
}  // namespace quorvel
