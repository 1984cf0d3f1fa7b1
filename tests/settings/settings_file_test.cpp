#include "settings/settings_file.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "support/file_size_limit.h"
#include "support/platform.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

// Settings of which no value is the default; the first three paths are files that exist.
ConcordanceSettings Unusual(const TestFolder& folder) {
  ConcordanceSettings settings;
  settings.mode = Mode::search;
  settings.inputFile = folder.Write(ON_WINDOWS ? "in put.txt" : "in \"put\xFF.txt", "x");
  settings.searchResultsFile = folder.Write("results", "x");
  settings.keywordsFile = folder.Write("keys", "x");
  settings.outputFile = "not/there.txt";
  settings.extraStopWords = "été œuvre";
  settings.thresholdFrequency = 20;
  settings.ignoreInfrequentWords = settings.ignoreLists = settings.allowWordsWithNumerals = true;
  settings.warnOnOverwrite = settings.saveStateOnQuit = settings.showLineBreaks = true;
  settings.allowWordsWithHyphens = settings.showFrequencies = false;
  settings.wordOrder = WordOrder::byFrequency;
  settings.contextSize = 9;
  settings.stopWordsFile = "no stop words";
  settings.extraKeywords = "h* a+b?";
  settings.createIndexFile = settings.outputToFileDisabled = true;
  return settings;
}

std::string BytesOf(const ConcordanceSettings& settings, const TestFolder& folder) {
  EXPECT_EQ(SaveState(settings, folder.Path("bytes")), "");
  return folder.Read("bytes");
}

TEST(SettingsFile, HoldsTwentyTwoLines) {
  const TestFolder folder;
  const ConcordanceSettings unusual = Unusual(folder);
  EXPECT_EQ(BytesOf({}, folder),
            "\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n1\r\n0\r\n\"\"\r\n0\r\n0\r\n0\r\n1\r\n0\r\n0\r\n0\r\n1"
            "\r\n0\r\n"
            "0\r\n5\r\n\"\"\r\n\"\"\r\n0\r\n0\r\n");
  EXPECT_EQ(BytesOf(unusual, folder),
            "\"" + unusual.inputFile + "\"\r\n\"" + unusual.searchResultsFile + "\"\r\n\"" +
                unusual.keywordsFile +
                "\"\r\n\"not/there.txt\"\r\n0\r\n1\r\n\"\xE9t\xE9 "
                "\x9Cuvre\"\r\n18\r\n1\r\n1\r\n0\r\n1\r\n1\r\n1\r\n"
                "0\r\n1\r\n1\r\n9\r\n\"no stop words\"\r\n\"h* a+b?\"\r\n1\r\n1\r\n");
}

TEST(SettingsFile, ComesBackAsItWas) {
  const TestFolder folder;
  for (const bool unusual : {false, true}) {
    const ConcordanceSettings saved = unusual ? Unusual(folder) : ConcordanceSettings();
    const std::string bytes = BytesOf(saved, folder);
    ConcordanceSettings restored = unusual ? ConcordanceSettings() : Unusual(folder);
    const RestoredState state = RestoreSavedState(restored, folder.Path("bytes"), false);
    EXPECT_EQ(state.errorText, "");
    EXPECT_TRUE(state.modeSelected);
    EXPECT_EQ(BytesOf(restored, folder), bytes);
    EXPECT_EQ(RestoreSavedState(restored, folder.Path("bytes"), true).errorText, "");
    EXPECT_EQ(restored.mode, Mode::create);
  }
}

// Puts `line` in the place of one line, 1-based, of a file of unusual settings.
TEST(SettingsFile, JudgesEachLine) {
  const std::string fault = "Error when attempting to restore settings: line ";
  const struct {
    int line;
    std::string value;
    std::string error;
    bool (*holds)(const ConcordanceSettings&);
  } rows[] = {
      {1, "\"/no/such/file\"", "", [](auto& s) { return s.inputFile.empty(); }},
      {3, "\"   \"", "", [](auto& s) { return s.keywordsFile.empty(); }},
      {4, "\"  a \"", "", [](auto& s) { return s.outputFile == "  a "; }},
      {4, "bare", "", [](auto& s) { return s.outputFile == "bare"; }},
      {5, "1", "", [](auto& s) { return s.mode == Mode::search; }},
      {6, "2", "", [](auto& s) { return s.mode == Mode::create; }},
      {6, "x", fault + "6 is not a number.", [](auto& s) { return s.extraStopWords.empty(); }},
      {8, "19", fault + "8 is not a place in its list.",
       [](auto& s) {
         return s.thresholdFrequency == 2 && !s.extraStopWords.empty() && s.contextSize == 5;
       }},
      {8, "-1", "", [](auto& s) { return s.thresholdFrequency == 2; }},
      {8, "99999999999", fault + "8 is not a number.", [](auto& s) { return s.contextSize == 5; }},
      {9, "  01x", "", [](auto& s) { return s.ignoreInfrequentWords; }},
      {9, "x1", "", [](auto& s) { return !s.ignoreInfrequentWords; }},
      {9, "", "", [](auto& s) { return !s.ignoreInfrequentWords; }},
      {9, "\"1\"", "", [](auto& s) { return s.ignoreInfrequentWords; }},
      {11, "2", "", [](auto& s) { return !s.allowWordsWithHyphens; }},
      {17, "-1", "Invalid combo box index",
       [](auto& s) {
         return s.wordOrder == WordOrder::alphabetical && s.contextSize == 9 && s.createIndexFile;
       }},
      {18, "-1", "Invalid combo box index", [](auto& s) { return s.outputToFileDisabled; }},
      {18, "10", fault + "18 is not a place in its list.",
       [](auto& s) { return s.showLineBreaks && s.stopWordsFile.empty(); }},
      {22, "-7", "", [](auto& s) { return !s.outputToFileDisabled; }}};
  for (const auto& [line, value, error, holds] : rows) {
    const TestFolder folder;
    std::string bytes = BytesOf(Unusual(folder), folder);
    std::size_t start = 0;
    for (int i = 1; i < line; ++i) start = bytes.find("\r\n", start) + 2;
    bytes.replace(start, bytes.find("\r\n", start) - start, value);
    ConcordanceSettings restored;
    const RestoredState state = RestoreSavedState(restored, folder.Write("s.lvz", bytes), false);
    EXPECT_EQ(state.errorText, error) << line;
    EXPECT_TRUE(holds(restored)) << line << " " << value;
    EXPECT_EQ(state.modeSelected, line != 6 || value != "2");
  }
}

TEST(SettingsFile, CutOrSpoiltNeverGivesWrongValues) {
  const TestFolder folder;
  const std::string bytes = BytesOf(Unusual(folder), folder);
  std::mt19937 random(7);
  for (std::size_t i = 0; i < bytes.size() + 3000; ++i) {
    std::string spoilt = bytes.substr(0, i);
    if (i >= bytes.size()) spoilt[random() % spoilt.size()] = static_cast<char>(random());
    ConcordanceSettings restored;
    const auto state = RestoreSavedState(restored, folder.Write("s.lvz", spoilt), false);
    if (i + 3 < bytes.size()) {
      EXPECT_NE(state.errorText, "") << i;
    }
    EXPECT_TRUE(restored.contextSize >= 0 && restored.contextSize <= LARGEST_CONTEXT_SIZE);
    EXPECT_TRUE(restored.thresholdFrequency >= 2 && restored.thresholdFrequency <= 20);
  }
  ConcordanceSettings restored;
  EXPECT_EQ(RestoreSavedState(restored, folder.Path("none"), false).errorText,
            "Error when attempting to restore settings: No such file or directory");
}

TEST(SettingsFile, IsTheUsersOwnByDefault) {
  const TestFolder folder;
  const char* const set = ::getenv(CONFIGURATION_VARIABLE);
  const std::string before = set != nullptr ? set : "";
  SetVariable(CONFIGURATION_VARIABLE, folder.Path("new"));
  EXPECT_EQ(StateFilePath(), folder.Path("new/Quorvel/qvl.usr"));
  EXPECT_EQ(SaveState({}, ""), "");
  ConcordanceSettings restored;
  restored.contextSize = 3;
  EXPECT_EQ(RestoreSavedState(restored, "", true).errorText, "");
  EXPECT_EQ(restored.contextSize, 5);
  SetVariable(CONFIGURATION_VARIABLE, before);
}

TEST(SettingsFile, LeavesTheOldOneWhenItCannotBeWritten) {
  SKIP_ON_WINDOWS("the size of files cannot be limited");
  const std::string prefix = "Error when attempting to save settings: ";
  const TestFolder folder;
  const std::string old = BytesOf({}, folder);
  const ConcordanceSettings unusual = Unusual(folder);
  const std::ptrdiff_t files = folder.Count();
  const std::size_t length = BytesOf(unusual, folder).size();
  (void)folder.Write("bytes", old);
  for (std::size_t limit = 0; limit < length; ++limit) {
    const FileSizeLimit full(limit);
    EXPECT_EQ(SaveState(unusual, folder.Path("bytes")), prefix + "File too large");
    EXPECT_EQ(folder.Read("bytes"), old);
    EXPECT_EQ(folder.Count(), files);
  }
  EXPECT_EQ(SaveState(unusual, folder.Path("no/x")), prefix + "No such file or directory");
  EXPECT_EQ(SaveState(unusual, folder.Path("")), prefix + "Is a directory");
  EXPECT_EQ(SaveState(unusual, "/dev/full"), prefix + "No space left on device");
}

}  // namespace
}  // namespace quorvel
