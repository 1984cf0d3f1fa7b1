// All that outlives a run, in one struct that the window or the command line owns
// and passes down.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "engine/admission.h"
#include "engine/word_table.h"
#include "files/digest.h"
#include "input/document_text.h"
#include "input/skip_spans.h"
#include "settings/settings.h"

namespace quorvel {

// Whose words the table holds without a scan: those of an index file that was read, or
// written after the scan.
struct WordsAtHand {
  InputDigest input;           // no path: nobody's, so that the next run scans its input
  bool fromIndexFile = false;  // and so to be compared with the text
  bool withText = false;       // the document text is there too, read under these settings:
  bool inputIsUtf8 = false;
  bool ignoreLists = false;
};

// What a run writes: the listing, or the occurrences behind it as rows.
enum class OutputFormat { text, tsv, json };

struct RunState {
  ConcordanceSettings settings;
  OutputFormat outputFormat = OutputFormat::text;
  EncodingChoice encodingChoice = EncodingChoice::confirm;
  bool listsOnce = false;       // the words of a run are listed at its end and then not again
  bool macNoticeShown = false;  // once in the life of the program is enough
  WordLists lists;
  SkipSpans skipSpans;          // of the last input
  InputDigest inputDigest;      // of the last input, where a run or its file has needed it
  std::u16string documentText;  // of the last input; its double hyphens are blanked
  std::string ansiText;         // the same in Windows-1252, as a listing quotes it
  WordTable table;
  WordsAtHand words;
  std::string outputText;      // the last listing, in Windows-1252 as the file holds it
  bool textboxFull = false;    // the listing did not fit into the output box
  bool outputWritten = false;  // the last listing has gone to its file
  std::string fileFault;       // which file the last run could not write, and why; else empty

  // Where set, the bytes of the output file go here and no file is written; gives
  // false when it cannot take them.
  std::function<bool(std::string_view)> outputSink;
};

}  // namespace quorvel
