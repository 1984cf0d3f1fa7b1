#include "settings/settings_file.h"

#include <gtest/gtest.h>

#include "support/platform.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

// Settings in which no value is the default. The first three paths are existing files.
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

std::size_t StartOf(int line, const std::string& bytes) {
  std::size_t start = 0;
  for (; line > 1; --line) start = bytes.find("\r\n", start) + 2;
  return start;
}

// Changes one line of a file of such settings, and shows what is then saved for it.
TEST(SettingsFile, JudgesEachLine) {
  const std::string noNumber = "is not a number.";
  const std::string outOfRange = "is out of range.";
  const std::string noChoice = "Invalid combo box index";
  const std::tuple<int, std::string, std::string, std::string> rows[] = {
      {1, "\"/no/such/file\"", "\"\"", ""},
      {3, "\"   \"", "\"\"", ""},
      {4, "\"  a \"", "\"  a \"", ""},
      {4, "\"", "\"\"", ""},
      {6, "2", "0", ""},
      {6, "x", "0", noNumber},
      {8, "19", "0", outOfRange},
      {8, "-1", "0", ""},
      {8, "-2", "0", outOfRange},
      {9, "  01x", "1", ""},
      {9, "x1", "0", ""},
      {17, "2", "0", outOfRange},
      {17, "-1", "0", noChoice},
      {18, "-1", "5", noChoice},
      {18, "10", "5", outOfRange}};
  const TestFolder folder;
  const std::string unusual = BytesOf(Unusual(folder), folder);
  for (const auto& [line, value, saved, error] : rows) {
    SCOPED_TRACE(std::to_string(line) + " " + value);
    std::string bytes = unusual;
    const std::size_t start = StartOf(line, bytes);
    bytes.replace(start, bytes.find("\r\n", start) - start, value);
    ConcordanceSettings restored;
    const RestoredState state = RestoreSavedState(restored, folder.Write("s.lvz", bytes), false);
    const bool isFault = error.starts_with("is ");
    const std::string prefix =
        "Error when attempting to restore settings: line " + std::to_string(line) + " ";
    EXPECT_EQ(state.errorText, isFault ? prefix + error : error);
    EXPECT_EQ(state.modeSelected, line != 6 || value != "2");
    const std::string again = BytesOf(restored, folder);
    EXPECT_TRUE(again.substr(StartOf(line, again)).starts_with(saved + "\r\n")) << again;
    EXPECT_TRUE(again.ends_with(isFault ? "\r\n0\r\n" : "\r\n1\r\n"));
  }
}

TEST(SettingsFile, WithoutAModeLeavesTheModeAsItIs) {
  const TestFolder folder;
  std::string bytes = BytesOf({}, folder);
  bytes.replace(StartOf(5, bytes), 1, "0");
  for (const Mode mode : {Mode::create, Mode::search}) {
    ConcordanceSettings restored;
    restored.mode = mode;
    EXPECT_FALSE(RestoreSavedState(restored, folder.Write("s.lvz", bytes), false).modeSelected);
    EXPECT_EQ(restored.mode, mode);
  }
}

TEST(SettingsFile, IsReadUpToAMegabyte) {
  const TestFolder folder;
  const std::string restoring = "Error when attempting to restore settings: ";
  ConcordanceSettings settings;
  settings.outputFile = std::string((1U << 20U) - BytesOf({}, folder).size(), 'a');
  EXPECT_EQ(BytesOf(settings, folder).size(), 1U << 20U);
  EXPECT_EQ(RestoreSavedState(settings, folder.Path("bytes"), false).errorText, "");
  settings.outputFile += "aaa";
  (void)BytesOf(settings, folder);
  EXPECT_EQ(RestoreSavedState(settings, folder.Path("bytes"), false).errorText,
            restoring + "the file ends after line 21.");
  EXPECT_EQ(RestoreSavedState(settings, folder.Path("none"), false).errorText,
            restoring + "No such file or directory");
}

TEST(SettingsFile, IsWrittenWholeAndInThePlaceOfNoOther) {
  const TestFolder folder;
  const std::string input = folder.Write("in.txt", "text");
  EXPECT_EQ(SaveState({}, folder.Path("./in.txt"), {{"input file", input}}),
            "The settings file cannot be the same as the input file.");
  EXPECT_EQ(folder.Read("in.txt"), "text");
  ConcordanceSettings unicode;
  unicode.reading = Reading::unicode;
  unicode.extraStopWords = "ł";
  EXPECT_EQ(SaveState(unicode, folder.Path("s.lvz"), {}),
            "Error when attempting to save settings: "
            "\"ł\" has characters that are not in Windows-1252");
  unicode.reading = Reading::windows1252;
  EXPECT_EQ(SaveState(unicode, folder.Path("s.lvz"), {}), "");
  EXPECT_EQ(SaveState({}, folder.Path("none/s.lvz"), {{"input file", input}}),
            "Error when attempting to save settings: No such file or directory");
  ConcordanceSettings settings;
  settings.extraKeywords = "a\r\nb";
  EXPECT_EQ(SaveState(settings, folder.Path("s.lvz"), {}),
            "Error when attempting to save settings: A file name or a text contains a line break");
  EXPECT_EQ(folder.Count(), 2);
}

}  // namespace
}  // namespace quorvel
