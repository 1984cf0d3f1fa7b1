#include "run/listing_run.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/made_texts.h"
#include "support/platform.h"
#include "support/test_run.h"

namespace quorvel {
namespace {

// Distinct words, each listed in ten characters where it has no contexts.
std::string ManyWords(int count) {
  std::string words;
  for (int n = 0; n < count; ++n) words += "w" + std::to_string(10000 + n) + " ";
  return words;
}

// A run with an older output whose name was typed; with `found`, a search for every word.
struct ListingTestRun : TestRun {
  ListingTestRun(std::string_view text, bool found, const char* output, SessionOptions options)
      : TestRun(text, "a.txt", std::move(options)) {
    (void)folder.Write("out.txt", "old");
    settings.mode = found ? Mode::search : Mode::create;
    settings.extraKeywords = "*";
    settings.allowWordsWithNumerals = true;
    settings.outputFile = settings.searchResultsFile = *output == '\0' ? "" : folder.Path(output);
  }
};

// Stops a listing at its first entry.
RunOutcome StopOf(TestRun& run) {
  (void)run.Go();
  run.ui.questions.clear();
  run.ui.stopAtYield = run.ui.yields + 1;
  return run.session.ListAgain();
}

TEST(ListingRun, WritesItsFileWhereTheUserWantsIt) {
  using enum RunOutcome;
  using enum OutputFormat;
  const std::string asks =
      "File exists: A concordance file \r\n@\r\nalready exists.  Do you wish to overwrite it?\n";
  const std::string asksFound =
      "File exists: A search results file \r\n@\r\nalready exists.  Do you wish to overwrite it?\n";
  const std::string cannot = "Error: An error occurred when creating concordance file.\n";
  const std::string isDisabled = "Quorvel: Output to file is disabled.\n";
  const struct {
    OutputFormat format;
    bool found;
    const char* output;
    std::string said;
    bool isWritten;
    RunOutcome outcome = done;
    bool asked = false, disabled = false, stopped = false;
    Answer answer = Answer::yes;
  } rows[] = {{text, false, "out.txt", "", true},
              {text, false, "out.txt", asks, true, done, true},
              {text, false, "out.txt", asks, false, done, true, false, false, Answer::no},
              {text, false, "new.txt", "", true, done, true},
              {text, false, "", "", false},
              {text, false, "out.txt", isDisabled, false, done, true, true},
              {text, false, "", "", false, done, false, true},
              {text, false, "none/out.txt", cannot, false, failed},
              {text, false, "none/out.txt", cannot, false, failed, false, false, true},
              {text, true, "out.txt", "", true},
              {text, true, "out.txt", asksFound, true, done, true, true},
              {text, true, "none/out.txt", "", false, failed},
              {tsv, false, "out.txt", asks, true, done, true},
              {json, false, "out.txt", asks, false, done, true, false, false, Answer::no},
              {tsv, false, "", "", false},
              {json, false, "none/out.txt", cannot, false, failed}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << &row - rows << " " << row.output << " " << row.said);
    ListingTestRun run("the old harbour was silent", row.found, row.output,
                       {.outputFormat = row.format});
    run.settings.warnOnOverwrite = row.asked;
    run.settings.outputToFileDisabled = row.disabled;
    run.ui.answers = {row.answer};
    EXPECT_EQ(row.stopped ? StopOf(run) : run.Go(), row.outcome);
    EXPECT_EQ(run.ui.Said(run.folder.Path("out.txt")), row.said);
    EXPECT_EQ(run.ui.popUps.size(), row.isWritten && row.format == text && !row.found ? 1U : 0U);
    EXPECT_EQ(run.ui.log.find("+ Writing rows ...\n") == std::string::npos, row.format == text);
    EXPECT_EQ(run.session.Report().written, row.isWritten);
    const bool isHeaded =
        run.folder.Read(*row.output == '\0' ? "none" : row.output).starts_with("Input file: ");
    EXPECT_EQ(isHeaded, row.isWritten && row.format == text);
    EXPECT_TRUE(row.isWritten || run.folder.Read("out.txt") == "old");
  }
}

// What cannot be taken back is asked for before anything is composed, a file when all is shown.
TEST(ListingRun, AsksOnceAndInTime) {
  for (const bool isDevice : {false, true}) {
    for (const Answer answer : {Answer::yes, Answer::no}) {
      ListingTestRun run(ManyWords(1000), false, "out.txt", {.targets = Targets::all});
      if (isDevice) run.settings.outputFile = NULL_DEVICE;
      run.settings.warnOnOverwrite = true;
      run.ui.answers = {answer};
      EXPECT_EQ(run.Go(), RunOutcome::done);
      EXPECT_EQ(run.ui.questions.size(), 1U);
      EXPECT_EQ(run.session.Report().written, answer == Answer::yes);
      EXPECT_EQ(run.ui.log.find("asks File exists") < run.ui.log.find("= [w10000 1]"), isDevice);
    }
  }
}

TEST(ListingRun, GoesToASink) {
  using enum RunOutcome;
  const std::string harbour = "the old harbour was silent";
  const std::string frequent = ManyWords(4000) + Repeated("zebu ", 32768);
  const struct {
    OutputFormat format;
    std::string text;
    int takes;  // pieces
    RunOutcome outcome;
    std::ptrdiff_t lines;
    bool isStopped = false;
  } rows[] = {{OutputFormat::text, harbour, 9, done, 19},
              {OutputFormat::tsv, ManyWords(4000), 9, done, 4001},
              {OutputFormat::text, ManyWords(3000), 9, done, 9004},
              {OutputFormat::text, harbour, 0, failed, 0},
              {OutputFormat::tsv, harbour, 0, failed, 0},
              {OutputFormat::text, harbour, 0, stopped, 0, true},
              {OutputFormat::tsv, harbour, 0, stopped, 0, true},
              {OutputFormat::text, frequent, 9, failed, 0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    std::string taken;
    int pieces = 0;
    const auto sink = [&](std::string_view piece) {
      taken += pieces < row.takes ? piece : "";
      return ++pieces <= row.takes;
    };
    ListingTestRun run(row.text, false, "out.txt",
                       {.outputFormat = row.format, .outputSink = sink});
    run.settings.warnOnOverwrite = true;
    EXPECT_EQ(row.isStopped ? StopOf(run) : run.Go(), row.outcome);
    EXPECT_EQ(run.session.Report().written, row.outcome == done);
    EXPECT_EQ(std::ranges::count(taken, '\n'), row.lines);
    const bool isText = row.format == OutputFormat::text && row.outcome == done;
    EXPECT_TRUE(!isText || taken.ends_with("\r\n\r\n" + run.ListedText() + "\r\n"));
    EXPECT_EQ(run.ui.questions.size() + run.ui.popUps.size(), row.text == frequent ? 1U : 0U);
    EXPECT_EQ(run.folder.Read("out.txt"), "old");
  }
}

TEST(ListingRun, ShowsAsMuchAsTheBoxTakes) {
  const std::string start = std::string(500, 'a') + ' ';
  EXPECT_EQ(TextboxPart(start + std::string(64498, 'b')).size(), 64999U);
  EXPECT_EQ(TextboxPart(start + std::string(64499, 'b')), start);
  EXPECT_EQ(TextboxPart(std::string(65000, 'a')), "");
  const std::string tooLarge =
      "The concordance is too large for the textbox.: "
      "To get the entire concordance, specify a concordance (output) file.\n";
  const struct {
    const char* lastWord;
    bool found;
    const char* output;
    std::int64_t all;  // characters, where it is said that not all are shown
    std::string said;
  } rows[] = {{"xyzab ", false, "", 0, ""},
              {"xyzabc ", false, "", 65000, tooLarge},
              {"xyzabc ", false, "out.txt", 65000, ""},
              {"xyzabc ", true, "", 65000, ""}};
  for (const auto& row : rows) {
    ListingTestRun run(ManyWords(6499) + row.lastWord, row.found, row.output, {});
    run.settings.contextSize = 0;
    EXPECT_EQ(run.Go(), RunOutcome::done);
    EXPECT_EQ(run.ui.Said(), row.said);
    EXPECT_EQ(std::ranges::count(run.ui.sets, "w10000 1\r\n"), 1);  // the word at hand
    EXPECT_EQ(run.ui.listingShown.shown, row.all == 0 ? 0 : 65000);
    EXPECT_EQ(run.ui.listingShown.all, row.all) << run.ListedText().size();
    EXPECT_EQ(run.ui.listingShown.fileHoldsAll, *row.output != '\0');
    EXPECT_TRUE(run.ui.output == TextboxPart(run.ListedText()));
  }
}

TEST(ListingRun, NamesTheWordsThatOccurTooOften) {
  const std::string one =
      "Error: The word \"wax\" occurs 32768 times; a word that occurs more than 32767 times cannot "
      "be listed.";
  const std::string many = " occur more than 32767 times and cannot be listed.";
  std::string ten = "Error: The words \"wax\" (32768)";
  for (char ch = 'b'; ch <= 'j'; ++ch) ten += std::string(", \"w") + ch + "x\" (32768)";
  const std::string two = ten.substr(0, ten.find(", \"wcx"));
  const std::tuple<int, bool, std::string> rows[] = {
      {1, false, one + "\r\nAdd it to the stop words.\n"},
      {1, true, one + "\n"},
      {2, false, two + many + "\r\nAdd them to the stop words.\n"},
      {10, true, ten + many + "\n"},
      {11, true, ten + " and 1 more" + many + "\n"}};
  for (const auto& [count, found, said] : rows) {
    std::string words;
    for (int i = 0; i < count; ++i) words += std::string("w") + static_cast<char>('a' + i) + "x ";
    ListingTestRun run(Repeated(words, 32768), found, "out.txt", {});
    EXPECT_EQ(run.Go(), RunOutcome::failed);
    EXPECT_TRUE(run.session.Report().wordsTooFrequent);
    EXPECT_EQ(run.ui.Said(), said);
    EXPECT_EQ(run.ui.output, "No result");
    EXPECT_EQ(run.folder.Read("out.txt"), "old");
  }
}

}  // namespace
}  // namespace quorvel
