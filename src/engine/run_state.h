// All that outlives a run, in one struct that the window or the command line owns
// and passes down.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "engine/admission.h"
#include "engine/word_table.h"
#include "input/document_text.h"
#include "input/skip_spans.h"
#include "settings/settings.h"

namespace quorvel {

struct RunState {
  ConcordanceSettings settings;
  EncodingChoice encodingChoice = EncodingChoice::confirm;
  bool macNoticeShown = false;  // once in the life of the program is enough
  WordLists lists;
  SkipSpans skipSpans;          // of the last input
  std::u16string documentText;  // of the last input; its double hyphens are blanked
  WordTable table;
  std::string outputText;    // the last listing, in Windows-1252 as the file holds it
  bool textboxFull = false;  // the listing did not fit into the output box

  // Where set, the bytes of the output file go here and no file is written; gives
  // false when it cannot take them.
  std::function<bool(std::string_view)> outputSink;
};

}  // namespace quorvel
