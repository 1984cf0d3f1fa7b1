// The texts that the benchmarks run on, and each of them as it stands before a phase.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "output/listing.h"
#include "run/session.h"
#include "run/silent_conversation.h"

namespace quorvel {

enum class Source {
  text,              // the file that QUORVEL_BENCH_TEXT names, else 4 MB of generated text
  wideVocabulary,    // 4 MB of generated text with ten times as many words
  repeatedSentence,  // 1 MB
};

struct Sample {
  std::string path;             // of a file that is there as long as the program runs
  std::int64_t fileLength = 0;  // in bytes
  std::shared_ptr<const Document> document;
  WordTable scannedTable;        // in the order of first occurrence
  ConcordanceSettings settings;  // the default ones, for the file
  Listing listing;               // ready to be composed
  std::string concordancePath;   // where a concordance of it may be written
};

// The document at a path, read as a run reads it.
[[nodiscard]] std::shared_ptr<const Document> DocumentAt(const std::string& path);

// Made when it is first asked for. Words that occur too often to be listed stand in
// the settings as extra stop words.
[[nodiscard]] const Sample& SampleOf(Source source);

}  // namespace quorvel
