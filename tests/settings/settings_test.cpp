#include "settings/settings.h"

#include <gtest/gtest.h>

namespace quorvel {

TEST(Settings, GoBackToTheirDefaultsButForLastingChoices) {
  for (const bool all : {false, true}) {
    ConcordanceSettings settings;
    settings.mode = Mode::search;
    settings.inputFile = settings.stopWordsFile = settings.extraStopWords = "a";
    settings.thresholdFrequency = 20;
    settings.ignoreLists = settings.allowWordsWithNumerals = settings.ignoreInfrequentWords = true;
    settings.createIndexFile = settings.saveStateOnQuit = settings.warnOnOverwrite = true;
    InitializeVariables(settings, all);
    EXPECT_EQ(settings.mode, Mode::create);
    EXPECT_EQ(settings.inputFile + settings.stopWordsFile, "");
    EXPECT_EQ(settings.thresholdFrequency, all ? 2 : 20);
    EXPECT_EQ(settings.extraStopWords, all ? "" : "a");
    EXPECT_TRUE(settings.createIndexFile && settings.saveStateOnQuit && settings.warnOnOverwrite);
  }
}

}  // namespace quorvel
