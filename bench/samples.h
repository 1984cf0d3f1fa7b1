// The texts of the benchmarks, and the values that each phase needs as its input.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "output/listing.h"
#include "run/session.h"
#include "run/silent_conversation.h"

namespace quorvel {

enum class Source {
  text,              // the file in QUORVEL_BENCH_TEXT, or 4 MB of generated text
  wideVocabulary,    // 4 MB of generated text with ten times as many words
  repeatedSentence,  // 1 MB
};

struct Sample {
  std::string path;             // of a file that exists until the program ends
  std::int64_t fileLength = 0;  // in bytes
  std::shared_ptr<const Document> document;
  WordTable scannedTable;        // in the order of first occurrence
  ConcordanceSettings settings;  // the defaults, for this file
  Listing listing;               // ready to be composed
  std::string concordancePath;   // where its concordance may be written
};

// Reads the document at `path` as a run does.
[[nodiscard]] std::shared_ptr<const Document> DocumentAt(const std::string& path);

// Returns a sample, which is made on first use. Words that are too frequent to be listed are extra
// stop words in its settings.
[[nodiscard]] const Sample& SampleOf(Source source);

}  // namespace quorvel
