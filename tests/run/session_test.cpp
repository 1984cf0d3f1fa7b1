#include "run/session.h"

#include <gtest/gtest.h>

#include <chrono>
#include <new>

#include "run/word_lists.h"
#include "support/made_texts.h"
#include "support/platform.h"
#include "support/test_run.h"

namespace quorvel {
namespace {

constexpr const char* HARBOUR =
    "the old harbour was silent now\r\nthe old harbour was silent too\r\n";

TEST(Session, WritesAConcordance) {
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
  EXPECT_EQ(run.Entries(), run.ListedText() + "\r\n");
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

TEST(Session, SaysWhyItEndsAndLeavesTheOldFile) {
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
      {"DOCX behind a password",
       "Fatal error: File @\r\nis an encrypted or older word-processor file.\r\n"
       "Open it in a word processor and save it without a password as DOCX.\n",
       [](TestRun& run) {
         run.settings.inputFile =
             run.folder.Write("a.docx", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 and then words");
       }},
      {"output is input", "Quorvel: The concordance file cannot be the same as the input file.\n",
       [](TestRun& run) { run.settings.outputFile = run.folder.Path("./a.txt"); }},
      {"output is a device", "Error: An error occurred when creating concordance file.\n",
       [](TestRun& run) { run.settings.outputFile = NULL_DEVICE; }, failed},
      {"a concordance", "Invalid input: This is an QVL concordance file.\n",
       [](TestRun& run) { run.settings.inputFile = run.folder.Path("a.qvl.conc.txt"); }},
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

TEST(Session, StopsWhereTheUserWants) {
  const std::vector<std::string> lastLines = {
      "Stopped when reading file.", "Stopped with 7 words found.\r\n", "\r\nListing stopped.\r\n"};
  std::size_t phase = 0;
  std::vector<int> stops(lastLines.size());
  for (int yield = 1; phase < lastLines.size(); ++yield) {
    SCOPED_TRACE(yield);
    ASSERT_LT(yield, 100);
    TestRun run(HARBOUR);
    run.ui.stopAtYield = yield;
    const RunOutcome outcome = run.Go();
    if (outcome == RunOutcome::done) break;
    while (phase < lastLines.size() && !run.ui.output.ends_with(lastLines[phase])) ++phase;
    ASSERT_LT(phase, lastLines.size()) << run.ui.output;
    ++stops[phase];
    EXPECT_EQ(outcome, RunOutcome::stopped);
    const bool listed = phase == 2;
    EXPECT_EQ(run.folder.Count(), listed ? 2 : 1);
    EXPECT_EQ(run.ui.labels[Label::numberOfWords].back(), listed ? "Number of words: 7" : "");
    EXPECT_EQ(run.ui.counting.back(), false);
    if (listed && stops[phase] == 1) {
      EXPECT_TRUE(run.Entries().starts_with("[harbour 2]\r\n"));
      EXPECT_EQ(run.Entries().find("[now"), std::string::npos);
    }
    // What was listed can be listed again, whole; what was not can not.
    run.ui.output = "as it was";
    EXPECT_EQ(run.session.ListAgain(), listed ? RunOutcome::done : RunOutcome::nothingToList);
    EXPECT_TRUE(listed || run.ui.output == "as it was");
    EXPECT_EQ(run.Go(), RunOutcome::done);
  }
  EXPECT_GE(stops[0], 2);
  EXPECT_GE(stops[1], 1);
  EXPECT_EQ(stops[2], 7);  // once in each entry
}

TEST(Session, ListsTheMostFrequentWordAndAsksOnlyBeforeReplacing) {
  TestRun run(Repeated("word ", 32767));
  run.settings.warnOnOverwrite = true;
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_EQ(run.ui.Said(), "");
}

// Has no more memory from a yield on.
struct FullMemory : ScriptedConversation {
  int lastYield = 0;
  void YieldNow() override {
    if (++yields >= lastYield) throw std::bad_alloc();
  }
};

TEST(Session, EndsWithoutMemoryAndCanGoOn) {
  const TestFolder folder;
  const std::string input = folder.Write("a.txt", "the cat and the dog\r\n");
  const std::string output = folder.Write("out.txt", "old");
  for (int yield = 1;; ++yield) {
    SCOPED_TRACE(yield);
    FullMemory full;
    Session session(full);
    session.Settings().inputFile = input;
    session.Settings().outputFile = output;
    full.lastYield = yield;
    const RunOutcome outcome = session.RunConcordance();
    if (outcome == RunOutcome::done) break;
    ASSERT_LT(yield, 100);
    EXPECT_EQ(outcome, RunOutcome::failed);
    EXPECT_EQ(full.Said(input), "Quorvel: There is not enough memory for\r\n@.\n");
    EXPECT_EQ(full.output, "");
    EXPECT_EQ(full.counting.back(), false);
    EXPECT_EQ(folder.Read("out.txt"), "old");
    EXPECT_EQ(folder.Count(), 2);
    EXPECT_EQ(session.ListAgain(), RunOutcome::nothingToList);
    full.lastYield = 1000000;
    EXPECT_EQ(session.RunConcordance(), RunOutcome::done);
    EXPECT_NE(folder.Write("out.txt", "old"), "");
  }
}

// What a listing again is made of, whatever became of settings and files meanwhile.
TEST(Session, ListsAgainFromTheValuesOfTheListing) {
  const struct {
    const char* name;
    void (*meanwhile)(TestRun&);
    RunOutcome outcome = RunOutcome::done;
    bool search = false;
  } rows[] = {
      {"input written anew",
       [](TestRun& run) { (void)run.folder.Write("a.txt", "the dog was here\r\n"); }},
      {"input removed", [](TestRun& run) { std::filesystem::remove(run.folder.Path("a.txt")); }},
      {"words typed", [](TestRun& run) { run.settings.extraStopWords = "harbour"; }},
      {"a refused run",
       [](TestRun& run) {
         run.settings.extraStopWords = "a%";
         EXPECT_EQ(run.Go(), RunOutcome::refused);
       }},
      {"a run refused for its output",
       [](TestRun& run) {
         const std::string output = run.settings.outputFile;
         run.settings.outputFile = run.settings.inputFile;
         EXPECT_EQ(run.Go(), RunOutcome::refused);
         run.settings.outputFile = output;
       }},
      {"other keywords taken",
       [](TestRun& run) {
         run.settings.extraKeywords = "zzz";
         EXPECT_TRUE(GetExtraKeywords(run.settings, run.session.Lists().keywords, run.ui));
       },
       RunOutcome::done, true},
      {"the other mode", [](TestRun& run) { run.settings.mode = Mode::search; },
       RunOutcome::nothingToList},
      {"encoding question cancelled",
       [](TestRun& run) {
         (void)run.folder.Write("a.txt", "caf\xC3\xA9 \xE2\x80\x94 the dog was here\r\n");
         run.ui.answers = {Answer::cancel};
         EXPECT_EQ(run.Go(), RunOutcome::refused);
       },
       RunOutcome::nothingToList},
      {"another input",
       [](TestRun& run) {
         run.settings.inputFile = run.folder.Write("b.txt", "the dog was here\r\n");
         run.session.SetInput(Session::InputOrigin::restored);
       },
       RunOutcome::nothingToList}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    TestRun run(HARBOUR);
    run.settings.searchResultsFile = row.search ? run.settings.outputFile : "";
    run.settings.extraKeywords = "*";
    run.settings.mode = row.search ? Mode::search : Mode::create;
    EXPECT_EQ(run.Go(), RunOutcome::done);
    const std::string header = run.folder.Read("out.txt").substr(0, 80);
    const std::string entries = run.Entries();
    row.meanwhile(run);
    const std::string box = run.ui.output;
    run.settings.contextSize = 0;
    EXPECT_EQ(run.session.ListAgain(), row.outcome);
    EXPECT_EQ(run.folder.Read("out.txt").substr(0, 80), header);
    if (row.outcome == RunOutcome::done) {
      EXPECT_EQ(run.Entries(),
                "harbour 2\r\nnow 1\r\nold 2\r\nsilent 2\r\nthe 2\r\ntoo 1\r\nwas 2\r\n\r\n");
      EXPECT_EQ(run.ui.labels[Label::numberOfWords].back(), "Number of words: 7");
    } else {
      EXPECT_EQ(run.Entries(), entries);
      EXPECT_EQ(run.ui.output, box);
    }
  }
}

// The words come from an index that was written; the input is touched, but is the same.
TEST(Session, StopsWhileItComparesTheInput) {
  TestRun run(HARBOUR);
  run.settings.createIndexFile = true;
  EXPECT_EQ(run.Go(), RunOutcome::done);
  const std::string before = run.folder.Read("out.txt");
  const std::filesystem::path input(run.settings.inputFile);
  std::filesystem::last_write_time(input,
                                   std::filesystem::last_write_time(input) - std::chrono::hours(1));
  run.settings.contextSize = 1;
  run.ui.stopAtYield = run.ui.yields + 1;
  EXPECT_EQ(run.Go(), RunOutcome::stopped);
  EXPECT_EQ(run.ui.output, "Stopped when reading file.");
  EXPECT_EQ(run.folder.Read("out.txt"), before);
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_NE(run.folder.Read("out.txt"), before);
}

TEST(Session, NamesTheWordsThatOccurTooOften) {
  const auto message = [](int words, Mode mode) {
    std::string text;
    for (int i = 0; i < words; ++i) {
      text += Repeated("w" + std::string(1, static_cast<char>('a' + i)) + "x ", 32768 + i);
    }
    TestRun run(text);
    run.settings.mode = mode;
    run.settings.extraKeywords = "*";
    EXPECT_EQ(run.Go(), RunOutcome::failed);
    EXPECT_TRUE(run.session.Report().wordsTooFrequent);
    return run.ui.questions.at(0).text;
  };
  EXPECT_EQ(message(2, Mode::create),
            "The words \"wax\" (32768), \"wbx\" (32769) occur more than 32767 times and cannot be "
            "listed.\r\nAdd them to the stop words.");
  EXPECT_EQ(message(1, Mode::search),
            "The word \"wax\" occurs 32768 times; a word that occurs more than 32767 times cannot "
            "be listed.");
  EXPECT_TRUE(message(12, Mode::search)
                  .ends_with("\"wjx\" (32777) and 2 more occur more than 32767 times and cannot be "
                             "listed."));
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
  const std::int64_t all = std::ssize(run.ListedText());
  EXPECT_EQ(run.ui.listingShown.shown, 65000);
  EXPECT_EQ(run.ui.listingShown.all, all);
  EXPECT_FALSE(run.ui.listingShown.fileHoldsAll);
  run.settings.outputFile = run.folder.Path("out.txt");
  EXPECT_EQ(run.session.ListAgain(), RunOutcome::done);
  EXPECT_TRUE(run.ui.listingShown.fileHoldsAll);
  EXPECT_EQ(run.Entries(), run.ListedText() + "\r\n");
}

}  // namespace
}  // namespace quorvel
