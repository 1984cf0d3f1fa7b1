#include "run/index_use.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "files/digest.h"
#include "files/read_file.h"
#include "support/made_texts.h"
#include "support/test_run.h"

namespace quorvel {
namespace {

constexpr const char* SAMPLE = "/../../data/sample/the-lamp-at-harbour-end.txt";
constexpr const char* SENTENCE =
    "zz the dogs' well-known house, the Haus \xC0ge did; dogs zz the\r\n";

TEST(IndexFile, HasItsBytes) {
  TestRun run(SENTENCE);
  run.settings.createIndexFile = true;
  run.settings.extraStopWords = "the";
  EXPECT_EQ(run.Go(), RunOutcome::done);
  const std::string bytes = run.folder.Read("a.qvl.ndx");
  const std::string digest = ComputeFileDigest(run.settings.inputFile).text;
  EXPECT_EQ(bytes.substr(0, 34), digest + "\r\n");
  EXPECT_EQ(bytes.substr(34, 10),
            run.folder.Read("out.txt").substr(run.folder.Read("out.txt").find("): ") + 3, 10));
  EXPECT_EQ(bytes.substr(50),
            "\r\n 6 \r\n 2 \r\n 2 \r\n"
            "\xC0ge*2*1*3*41\r\n"
            "dog*0*2*1*0951\r\n"
            "Haus*1*1*4*36\r\n"
            "house*3*1*6*25\r\n"
            "the*0*3*0*043259\r\n"
            "well-known*4*1*0*14\r\n");
}

// The listing of a run, and whether it scanned its input.
struct Listed {
  RunOutcome outcome;
  std::string text;
  bool scanned;

  bool operator==(const Listed&) const = default;
};

Listed ListedBy(TestRun& run) {
  run.ui.appends.clear();
  const RunOutcome outcome = run.Go();
  return {outcome, run.ListedText(), std::ranges::count(run.ui.appends, "Sorting ...\r\n") > 0};
}

// Another session on the input of a run.
struct LaterRun : TestRun {
  explicit LaterRun(TestRun& first) : TestRun("") {
    settings = first.settings;
    settings.createIndexFile = false;
  }
};

TEST(IndexFile, GivesTheListingOfAScan) {
  const std::string story = *ReadFileBytes(std::string(QUORVEL_TEST_DATA) + SAMPLE, 1U << 20U);
  const std::string page =
      "<!DOCTYPE html><html><head></head><body><ul><li>cats</ul>" + story + "</body>";
  std::mt19937 random(9);
  const std::string made =
      RandomText(std::vector<std::string>{"cats ", "dog-", "-", "--", "<!--", "'s ", "bed", ". ",
                                          "\xE9t\xE9s ", "9"},
                 3000, random);
  const std::pair<const char*, std::string> inputs[] = {
      {"a.txt", story},     {"a.htm", page},      {"b.txt", made},
      {"c.txt", "harbour"}, {"d.txt", "a b c d"}, {"e.txt", "the TV-s of the 1990s zz"}};
  for (const auto& [name, bytes] : inputs) {
    SCOPED_TRACE(name);
    TestRun run(bytes, name);
    run.settings.createIndexFile = true;
    run.settings.contextSize = 0;
    const bool indexed = run.Go() == RunOutcome::done;
    EXPECT_EQ(run.folder.Count(), indexed ? 3 : 1);
    for (int options = 0; options < 12; ++options) {
      LaterRun fresh(run);
      fresh.settings.outputFile.clear();
      fresh.settings.contextSize = options % 3 * 3;
      fresh.settings.wordOrder =
          options % 2 == 0 ? WordOrder::alphabetical : WordOrder::byFrequency;
      fresh.settings.mode = options < 6 ? Mode::create : Mode::search;
      fresh.settings.extraKeywords = "*e* h*+the";
      Listed scanned = ListedBy(fresh);
      EXPECT_TRUE(scanned.scanned);
      fresh.session.UseIndexFile();
      scanned.scanned = !indexed;
      EXPECT_TRUE(ListedBy(fresh) == scanned);
      EXPECT_TRUE(ListedBy(fresh) == scanned);  // with the text at hand too
    }
  }
}

TEST(IndexFile, IsAskedForAndRefused) {
  const std::string question =
      "Index file found: An index file for this input file exists, created,\r\nnamely, @."
      "\r\n\r\nDo you wish to use it?\n";
  const std::string bad =
      "Bad index file: The index file was not made from this input file as it is now,\r\n"
      "so the input file will be scanned.\n";
  const struct {
    const char* name;
    void (*change)(TestRun&);
    bool loaded, scans;
    std::string saidAtLoad, saidInRun;
  } rows[] = {
      {"accepted", [](TestRun&) {}, true, false, question, ""},
      {"declined", [](TestRun& run) { run.ui.answers = {Answer::no}; }, false, false, question, ""},
      {"empty index", [](TestRun& run) { (void)run.folder.Write("a.qvl.ndx", ""); }, false, true,
       bad, ""},
      {"no index", [](TestRun& run) { (void)run.folder.Write("a.qvl.ndx", std::string(100, 'A')); },
       false, true, bad, ""},
      {"index that is too long",
       [](TestRun& run) {
         std::filesystem::resize_file(PathOfBytes(run.folder.Path("a.qvl.ndx")), 1500);
       },
       false, true, bad, ""},
      {"index with lines behind it",
       [](TestRun& run) {
         (void)run.folder.Write("a.qvl.ndx", run.folder.Read("a.qvl.ndx") + "zoo*0*1*0*44\r\n");
       },
       true, false, question, ""},
      {"cut index",
       [](TestRun& run) {
         (void)run.folder.Write("a.qvl.ndx", run.folder.Read("a.qvl.ndx").substr(0, 90));
       },
       false, true, question, ""},
      {"other lists setting", [](TestRun& run) { run.settings.ignoreLists = true; }, true, true,
       question, bad}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    TestRun run("<!DOCTYPE html><head></head><body>The cat sat <ul><li>cats</ul> on the mat.",
                "a.htm");
    run.settings.createIndexFile = true;
    EXPECT_EQ(run.Go(), RunOutcome::done);
    const std::string date = run.folder.Read("a.qvl.ndx").substr(34, 16);
    row.change(run);
    SilentProgress nobody;
    const Result<InputBytes> input = ReadInput(run.settings.inputFile, nobody);
    EXPECT_EQ(ReadIndexFile(*input, InputDigest(*input), true, run.ui).has_value(), row.loaded);
    EXPECT_EQ(run.ui.Said(date), row.saidAtLoad);
    LaterRun fresh(run);
    fresh.session.UseIndexFile();
    fresh.ui.questions.clear();
    EXPECT_EQ(ListedBy(fresh).scanned, row.scans);
    EXPECT_EQ(fresh.ui.Said(), row.saidInRun);
    EXPECT_EQ(std::ranges::count(fresh.ui.appends, "Applying filters ...\r\n"), 1);
  }
}

// The input is written again between two runs of one session, and between load and run.
TEST(IndexFile, NoticesAChangedInput) {
  for (const bool fromFile : {false, true}) {
    TestRun run("the cat and the dog and the cat\r\n");
    run.settings.createIndexFile = true;
    run.settings.contextSize = 0;
    EXPECT_EQ(run.Go(), RunOutcome::done);
    if (fromFile) run.session.UseIndexFile();
    (void)run.folder.Write("a.txt", "the cow and the dog and the cow and\r\n");
    EXPECT_EQ(run.Go(), RunOutcome::done);
    EXPECT_EQ(run.Entries(), "and 3\r\ncow 2\r\ndog 1\r\nthe 3\r\n\r\n");
    EXPECT_EQ(run.ui.questions.size(), fromFile ? 1U : 0U);
  }
}

TEST(IndexFile, ReadsTheTextAnewInAnotherEncoding) {
  TestRun run("caf\xC3\xA9 bar caf\xC3\xA9 zz\r\n");
  run.settings.createIndexFile = true;
  run.settings.contextSize = 0;
  EXPECT_EQ(run.Go(), RunOutcome::done);
  run.settings.inputIsUtf8 = true;
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_EQ(run.Entries(), "bar 1\r\ncaf\xE9 2\r\n\r\n");
}

TEST(IndexFile, IsNotWrittenWithoutAConcordance) {
  const std::pair<const char*, void (*)(TestRun&)> rows[] = {
      {"search", [](TestRun& run) { run.settings.mode = Mode::search; }},
      {"output disabled", [](TestRun& run) { run.settings.outputToFileDisabled = true; }},
      {"no output name", [](TestRun& run) { run.settings.outputFile.clear(); }},
      {"nothing listed", [](TestRun& run) { run.settings.extraStopWords = "cat dog the and"; }},
      {"stopped", [](TestRun& run) { run.ui.stopAtYield = 1; }}};
  for (const auto& [name, change] : rows) {
    TestRun run("the cat and the dog and the cat\r\n");
    run.settings.createIndexFile = true;
    run.settings.extraKeywords = "cat";
    run.settings.searchResultsFile = run.settings.outputFile;
    change(run);
    (void)run.Go();
    EXPECT_EQ(run.folder.Read("a.qvl.ndx"), "") << name;
  }
}

}  // namespace
}  // namespace quorvel
