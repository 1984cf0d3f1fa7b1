// The texts that the benchmarks run on, and each of them as it stands before a phase.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/run_state.h"
#include "util/silent_interface.h"

namespace quorvel {

enum class Source {
  text,              // the file that QUORVEL_BENCH_TEXT names, else 4 MB of generated text
  wideVocabulary,    // 4 MB of generated text with ten times as many words
  repeatedSentence,  // 1 MB
};

struct Sample {
  std::string path;             // of a file that is there as long as the program runs
  std::int64_t fileLength = 0;  // in bytes
  std::u16string documentText;  // with its double hyphens blanked
  WordTable scannedTable;       // in the order of first occurrence
  RunState ordered;             // ready to be listed, at the default settings
  std::string concordancePath;  // where a concordance of it may be written
};

// Made when it is first asked for. Words that occur too often to be listed stand in
// the settings as extra stop words.
[[nodiscard]] const Sample& SampleOf(Source source);

}  // namespace quorvel
