#include "run/outputs.h"

#include <gtest/gtest.h>

#include "support/scripted_conversation.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

TEST(Outputs, AreThoseOfTheMode) {
  ConcordanceSettings settings;
  settings.inputFile = "a.txt";
  settings.outputFile = "out";
  settings.searchResultsFile = "found";
  for (const bool disabled : {false, true}) {
    settings.outputToFileDisabled = disabled;
    settings.mode = Mode::create;
    EXPECT_EQ(ListingOutputOf(settings).name, "concordance file");
    EXPECT_EQ(ListingOutputOf(settings).path, disabled ? "" : "out");
    settings.mode = Mode::search;
    EXPECT_EQ(ListingOutputOf(settings).name, "search results file");
    EXPECT_EQ(ListingOutputOf(settings).path, "found");
  }
  EXPECT_EQ(IndexOutputOf(settings).path, "a.qvl.ndx");
}

TEST(Outputs, ReplaceNeitherAFileToKeepNorEachOther) {
  const TestFolder folder;
  const std::string kept = folder.Write("kept", "");
  const std::pair<std::vector<std::string>, std::string> rows[] = {
      {{"out", "index"}, ""},
      {{"", ""}, ""},
      {{"./kept", "index"}, "Quorvel: The first file cannot be the same as the keywords file.\n"},
      {{"out", "kept"}, "Quorvel: The second file cannot be the same as the keywords file.\n"},
      {{"out", "./out"}, "Quorvel: The second file cannot be the same as the first file.\n"}};
  for (const auto& [names, said] : rows) {
    std::vector<Output> outputs = {{"first file", ""}, {"second file", ""}};
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (!names[i].empty()) outputs[i].path = folder.Path(names[i]);
    }
    ScriptedConversation ui;
    EXPECT_EQ(CheckOutputs(outputs, {{"keywords file", kept}}, ui), said.empty());
    EXPECT_EQ(ui.Said(), said);
  }
}

}  // namespace
}  // namespace quorvel
