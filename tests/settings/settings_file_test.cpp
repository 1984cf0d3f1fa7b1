#include "settings/settings_file.h"

#include <gtest/gtest.h>

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
  EXPECT_EQ(SaveState(settings, folder.Path("bytes"), {}), "");
  return folder.Read("bytes");
}

TEST(SettingsFile, HoldsTwentyTwoLinesThatComeBack) {
  const TestFolder folder;
  const ConcordanceSettings unusual = Unusual(folder);
  const std::string bytes = BytesOf(unusual, folder);
  EXPECT_EQ(bytes, "\"" + unusual.inputFile + "\"\r\n\"" + unusual.searchResultsFile + "\"\r\n\"" +
                       unusual.keywordsFile +
                       "\"\r\n\"not/there.txt\"\r\n0\r\n1\r\n\"\xE9t\xE9 "
                       "\x9Cuvre\"\r\n18\r\n1\r\n1\r\n0\r\n1\r\n1\r\n1\r\n"
                       "0\r\n1\r\n1\r\n9\r\n\"no stop words\"\r\n\"h* a+b?\"\r\n1\r\n1\r\n");
  const std::string usual = BytesOf({}, folder);
  EXPECT_EQ(usual,
            "\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n1\r\n0\r\n\"\"\r\n0\r\n0\r\n0\r\n1\r\n0\r\n0\r\n0\r\n"
            "1\r\n0\r\n0\r\n5\r\n\"\"\r\n\"\"\r\n0\r\n0\r\n");
  ConcordanceSettings restored;
  for (const std::string& saved : {bytes, usual}) {
    EXPECT_EQ(RestoreSavedState(restored, folder.Write("s.lvz", saved), false).errorText, "");
    EXPECT_EQ(BytesOf(restored, folder), saved);
  }
  EXPECT_EQ(RestoreSavedState(restored, folder.Write("s.lvz", bytes), true).errorText, "");
  EXPECT_EQ(restored.mode, Mode::create);
}

TEST(SettingsFile, OfTheUserIsInTheFolderForSettings) {
  SKIP_ON_WINDOWS("no variable names that folder");
  const TestFolder folder;
  SetVariable("XDG_CONFIG_HOME", folder.Path("new"));
  EXPECT_EQ(StateFilePath(), folder.Path("new/Quorvel/qvl.usr"));
  ConcordanceSettings settings;
  EXPECT_NE(RestoreSavedState(settings, "", true).errorText, "");
  EXPECT_EQ(SaveState(Unusual(folder), "", {}), "");
  EXPECT_EQ(RestoreSavedState(settings, "", true).errorText, "");
  SetVariable("XDG_CONFIG_HOME", "");
  EXPECT_EQ(settings.contextSize, 9);
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
      {2, "\"/no/such/file\"", "", [](auto& s) { return s.searchResultsFile.empty(); }},
      {3, "\"   \"", "", [](auto& s) { return s.keywordsFile.empty(); }},
      {4, "\"  a \"", "", [](auto& s) { return s.outputFile == "  a "; }},
      {4, "bare", "", [](auto& s) { return s.outputFile == "bare"; }},
      {4, "\"open", "", [](auto& s) { return s.outputFile == "open"; }},
      {4, "\"", "", [](auto& s) { return s.outputFile.empty(); }},
      {5, "1", "", [](auto& s) { return s.mode == Mode::search; }},
      {6, "2", "", [](auto& s) { return s.mode == Mode::create; }},
      {6, "x", fault + "6 is not a number.", [](auto& s) { return s.extraStopWords.empty(); }},
      {8, "19", fault + "8 is not a place in its list.",
       [](auto& s) { return s.thresholdFrequency == 2 && !s.extraStopWords.empty(); }},
      {8, "-1", "", [](auto& s) { return s.thresholdFrequency == 2; }},
      {8, "-2", fault + "8 is not a place in its list.",
       [](auto& s) { return s.thresholdFrequency == 2; }},
      {8, " 1 ", "", [](auto& s) { return s.thresholdFrequency == 3; }},
      {8, "1x", fault + "8 is not a number.", [](auto& s) { return s.thresholdFrequency == 2; }},
      {8, "99999999999", fault + "8 is not a number.",
       [](auto& s) { return s.thresholdFrequency == 2; }},
      {9, "  01x", "", [](auto& s) { return s.ignoreInfrequentWords; }},
      {9, "x1", "", [](auto& s) { return !s.ignoreInfrequentWords; }},
      {9, "11", "", [](auto& s) { return !s.ignoreInfrequentWords; }},
      {9, "", "", [](auto& s) { return !s.ignoreInfrequentWords; }},
      {9, "\"1\"", "", [](auto& s) { return s.ignoreInfrequentWords; }},
      {11, "2", "", [](auto& s) { return !s.allowWordsWithHyphens; }},
      {17, "2", fault + "17 is not a place in its list.",
       [](auto& s) { return s.wordOrder == WordOrder::alphabetical && s.showLineBreaks; }},
      {17, "-1", "Invalid combo box index", [](auto& s) { return s.contextSize == 9; }},
      {18, "-1", "Invalid combo box index", [](auto& s) { return s.outputToFileDisabled; }},
      {18, "10", fault + "18 is not a place in its list.",
       [](auto& s) { return s.showLineBreaks && s.stopWordsFile.empty(); }}};
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

TEST(SettingsFile, IsRefusedWhenItIsCutOrMissing) {
  const TestFolder folder;
  const std::string restoring = "Error when attempting to restore settings: ";
  const std::string bytes = BytesOf(Unusual(folder), folder);
  ConcordanceSettings settings;
  int line = 0;
  for (std::size_t end = 0; end < bytes.size(); end = bytes.find("\r\n", end) + 2, ++line) {
    const std::string path = folder.Write("s.lvz", bytes.substr(0, end));
    EXPECT_EQ(RestoreSavedState(settings, path, false).errorText,
              restoring + "the file ends after line " + std::to_string(line) + ".");
  }
  EXPECT_EQ(line, 22);
  EXPECT_EQ(RestoreSavedState(settings, folder.Path("none"), false).errorText,
            restoring + "No such file or directory");
}

TEST(SettingsFile, IsReadUpToAMegabyte) {
  const TestFolder folder;
  ConcordanceSettings settings;
  settings.outputFile = std::string((1U << 20U) - BytesOf({}, folder).size(), 'a');
  EXPECT_EQ(BytesOf(settings, folder).size(), 1U << 20U);
  EXPECT_EQ(RestoreSavedState(settings, folder.Path("bytes"), false).errorText, "");
  settings.outputFile += "aaa";
  EXPECT_EQ(BytesOf(settings, folder).size(), (1U << 20U) + 3);
  EXPECT_EQ(RestoreSavedState(settings, folder.Path("bytes"), false).errorText,
            "Error when attempting to restore settings: the file ends after line 21.");
}

TEST(SettingsFile, IsWrittenWholeAndInThePlaceOfNoOther) {
  const TestFolder folder;
  const std::string input = folder.Write("in.txt", "text");
  EXPECT_EQ(SaveState({}, folder.Path("./in.txt"), {{"input file", input}}),
            "The settings file cannot be the same as the input file.");
  EXPECT_EQ(folder.Read("in.txt"), "text");
  EXPECT_EQ(SaveState({}, folder.Path("none/s.lvz"), {{"input file", input}}),
            "Error when attempting to save settings: No such file or directory");
  ConcordanceSettings settings;
  settings.extraKeywords = "a\r\nb";
  EXPECT_EQ(SaveState(settings, folder.Path("s.lvz"), {}),
            "Error when attempting to save settings: A name or a text holds a line end");
  EXPECT_EQ(folder.Count(), 1);
}

}  // namespace
}  // namespace quorvel
