// The options of a run, in one struct.
//
// The window, the command line and the settings files fill this struct, and a run uses nothing
// else. It always holds valid values.
#pragma once

#include <string>

#include "util/alphabet.h"

namespace quorvel {

enum class Mode { create, search };
enum class WordOrder { alphabetical, byFrequency };

// The ranges of the context size and of the frequency threshold, both inclusive.
inline constexpr int LARGEST_CONTEXT_SIZE = 9;
inline constexpr int SMALLEST_THRESHOLD = 2;
inline constexpr int LARGEST_THRESHOLD = 20;

// Paths are the file system's own bytes (UTF-8 on Windows). Typed words are UTF-8.
struct ConcordanceSettings {
  Mode mode = Mode::create;
  std::string inputFile;
  std::string searchResultsFile;
  std::string keywordsFile;
  std::string outputFile;
  WordOrder wordOrder = WordOrder::alphabetical;
  int contextSize = 5;  // words on each side of the listed word; 0 for a bare word list
  bool showFrequencies = true;
  bool showLineBreaks = false;
  bool outputToFileDisabled = false;
  bool createIndexFile = false;
  bool saveStateOnQuit = false;
  bool warnOnOverwrite = false;
  bool inputIsUtf8 = false;
  // These two are not stored in settings files.
  Reading reading = Reading::windows1252;
  bool notes = false;  // include the notes of word-processor documents (Unicode reading only)
  std::string extraKeywords;
  bool ignoreLists = false;
  bool allowWordsWithHyphens = true;
  bool allowWordsWithNumerals = false;
  bool ignoreInfrequentWords = false;
  int thresholdFrequency = SMALLEST_THRESHOLD;  // used only with `ignoreInfrequentWords`
  std::string stopWordsFile;
  std::string extraStopWords;
};

// Resets the main window's fields and the stop-words file to their defaults, with `reinitialize`
// also the other fields of the settings panel. The lasting choices (index file, saving on quit,
// overwrite warning, how texts are read) are never changed.
void InitializeVariables(ConcordanceSettings& settings, bool reinitialize);

}  // namespace quorvel
