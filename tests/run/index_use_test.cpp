#include "run/index_use.h"

#include <gtest/gtest.h>

#include "engine/index_file.h"
#include "files/digest.h"
#include "files/read_file.h"
#include "support/test_run.h"

namespace quorvel {

TEST(IndexUse, SaysNothingWhereThereIsNoIndexFile) {
  TestRun run("the sea\r\n");
  SilentProgress nobody;
  const Result<InputBytes> input = ReadInput(run.settings.inputFile, nobody);
  EXPECT_FALSE(ReadIndexFile(*input, InputDigest(*input), Reading::windows1252, true, run.ui));
  EXPECT_EQ(run.ui.Said(""), "");
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
    std::uintmax_t length;  // of the index, or 0 to keep it. Bytes after it are not read
    bool loaded, scans;
    std::string saidAtLoad, saidInRun = {};
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
    const std::string listed = run.ListedText();
    const std::string date = run.folder.Read("a.qvl.ndx").substr(34, 16);
    if (row.length > 0) std::filesystem::resize_file(run.folder.Path("a.qvl.ndx"), row.length);
    run.settings.ignoreLists = row.ignoreLists;
    run.ui.answers = {row.answer};
    SilentProgress nobody;
    const Result<InputBytes> input = ReadInput(run.settings.inputFile, nobody);
    EXPECT_EQ(
        ReadIndexFile(*input, InputDigest(*input), Reading::windows1252, true, run.ui).has_value(),
        row.loaded);
    EXPECT_EQ(run.ui.Said(date), row.saidAtLoad);
    TestRun later("");
    later.settings = run.settings;
    later.settings.createIndexFile = false;
    later.session.UseIndexFile();
    later.ui.questions.clear();
    for (int i = 0; i < 2; ++i) {  // a bad index is not tried again
      later.ui.log.clear();
      EXPECT_EQ(later.Go(), RunOutcome::done);
      EXPECT_EQ(later.ListedText() == listed, !row.ignoreLists);
      EXPECT_EQ(later.ui.log.find("+ Sorting") != std::string::npos, row.scans);
      EXPECT_EQ(later.ui.Said(), row.saidInRun);
    }
    run.ui.questions.clear();
    run.ui.RequestStop();
    EXPECT_FALSE(ReadIndexFile(*input, InputDigest(*input), Reading::windows1252, true, run.ui));
    // The digest is not checked yet when the index is loaded.
    EXPECT_EQ(run.ui.Said(), row.saidAtLoad == bad ? bad : "");
  }
}

// An index of one reading does not fit the other if they differ in letters.
TEST(IndexUse, IsOfTheReadingThatItWasMadeIn) {
  TestRun run("Łódź tonie, \u0142ódź płynie.\r\n");
  run.settings.reading = Reading::unicode;
  run.settings.createIndexFile = true;
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_NE(run.folder.Read("a.qvl.ndx").find("\r\nŁódź*"), std::string::npos);
  for (const Reading reading : {Reading::unicode, Reading::windows1252}) {
    TestRun later("");
    later.settings = run.settings;
    later.settings.reading = reading;
    later.settings.createIndexFile = false;
    later.session.UseIndexFile();
    EXPECT_EQ(later.Go(), RunOutcome::done);
    const bool isTaken = later.ui.log.find("+ Sorting") == std::string::npos;
    EXPECT_EQ(isTaken, reading == Reading::unicode);
    EXPECT_EQ(later.ListedText() == run.ListedText(), isTaken);
  }
  // A change of the reading discards the words in memory. Changing it back does not restore them.
  run.session.UseIndexFile();
  run.session.ChangeReading(Reading::windows1252);
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_EQ(run.ListedText().find("Łódź"), std::string::npos);
}

}  // namespace quorvel
