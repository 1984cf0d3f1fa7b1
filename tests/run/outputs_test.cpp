#include "run/outputs.h"

#include <gtest/gtest.h>

#include "support/scripted_conversation.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

TEST(Outputs, AreThoseOfTheMode) {
  ConcordanceSettings settings;
  settings.outputFile = "out";
  settings.searchResultsFile = "found";
  EXPECT_EQ(ListingOutputOf(settings).path, "out");
  settings.outputToFileDisabled = true;
  EXPECT_EQ(ListingOutputOf(settings).path, "");
  settings.mode = Mode::search;
  EXPECT_EQ(ListingOutputOf(settings).path, "found");
}

TEST(Outputs, ReplaceNeitherAFileToKeepNorEachOther) {
  const TestFolder folder;
  const std::string kept = folder.Write("kept", "");
  const std::pair<std::pair<std::string, std::string>, std::string> rows[] = {
      {{"out", "index"}, ""},
      {{"", ""}, ""},
      {{"./kept", "index"}, "Quorvel: The first file cannot be the same as the keywords file.\n"},
      {{"out", "kept"}, "Quorvel: The second file cannot be the same as the keywords file.\n"},
      {{"out", "./out"}, "Quorvel: The second file cannot be the same as the first file.\n"}};
  for (const auto& [names, said] : rows) {
    const auto path = [&](const std::string& name) {
      return name.empty() ? "" : folder.Path(name);
    };
    const std::vector<Output> outputs = {{"first file", path(names.first)},
                                         {"second file", path(names.second)}};
    ScriptedConversation ui;
    EXPECT_EQ(CheckOutputs(outputs, {{"keywords file", kept}}, ui), said.empty());
    EXPECT_EQ(ui.Said(), said);
  }
}

}  // namespace
}  // namespace quorvel
