#include "run/listing_run.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/made_texts.h"
#include "support/test_run.h"
#include "util/ansi.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

// Different words. Without contexts each takes ten characters in the listing.
std::string ManyWords(int count) {
  std::string words;
  for (int n = 0; n < count; ++n) words += "w" + std::to_string(10000 + n) + " ";
  return words;
}

// A run whose output file already exists. With `found` it is a search for every word.
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
  const std::string cannot = "Error: An error occurred when creating concordance file.\n";
  const struct {
    OutputFormat format;
    bool found;
    const char* output;
    std::string said;
    bool isWritten;
    RunOutcome outcome = done;
    bool asked = false, disabled = false, stopped = false;
    Answer answer = Answer::yes;
  } rows[] = {
      {text, false, "out.txt", "", true},
      {text, false, "out.txt", asks, true, done, true},
      {text, false, "out.txt", asks, false, done, true, false, false, Answer::no},
      {text, false, "new.txt", "", true, done, true},
      // An output that is not written is not compared with the input either.
      {text, false, "a.txt", "Quorvel: Output to file is disabled.\n", false, done, true, true},
      {text, false, "none/out.txt", cannot, false, failed, false, false, true},
      {text, true, "out.txt", "", true, done, false, true},
      {text, true, "none/out.txt", "", false, failed},
      {tsv, false, "out.txt", asks, true, done, true},
      {json, false, "out.txt", asks, false, done, true, false, false, Answer::no},
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
    EXPECT_EQ(run.ui.log.find("pops up") < run.ui.log.size(),
              row.isWritten && row.format == text && !row.found);
    EXPECT_EQ(run.ui.log.find("+ Writing rows ...\n") == std::string::npos, row.format == text);
    EXPECT_EQ(run.ui.log.find("label Number of keywords found") < run.ui.log.size(),
              row.format == text && !row.found);
    EXPECT_EQ(run.session.Report().written, row.isWritten);
    EXPECT_EQ(run.folder.Read("out.txt") != "old",
              row.isWritten && std::string_view(row.output) == "out.txt");
  }
}

TEST(ListingRun, GoesToASink) {
  using enum RunOutcome;
  using enum OutputFormat;
  const std::string frequent = ManyWords(4000) + Repeated("zebu ", 32768);
  const std::tuple<OutputFormat, std::string, int, RunOutcome, int> rows[] = {
      // The pieces that are accepted, and the lines in them.
      {text, ManyWords(3000), 9, done, 9004},  {tsv, ManyWords(4000), 9, done, 4001},
      {text, "the old harbour", 0, failed, 0}, {text, "the old harbour", 0, stopped, 0},
      {tsv, "the old harbour", 0, stopped, 0}, {text, frequent, 9, failed, 0}};
  for (const auto& [format, bytes, takes, outcome, lines] : rows) {
    SCOPED_TRACE(bytes.size());
    std::string taken;
    int pieces = 0;
    const auto sink = [&, most = takes](std::string_view piece) {
      taken += pieces < most ? piece : "";
      return ++pieces <= most;
    };
    ListingTestRun run(bytes, false, "out.txt", {.outputFormat = format, .outputSink = sink});
    run.settings.warnOnOverwrite = true;
    EXPECT_EQ(outcome == stopped ? StopOf(run) : run.Go(), outcome);
    EXPECT_EQ(run.session.Report().written, outcome == done);
    EXPECT_EQ(std::ranges::count(taken, '\n'), lines);
    EXPECT_EQ(run.ui.questions.size(), bytes == frequent ? 1U : 0U);
    EXPECT_EQ(run.ui.log.find("pops up"), std::string::npos);
    EXPECT_EQ(run.folder.Read("out.txt"), "old");
  }
}

TEST(ListingRun, ShowsAsMuchAsTheBoxTakes) {
  const std::u16string start = std::u16string(500, u'a') + u' ';
  EXPECT_EQ(TextboxPart(start + std::u16string(64498, u'b')).size(), 64999U);
  EXPECT_EQ(TextboxPart(start + std::u16string(64499, u'b')), start);
  EXPECT_EQ(TextboxPart(std::u16string(65000, u'a')), u"");
  const std::string tooLarge =
      "The concordance is too large for the textbox.: "
      "To get the entire concordance, specify a concordance (output) file.\n";
  for (const std::string output : {"", "out.txt"}) {
    for (const std::string lastWord : {"xyzab ", "xyzabc "}) {
      const int all = lastWord == "xyzab " ? 0 : 65000;
      ListingTestRun run(ManyWords(6499) + lastWord, false, output.c_str(), {});
      run.settings.contextSize = 0;
      EXPECT_EQ(run.Go(), RunOutcome::done);
      EXPECT_EQ(run.ui.Said(), all != 0 && output.empty() ? tooLarge : "");
      EXPECT_NE(run.ui.log.find("\n= w10001 1\n"), std::string::npos);  // the current word
      EXPECT_EQ(run.ui.listingShown.shown, all);
      EXPECT_EQ(run.ui.listingShown.all, all);
      EXPECT_EQ(run.ui.listingShown.fileHoldsAll, all != 0 && !output.empty());
      EXPECT_TRUE(run.ui.output == EncodeUtf8(TextboxPart(DecodeAnsi(run.ListedText()))));
    }
  }
}

TEST(ListingRun, NamesTheWordsThatOccurTooOften) {
  const std::string many = " occur more than 32767 times and cannot be listed.";
  std::string ten = "Error: The words \"wax\" (32768)";
  for (char ch = 'b'; ch <= 'j'; ++ch) ten += std::string(", \"w") + ch + "x\" (32768)";
  const std::tuple<int, bool, std::string> rows[] = {
      {1, false,
       "Error: The word \"wax\" occurs 32768 times; a word that occurs more than 32767 times "
       "cannot be listed.\r\nAdd it to the stop words.\n"},
      {10, false, ten + many + "\r\nAdd them to the stop words.\n"},
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
