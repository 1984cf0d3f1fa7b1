// Taking the words of an input from its index file, and writing that.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "engine/words.h"
#include "files/digest.h"
#include "files/output_file.h"
#include "files/read_file.h"
#include "run/conversation.h"
#include "util/fault.h"

namespace quorvel {

// Words of an input that need no scan.
struct WordsAtHand {
  std::string inputFile;
  FileStamp stamp;     // of the input when it had the digest
  std::string digest;  // of the input that they belong to
  std::shared_ptr<const WordTable> table;
  Reading reading = Reading::windows1252;  // of the document that they belong to
  bool fromIndexFile = false;              // and so to be compared with the text
};

// Loads the words from the index file beside an input with this digest. Nothing when there is none,
// it was made from other bytes (the user is told), cannot be used, or the user declines; with `ask`
// off the user is not asked.
[[nodiscard]] std::optional<WordsAtHand> ReadIndexFile(const InputBytes& input,
                                                       const InputDigest& digest, Reading reading,
                                                       bool ask, Conversation& ui);

// Writes the index of words that were scanned, with the digest of the bytes that they were scanned
// from. Nothing when it was written, else why not, with an older file as it was.
[[nodiscard]] std::optional<Fault> CreateIndexFile(const ListedWords& words,
                                                   const FilesToKeep& kept, Conversation& ui);

// The message about an index that was not made from the input as it is.
void ShowBadIndexFile(Conversation& ui);

}  // namespace quorvel
