#include "run/run_driver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "output/concordance_file.h"
#include "output/digest.h"
#include "output/listing.h"
#include "support/scripted_interface.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

// A run on one file of its own, with a scripted user.
struct TestRun {
  TestFolder folder;
  RunState state;
  ScriptedInterface ui;

  explicit TestRun(std::string_view bytes, std::string_view name = "a.txt") {
    state.settings.inputFile = folder.Write(name, bytes);
    state.settings.outputFile = folder.Path("out.txt");
  }

  RunOutcome Go() { return RunConcordance(state, ui); }

  // What the output file holds behind its header.
  [[nodiscard]] std::string Entries() const {
    const std::string bytes = folder.Read("out.txt");
    const std::size_t header = bytes.find("\r\n\r\n");
    return header == std::string::npos ? bytes : bytes.substr(header + 4);
  }

  [[nodiscard]] std::string LastLabel(Label label) const { return ui.labels.at(label).back(); }
};

void Replace(std::string& text, std::string_view from, const std::string& to) {
  const std::size_t place = text.find(from);
  if (place != std::string::npos) text.replace(place, from.size(), to);
}

constexpr const char* HARBOUR =
    "the old harbour was silent now\r\nthe old harbour was silent too\r\n";

TEST(RunDriver, WritesAConcordance) {
  TestRun run(HARBOUR);
  run.state.settings.contextSize = 2;
  EXPECT_EQ(run.Go(), RunOutcome::done);
  const std::string header =
      "Input file: " + run.folder.Path("a.txt") +
      "\r\nMD5 message digest of input file: 9E693739212B562FC5E90CF3EA378B3D\r\n"
      "Concordance file created using Quorvel (V.21.36): ";
  const std::string file = run.folder.Read("out.txt");
  EXPECT_EQ(file.substr(0, header.size()), header);
  EXPECT_EQ(file.find("\r\n\r\n"), header.size() + std::string("2024-05-17 14:03").size());
  // The word before the first one found is left out, and so is the last of a text.
  EXPECT_EQ(run.Entries(),
            "[harbour 2]\r\n...  old \xABharbour\xBB was silent\r\n"
            "... the old \xABharbour\xBB was silent\r\n"
            "\r\n[now 1]\r\n... was silent \xABnow\xBB the old\r\n"
            "\r\n[old 2]\r\n... \xABold\xBB harbour was silent now\r\n"
            "... now the \xABold\xBB harbour was\r\n"
            "\r\n[silent 2]\r\n... harbour was \xABsilent\xBB now the\r\n"
            "... harbour was \xABsilent\xBB \r\n"
            "\r\n[the 2]\r\n... \xABthe\xBB old harbour was silent\r\n"
            "... silent now \xABthe\xBB old harbour\r\n"
            "\r\n[too 1]\r\n... was silent\r\n"
            "\r\n[was 2]\r\n... old harbour \xABwas\xBB silent now\r\n"
            "... old harbour \xABwas\xBB silent \r\n\r\n");
  EXPECT_EQ(run.ui.output.substr(0, 13), "[harbour 2]\r\n");
  const std::vector<std::string> phases = {
      "Reading file ...\r\n",          "Compacting spaces ...\r\n",
      "Processing file ...\r\n",       "Sorting ...\r\n",
      "Applying filters ...\r\n",      "Counting words ...\r\n",
      "Ordering by frequency ...\r\n", "Creating concordance ...\r\n"};
  EXPECT_EQ(run.ui.appends, phases);
  EXPECT_EQ(run.ui.popUps, std::vector<std::string>{"Concordance file written"});
  EXPECT_TRUE(run.ui.questions.empty());
  EXPECT_EQ(run.LastLabel(Label::numberOfWords), "Number of words: 7");
  EXPECT_EQ(run.LastLabel(Label::numberOfOccurrences), "Number of occurrences: 12");
  EXPECT_EQ(run.LastLabel(Label::keywordsFound), "Number of keywords found: 7");
}

TEST(RunDriver, ListsBareWordsByFrequencyWithoutTheInfrequent) {
  TestRun run(HARBOUR);
  run.state.settings.contextSize = 0;
  run.state.settings.wordOrder = WordOrder::byFrequency;
  run.state.settings.ignoreInfrequentWords = true;
  run.state.settings.extraStopWords = "THE,was";
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_EQ(run.state.settings.extraStopWords, "the was");
  EXPECT_EQ(run.Entries(), "harbour 2\r\nold 2\r\nsilent 2\r\n\r\n");
}

struct RefusalRow {
  const char* name;
  std::string bytes;
  const char* file;
  std::function<void(TestRun&)> change;
  std::string text;  // "@" stands for the input, "#" for the output file
  std::string title;
  RunOutcome outcome = RunOutcome::refused;
  std::vector<Answer> answers = {};
};

TEST(RunDriver, SaysWhyItEndsAndLeavesTheOldFile) {
  const auto nothing = [](TestRun&) {};
  const auto utf8 = [](TestRun& run) { run.state.settings.inputIsUtf8 = true; };
  const std::string typographic = "say \xE2\x80\x9Chello there\xE2\x80\x9D once more";
  std::string frequent;
  for (int i = 0; i < 32768; ++i) frequent += "word ";
  const RefusalRow rows[] = {
      {"no input", "x", "a.txt", [](TestRun& run) { run.state.settings.inputFile = "  "; },
       "Input file not specified.", "Quorvel"},
      {"extension", "hello there", "a.log", nothing,
       "This program acts only on text files,\r\nWord DOCX files and HTML files.", "List words"},
      {"missing", "x", "a.txt", [](TestRun& run) { run.state.settings.inputFile = "/no/a.txt"; },
       "File @ not found.", "Fatal error"},
      {"folder", "x", "a.txt",
       [](TestRun& run) {
         std::filesystem::create_directory(run.folder.Path("f.txt"));
         run.state.settings.inputFile = run.folder.Path("f.txt");
       },
       "File @ not found.", "Fatal error"},
      {"2 GB", "x", "a.txt",
       [](TestRun& run) { std::filesystem::resize_file(run.folder.Path("a.txt"), 2147483647); },
       "File @\r\nis too large to be scanned: 2 GB or more.", "File too big"},
      {"output is input", "hello there", "a.txt",
       [](TestRun& run) { run.state.settings.outputFile = run.folder.Path("./a.txt"); },
       "The concordance file cannot be the same as the input file.", "Quorvel"},
      {"four bytes", "abcd", "a.txt", nothing, "File @\r\ncontains only from 1 to 4 bytes.",
       "Fatal error"},
      {"stop word", "hello there", "a.txt",
       [](TestRun& run) { run.state.settings.extraStopWords = "it's"; },
       "The character ' occurs in some stop word\r\nbut is not a character allowed in a word.",
       "Character not allowed"},
      {"question cancelled",
       typographic,
       "a.txt",
       nothing,
       "This file seems to be UTF-8 encoded.\r\nClick 'Yes' to scan it as UTF-8 encoded or 'No' to "
       "scan it as ANSI.",
       "UTF-8 or ANSI file?",
       RunOutcome::refused,
       {Answer::cancel}},
      {"other question cancelled",
       "plain text",
       "a.txt",
       utf8,
       "This file does not seem to be UTF-8 encoded.\r\nClick 'Yes' to scan it as UTF-8 encoded "
       "(not advisable)\r\nor 'No' to scan it as ANSI.",
       "UTF-8 or ANSI file?",
       RunOutcome::refused,
       {Answer::cancel}},
      {"no word admitted", "a b c did 1999 aaa", "a.txt", nothing, "", "",
       RunOutcome::nothingFound},
      {"too frequent", frequent, "a.txt", nothing,
       "The word \"word\" occurs 32768 times; a word that occurs more than 32767 times cannot be "
       "listed.\r\nAdd it to the stop words.",
       "Error", RunOutcome::failed},
      {"output folder missing", "hello there", "a.txt",
       [](TestRun& run) { run.state.settings.outputFile = run.folder.Path("none/out.txt"); },
       "An error occurred when creating concordance file.", "Error", RunOutcome::failed},
      {"overwriting declined",
       "hello there",
       "a.txt",
       [](TestRun& run) { run.state.settings.warnOnOverwrite = true; },
       "A concordance file \r\n#"
       "\r\nalready exists.  Do you wish to overwrite it?",
       "File exists",
       RunOutcome::done,
       {Answer::no}},
      {"output disabled", "hello there", "a.txt",
       [](TestRun& run) { run.state.settings.outputToFileDisabled = true; },
       "Output to file is disabled.", "Quorvel", RunOutcome::done}};
  for (const RefusalRow& row : rows) {
    SCOPED_TRACE(row.name);
    TestRun run(row.bytes, row.file);
    (void)run.folder.Write("out.txt", "old");
    const std::ptrdiff_t files = run.folder.Count();
    row.change(run);
    run.ui.answers = row.answers;
    EXPECT_EQ(run.Go(), row.outcome);
    EXPECT_EQ(run.folder.Read("out.txt"), "old");
    EXPECT_EQ(run.folder.Count(), files + (std::string(row.name) == "folder" ? 1 : 0));
    std::string text = row.text;
    Replace(text, "@", run.state.settings.inputFile);
    Replace(text, "#", run.folder.Path("out.txt"));
    ASSERT_EQ(run.ui.questions.size(), text.empty() ? 0U : 1U);
    if (text.empty()) {
      EXPECT_EQ(run.ui.output, "No words satisfying the conditions were found.");
      continue;
    }
    EXPECT_EQ(run.ui.questions[0].text, text);
    EXPECT_EQ(run.ui.questions[0].title, row.title);
    EXPECT_TRUE(row.outcome != RunOutcome::refused || run.ui.output.empty());
  }
}

TEST(RunDriver, SettlesTheEncoding) {
  struct Row {
    const char* name;
    bool looksLikeUtf8;
    bool setting;
    EncodingChoice choice;
    std::vector<Answer> answers;
    bool result;
  };
  const Row rows[] = {{"yes", true, false, EncodingChoice::confirm, {Answer::yes}, true},
                      {"no", true, false, EncodingChoice::confirm, {Answer::no}, false},
                      {"Enter keeps ANSI", true, false, EncodingChoice::confirm, {}, false},
                      {"Enter keeps UTF-8", false, true, EncodingChoice::confirm, {}, true},
                      {"agreed", true, true, EncodingChoice::confirm, {Answer::cancel}, true},
                      {"adopted", true, false, EncodingChoice::adoptDetected, {}, true},
                      {"dropped", false, true, EncodingChoice::adoptDetected, {}, false}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestRun run(row.looksLikeUtf8 ? "caf\xC3\xA9 \xE2\x80\x94 caf\xC3\xA9"
                                  : "caf\xC3\xA9 caf\xC3\xA9");
    run.state.settings.inputIsUtf8 = row.setting;
    run.state.encodingChoice = row.choice;
    run.state.settings.contextSize = 0;
    run.ui.answers = row.answers;
    EXPECT_EQ(run.Go(), RunOutcome::done);
    EXPECT_EQ(run.state.settings.inputIsUtf8, row.result);
    EXPECT_EQ(run.Entries(), row.result ? "caf\xE9 2\r\n\r\n" : "caf\xC3 2\r\n\r\n");
    EXPECT_EQ(std::count(run.ui.appends.begin(), run.ui.appends.end(), "Converting UTF-8 ...\r\n"),
              row.result ? 1 : 0);
  }
}

TEST(RunDriver, StopsWhereTheUserWants) {
  struct Row {
    const char* name;
    int yield;
    RunOutcome outcome;
    const char* lastLine;
    bool written;
  };
  // The first yield comes after reading, the second after sorting; then one an entry.
  const Row rows[] = {{"reading", 1, RunOutcome::stopped, "Stopped when reading file.", false},
                      {"sorting", 2, RunOutcome::stopped, "Stopped with 7 words found.\r\n", false},
                      {"first entry", 3, RunOutcome::stopped, "\r\nListing stopped.\r\n", true},
                      {"last entry", 9, RunOutcome::stopped, "\r\nListing stopped.\r\n", true}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    TestRun run(HARBOUR);
    run.ui.stopAtYield = row.yield;
    EXPECT_EQ(run.Go(), row.outcome);
    EXPECT_TRUE(run.ui.output.ends_with(row.lastLine)) << run.ui.output;
    EXPECT_EQ(run.folder.Count(), row.written ? 2 : 1);
    if (row.yield == 3) {
      EXPECT_TRUE(run.Entries().starts_with("[harbour 2]\r\n"));
      EXPECT_EQ(run.Entries().find("[now"), std::string::npos);
    }
  }
}

TEST(RunDriver, SendsTheBytesWhereTheSinkSays) {
  TestRun run(HARBOUR);
  std::string bytes;
  run.state.outputSink = [&bytes](std::string_view part) {
    bytes += part;
    return true;
  };
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_EQ(run.folder.Count(), 1);
  EXPECT_TRUE(bytes.starts_with("Input file: "));
  EXPECT_TRUE(bytes.ends_with("\r\n\r\n"));
}

TEST(Listing, ShowsAsMuchAsTheBoxTakes) {
  const auto textOf = [](std::size_t size) {
    return std::string(500, 'a') + ' ' + std::string(size - 501, 'b');
  };
  EXPECT_EQ(TextboxPart(textOf(64999)).size(), 64999U);
  EXPECT_EQ(TextboxPart(textOf(65000)).size(), 501U);
  EXPECT_EQ(TextboxPart(std::string(65000, 'a')), "");
  TestRun run(std::string(12000, ' ') + HARBOUR);
  run.state.settings.outputFile.clear();
  std::string words;
  for (char16_t a = 'b'; a <= 'y'; ++a) {
    for (char16_t b = 'b'; b <= 'y'; ++b)
      words += std::string("ab") + char(a) + "o" + char(b) + "o ";
  }
  run.state.settings.inputFile = run.folder.Write("b.txt", words);
  EXPECT_EQ(run.Go(), RunOutcome::done);
  EXPECT_FALSE(run.state.textboxFull);
  run.state.settings.contextSize = 9;
  EXPECT_EQ(ListWords(run.state, run.ui), ListingOutcome::listed);
  EXPECT_TRUE(run.state.textboxFull);
  ASSERT_EQ(run.ui.questions.size(), 1U);
  EXPECT_EQ(run.ui.questions[0].title, "The concordance is too large for the textbox.");
  EXPECT_EQ(run.ui.questions[0].text,
            "To get the entire concordance, specify a concordance (output) file.");
}

TEST(Digest, IsOfTheRawBytes) {
  const TestFolder folder;
  EXPECT_EQ(ComputeFileDigest(folder.Write("a", "abc")).text, "900150983CD24FB0D6963F7D28E17F72");
  const std::string faults[][3] = {{"", "-4", ""},
                                   {"C:", "-3", "Drive, not file"},
                                   {folder.Path(""), "-2", "Folder, not file"},
                                   {folder.Write("b", ""), "-1", "Zero-length file"}};
  for (const auto& [path, status, message] : faults) {
    const FileDigest digest = ComputeFileDigest(path);
    EXPECT_EQ(std::to_string(digest.status), status);
    EXPECT_EQ(digest.message, message);
    EXPECT_EQ(digest.text, "");
  }
}

}  // namespace
}  // namespace quorvel
