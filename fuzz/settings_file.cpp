// Reads settings files: accepted settings must be valid and can be saved and restored.

#include "settings/settings_file.h"

#include <tuple>

#include "fuzz_input.h"

namespace quorvel::fuzz {
namespace {

auto ValuesOf(const ConcordanceSettings& s) {
  return std::tie(s.mode, s.inputFile, s.searchResultsFile, s.keywordsFile, s.outputFile,
                  s.wordOrder, s.contextSize, s.showFrequencies, s.showLineBreaks,
                  s.outputToFileDisabled, s.createIndexFile, s.saveStateOnQuit, s.warnOnOverwrite,
                  s.extraKeywords, s.ignoreLists, s.allowWordsWithHyphens, s.allowWordsWithNumerals,
                  s.ignoreInfrequentWords, s.thresholdFrequency, s.stopWordsFile, s.extraStopWords);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const FuzzFolder folder;
  FuzzInput input(data, size);
  const bool starting = input.Flag();
  ConcordanceSettings settings;
  const std::string path = folder.Write("settings", input.Rest());
  const RestoredState state = RestoreSavedState(settings, path, starting);
  Require(settings.contextSize >= 0 && settings.contextSize <= LARGEST_CONTEXT_SIZE &&
              settings.thresholdFrequency >= SMALLEST_THRESHOLD &&
              settings.thresholdFrequency <= LARGEST_THRESHOLD,
          "the settings are valid");
  Require(!starting || settings.mode == Mode::create, "the program starts in create mode");
  if (!state.errorText.empty()) return 0;
  RequireSame(SaveState(settings, path, {}), "", "the settings can be saved");
  ConcordanceSettings restored;
  RequireSame(RestoreSavedState(restored, path, false).errorText, "",
              "the settings can be restored");
  Require(ValuesOf(restored) == ValuesOf(settings), "the settings are restored unchanged");
  Require(folder.Count() == 1, "nothing is left behind");
  return 0;
}

}  // namespace quorvel::fuzz
