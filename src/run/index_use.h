// Reads the words of an input from its index file, and writes index files.
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
  FileStamp stamp;     // of the input when it had this digest
  std::string digest;  // of the input that the words belong to
  std::shared_ptr<const WordTable> table;
  Reading reading = Reading::windows1252;  // of the document that the words belong to
  bool fromIndexFile = false;              // if so, they must be compared with the text
};

// Loads the words from the index file of an input with this digest. Returns nothing when there is
// no index file, it was made from other bytes (the user is told), it is invalid, or the user
// declines. With `ask` off the user is not asked.
[[nodiscard]] std::optional<WordsAtHand> ReadIndexFile(const InputBytes& input,
                                                       const InputDigest& digest, Reading reading,
                                                       bool ask, Conversation& ui);

// Writes the index of scanned words, with the digest of the bytes that were scanned. Returns
// nothing on success. Otherwise it returns the fault, and an existing file is unchanged.
[[nodiscard]] std::optional<Fault> CreateIndexFile(const ListedWords& words,
                                                   const FilesToKeep& kept, Conversation& ui);

// Shows the message about an index that was not made from the current input.
void ShowBadIndexFile(Conversation& ui);

}  // namespace quorvel
