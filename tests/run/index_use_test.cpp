#include "run/index_use.h"

#include <gtest/gtest.h>

#include <random>

#include "engine/index_file.h"
#include "files/digest.h"
#include "files/read_file.h"
#include "support/made_texts.h"
#include "support/test_run.h"

namespace quorvel {
namespace {

constexpr const char* SAMPLE = "/../../data/sample/the-lamp-at-harbour-end.txt";

// The listing of a run, and behind it whether the input was scanned.
std::string ListedBy(TestRun& run) {
  run.ui.log.clear();
  (void)run.Go();
  return run.ListedText() + (run.ui.log.find("+ Sorting") == std::string::npos ? "" : "scanned");
}

// Another session on the input of a run.
struct LaterRun : TestRun {
  explicit LaterRun(TestRun& first) : TestRun("") {
    settings = first.settings;
    settings.createIndexFile = false;
  }
};

TEST(IndexUse, GivesTheListingOfAScan) {
  const std::string story = *ReadFileBytes(std::string(QUORVEL_TEST_DATA) + SAMPLE, 1U << 20U);
  std::mt19937 random(9);
  const std::string made =
      RandomText(std::vector<std::string>{"cats ", "dog-", "-", "--", "<!--", "'s ", "bed", ". ",
                                          "\xE9t\xE9s ", "9"},
                 3000, random);
  const std::pair<const char*, std::string> inputs[] = {
      {"a.txt", story},     {"a.htm", "<!DOCTYPE html><head></head><ul><li>cats</ul>" + story},
      {"b.txt", made},      {"c.txt", "harbour"},
      {"d.txt", "a b c d"}, {"e.txt", "the TV-s of the 1990s zz"}};
  for (const auto& [name, bytes] : inputs) {
    SCOPED_TRACE(name);
    TestRun run(bytes, name);
    run.settings.createIndexFile = true;
    const bool indexed = run.Go() == RunOutcome::done;
    EXPECT_EQ(run.folder.Count(), indexed ? 3 : 1);
    for (const Mode mode : {Mode::create, Mode::search}) {
      LaterRun fresh(run);
      fresh.settings.outputFile.clear();
      fresh.settings.mode = mode;
      fresh.settings.extraKeywords = "*e* h*+the";
      const std::string scanned = ListedBy(fresh);
      fresh.session.UseIndexFile();
      EXPECT_TRUE(ListedBy(fresh) + (indexed ? "scanned" : "") == scanned);
      EXPECT_TRUE(ListedBy(fresh) + (indexed ? "scanned" : "") == scanned);  // the text at hand too
    }
  }
}

TEST(IndexUse, IsAskedForAndRefused) {
  const std::string question =
      "Index file found: An index file for this input file exists, created,\r\nnamely, @."
      "\r\n\r\nDo you wish to use it?\n";
  const std::string bad =
      "Bad index file: The index file was not made from this input file as it is now,\r\n"
      "so the input file will be scanned.\n";
  const std::string page =
      "<!DOCTYPE html><head></head><body>The cat sat <ul><li>cats</ul> on the mat.";
  const std::uintmax_t longest = LongestIndexFile(page.size());
  const struct {
    const char* name;
    std::uintmax_t length;  // of the index; 0 for as it is. What stands behind it is not read
    bool loaded, scans;
    std::string saidAtLoad, saidInRun = "";
    Answer answer = Answer::yes;
    bool ignoreLists = false;
  } rows[] = {{"accepted", 0, true, false, question},
              {"declined", 0, false, false, question, "", Answer::no},
              {"no index", 10, false, true, bad},
              {"cut", 90, false, true, question},
              {"as long as any", longest, true, false, question},
              {"longer", longest + 1, false, true, bad},
              {"other lists setting", 0, true, true, question, bad, Answer::yes, true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    TestRun run(page, "a.htm");
    run.settings.createIndexFile = true;
    EXPECT_EQ(run.Go(), RunOutcome::done);
    const std::string date = run.folder.Read("a.qvl.ndx").substr(34, 16);
    if (row.length > 0) std::filesystem::resize_file(run.folder.Path("a.qvl.ndx"), row.length);
    run.settings.ignoreLists = row.ignoreLists;
    run.ui.answers = {row.answer};
    SilentProgress nobody;
    const Result<InputBytes> input = ReadInput(run.settings.inputFile, nobody);
    EXPECT_EQ(ReadIndexFile(*input, InputDigest(*input), true, run.ui).has_value(), row.loaded);
    EXPECT_EQ(run.ui.Said(date), row.saidAtLoad);
    LaterRun fresh(run);
    fresh.session.UseIndexFile();
    fresh.ui.questions.clear();
    for (int i = 0; i < 2; ++i) {  // one that was found bad is not tried again
      EXPECT_EQ(ListedBy(fresh).ends_with("scanned"), row.scans);
      EXPECT_EQ(fresh.ui.Said(), row.saidInRun);
    }
  }
}

TEST(IndexUse, IsNotAskedForAfterAStop) {
  TestRun run("the cat and the dog\r\n");
  run.settings.createIndexFile = true;
  EXPECT_EQ(run.Go(), RunOutcome::done);
  SilentProgress nobody;
  const Result<InputBytes> input = ReadInput(run.settings.inputFile, nobody);
  run.ui.RequestStop();
  EXPECT_FALSE(ReadIndexFile(*input, InputDigest(*input), true, run.ui));
  EXPECT_EQ(run.ui.Said(), "");
}

}  // namespace
}  // namespace quorvel
