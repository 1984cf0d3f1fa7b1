#include "run/run_driver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <new>

#include "output/listing.h"
#include "support/made_texts.h"
#include "support/test_run.h"

namespace quorvel {
namespace {

constexpr const char* HARBOUR =
    "the old harbour was silent now\r\nthe old harbour was silent too\r\n";

TEST(RunDriver, WritesAConcordance) {
  TestRun run(HARBOUR);
  run.settings.contextSize = 2;
  EXPECT_EQ(run.Go(), RunOutcome::done);
  const std::string header =
      "Input file: " + run.folder.Path("a.txt") +
      "\r\nMD5 message digest of input file: 9E693739212B562FC5E90CF3EA378B3D\r\n"
      "Concordance file created using Quorvel (V.21.36): ";
  const std::string file = run.folder.Read("out.txt");
  EXPECT_EQ(file.substr(0, header.size()), header);
  EXPECT_EQ(file.find("\r\n\r\n"), header.size() + std::string("2024-05-17 14:03").size());
  EXPECT_EQ(run.Entries(), run.state.outputText + "\r\n");
  EXPECT_TRUE(run.Entries().starts_with("[harbour 2]\r\n...  old \xABharbour\xBB was silent\r\n"));
  EXPECT_EQ(run.ui.output.substr(0, 13), "[harbour 2]\r\n");
  const std::vector<std::string> phases = {
      "Reading file ...\r\n",          "Compacting spaces ...\r\n",
      "Processing file ...\r\n",       "Sorting ...\r\n",
      "Applying filters ...\r\n",      "Counting words ...\r\n",
      "Ordering by frequency ...\r\n", "Creating concordance ...\r\n"};
  EXPECT_EQ(run.ui.appends, phases);
  EXPECT_EQ(run.ui.popUps, std::vector<std::string>{"Concordance file written"});
  EXPECT_TRUE(run.ui.questions.empty());
  EXPECT_EQ(run.ui.labels[Label::numberOfWords].back(), "Number of words: 7");
  EXPECT_EQ(run.ui.labels[Label::numberOfOccurrences].back(), "Number of occurrences: 12");
  EXPECT_EQ(run.ui.labels[Label::keywordsFound].back(), "Number of keywords found: 7");
}

struct RefusalRow {
  const char* name;
  const char* said;  // "@" stands for the input
  void (*change)(TestRun&);
  RunOutcome outcome = RunOutcome::refused;
  std::string bytes = "hello there";
};

TEST(RunDriver, SaysWhyItEndsAndLeavesTheOldFile) {
  using enum RunOutcome;
  const auto none = [](TestRun&) {};
  const RefusalRow rows[] = {
      {"extension",
       "List words: This program acts only on text files,\r\nWord DOCX files and HTML files.\n",
       [](TestRun& run) { run.settings.inputFile = run.folder.Path("a.log"); }},
      {"folder", "Fatal error: File @ not found.\n",
       [](TestRun& run) { std::filesystem::create_directory(run.settings.inputFile += ".txt"); }},
      {"2 GB", "File too big: File @\r\nis too large to be scanned: 2 GB or more.\n",
       [](TestRun& run) { std::filesystem::resize_file(run.settings.inputFile, 2147483647); }},
      {"output is input", "Quorvel: The concordance file cannot be the same as the input file.\n",
       [](TestRun& run) { run.settings.outputFile = run.folder.Path("./a.txt"); }},
      {"stop word",
       "Character not allowed: The character ' occurs in some stop word\r\n"
       "but is not a character allowed in a word.\n",
       [](TestRun& run) { run.settings.extraStopWords = "it's"; }},
      {"question cancelled",
       "UTF-8 or ANSI file?: This file does not seem to be UTF-8 encoded.\r\n"
       "Click 'Yes' to scan it as UTF-8 encoded (not advisable)\r\n"
       "or 'No' to scan it as ANSI.\n",
       [](TestRun& run) { run.settings.inputIsUtf8 = true; }},
      {"no word admitted", "", none, nothingFound, "a b c did 1999 aaa"},
      {"too frequent",
       "Error: The word \"word\" occurs 32768 times; a word that occurs more than 32767 times "
       "cannot be listed.\r\nAdd it to the stop words.\n",
       none, failed, Repeated("word ", 32768)}};
  for (const RefusalRow& row : rows) {
    SCOPED_TRACE(row.name);
    TestRun run(row.bytes);
    (void)run.folder.Write("out.txt", "old");
    run.ui.answers = {Answer::cancel};
    row.change(run);
    const std::ptrdiff_t files = run.folder.Count();
    EXPECT_EQ(run.Go(), row.outcome);
    EXPECT_EQ(run.folder.Read("out.txt"), "old");
    EXPECT_EQ(run.folder.Count(), files);
    EXPECT_EQ(run.ui.Said(run.settings.inputFile), row.said);
    EXPECT_TRUE(row.outcome != refused || run.ui.output.empty());
  }
}

TEST(RunDriver, SettlesTheEncoding) {
  using enum EncodingChoice;
  const struct {
    const char* name;
    bool looksLikeUtf8, setting, result;
    std::vector<Answer> answers;
    EncodingChoice choice = confirm;
  } rows[] = {{"Enter keeps UTF-8", false, true, true, {}},
              {"agreed", true, true, true, {Answer::cancel}},
              {"dropped", false, true, false, {}, adoptDetected}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    TestRun run(row.looksLikeUtf8 ? "caf\xC3\xA9 \xE2\x80\x94 caf\xC3\xA9"
                                  : "caf\xC3\xA9 caf\xC3\xA9");
    run.settings.inputIsUtf8 = row.setting;
    run.state.encodingChoice = row.choice;
    run.settings.contextSize = 0;
    run.ui.answers = row.answers;
    EXPECT_EQ(run.Go(), RunOutcome::done);
    EXPECT_EQ(run.settings.inputIsUtf8, row.result);
    EXPECT_EQ(run.Entries(), row.result ? "caf\xE9 2\r\n\r\n" : "caf\xC3 2\r\n\r\n");
    EXPECT_EQ(std::ranges::count(run.ui.appends, "Converting UTF-8 ...\r\n"), row.result ? 1 : 0);
  }
}

TEST(RunDriver, StopsWhereTheUserWants) {
  // There are three yields while the text is read and prepared, one after sorting, one an entry,
  // and one for the header of the file, when it is too late to stop.
  const std::pair<int, const char*> rows[] = {{3, "Stopped when reading file."},
                                              {4, "Stopped with 7 words found.\r\n"},
                                              {5, "\r\nListing stopped.\r\n"},
                                              {11, "\r\nListing stopped.\r\n"},
                                              {12, "the old harbour \u00ABwas\u00BB silent \r\n"}};
  for (const auto& [yield, lastLine] : rows) {
    SCOPED_TRACE(yield);
    TestRun run(HARBOUR);
    run.ui.stopAtYield = yield;
    EXPECT_EQ(run.Go(), yield == 12 ? RunOutcome::done : RunOutcome::stopped);
    EXPECT_TRUE(run.ui.output.ends_with(lastLine)) << run.ui.output;
    EXPECT_EQ(run.folder.Count(), yield > 4 ? 2 : 1);
    if (yield == 5) {
      EXPECT_TRUE(run.Entries().starts_with("[harbour 2]\r\n"));
      EXPECT_EQ(run.Entries().find("[now"), std::string::npos);
    }
    EXPECT_EQ(run.Go(), RunOutcome::done);
  }
}

TEST(RunDriver, ListsTheMostFrequentWordAndAsksOnlyBeforeReplacing) {
  TestRun run(Repeated("word ", 32767));
  run.settings.warnOnOverwrite = true;
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_EQ(run.ui.Said(), "");
}

// Has no more memory from the third yield on.
struct FullMemory : ScriptedInterface {
  void YieldNow() override {
    if (++yields >= 3) throw std::bad_alloc();
  }
};

TEST(RunDriver, EndsWithoutMemoryAndCanGoOn) {
  TestRun run("the cat and the dog\r\n");
  (void)run.folder.Write("out.txt", "old");
  FullMemory full;
  EXPECT_EQ(RunConcordance(run.state, full), RunOutcome::failed);
  EXPECT_EQ(full.Said(), "Quorvel: There is not enough memory for this input file.\n");
  EXPECT_EQ(run.folder.Read("out.txt"), "old");
  EXPECT_EQ(run.folder.Count(), 2);
  EXPECT_EQ(run.Go(), RunOutcome::done);
}

TEST(Listing, ShowsAsMuchAsTheBoxTakes) {
  const std::string start = std::string(500, 'a') + ' ';
  EXPECT_EQ(TextboxPart(start + std::string(64498, 'b')).size(), 64999U);
  EXPECT_EQ(TextboxPart(start + std::string(64499, 'b')), start);
  EXPECT_EQ(TextboxPart(std::string(65000, 'a')), "");
  std::string words;
  for (int n = 1000; n < 2000; ++n) words += "w" + std::to_string(n) + " ";
  TestRun run(words);
  run.settings.outputFile.clear();
  run.settings.allowWordsWithNumerals = true;
  run.settings.contextSize = 9;
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_EQ(run.ui.Said(),
            "The concordance is too large for the textbox.: "
            "To get the entire concordance, specify a concordance (output) file.\n");
}

}  // namespace
}  // namespace quorvel
