// Every option that shapes a run, in one record.
//
// The window, the command line and the settings files all fill this record, and
// a run reads nothing else. It always holds allowed values.
#pragma once

#include <string>

#include "util/alphabet.h"

namespace quorvel {

enum class Mode { create, search };
enum class WordOrder { alphabetical, byFrequency };

// The context sizes and frequency thresholds that may be chosen, both inclusive.
inline constexpr int LARGEST_CONTEXT_SIZE = 9;
inline constexpr int SMALLEST_THRESHOLD = 2;
inline constexpr int LARGEST_THRESHOLD = 20;

// Paths are in the file system's own bytes (UTF-8 on Windows); typed words are UTF-8.
struct ConcordanceSettings {
  Mode mode = Mode::create;
  std::string inputFile;
  std::string searchResultsFile;
  std::string keywordsFile;
  std::string outputFile;
  WordOrder wordOrder = WordOrder::alphabetical;
  int contextSize = 5;  // words on each side of the listed one; 0 for a bare word list
  bool showFrequencies = true;
  bool showLineBreaks = false;
  bool outputToFileDisabled = false;
  bool createIndexFile = false;
  bool saveStateOnQuit = false;
  bool warnOnOverwrite = false;
  bool inputIsUtf8 = false;
  // These are asked for anew each time and stand in no settings file.
  Reading reading = Reading::windows1252;
  bool notes = false;  // those of a word-processor document are read too, in Unicode
  std::string extraKeywords;
  bool ignoreLists = false;
  bool allowWordsWithHyphens = true;
  bool allowWordsWithNumerals = false;
  bool ignoreInfrequentWords = false;
  int thresholdFrequency = SMALLEST_THRESHOLD;  // occurrences, when infrequent words are ignored
  std::string stopWordsFile;
  std::string extraStopWords;
};

// Puts the main window's fields and the stop-words file back to their defaults; with
// `reinitialize` the settings panel's other fields too. The lasting choices (index
// file, saving on quit, overwrite warning, how texts are read) stay as the user set them either
// way.
void InitializeVariables(ConcordanceSettings& settings, bool reinitialize);

}  // namespace quorvel
