// Errors as values: the only way in which the core reports a failure.
//
// A Fault names what failed, the file, and the system's reason. The layer that talks to the user
// turns it into a message. A stop requested by the user is a fault too, so that callers handle it
// in the same way.
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace quorvel {

enum class FaultKind {
  stopped,  // by the user
  // A file to be read:
  missing,
  notAFile,   // a device, a pipe or a folder
  tooLong,    // 2 GB or more
  notOpened,  // for example because of missing permissions
  notRead,    // an I/O error
  // A file to be written:
  wouldReplace,  // it is another file of the run; `reason` names that file, such as "input file"
  notWritten,
  // A document:
  noHead,             // a web page without a head
  unknownCharset,     // an unsupported encoding; `reason` names it
  textTooLong,        // more characters than a position can hold
  noTemporaryFolder,  // none could be created
  temporaryFolderFull,
  fileNotRemoved,    // from the temporary folder
  folderNotRemoved,  // the temporary folder, or a folder in it
  noBody,            // nothing of the document's body could be unpacked
  bodyTooLarge,
  libraryMissing,  // the one that unpacks archives
  // Words that the user typed; `reason` holds the offending characters:
  notAllowedInStopWord,  // a character that no word can contain
  notAllowedForNow,      // a character that an option would allow
  notAllowedInKeyword,
  manyPlusSigns,
};

struct Fault {
  FaultKind kind = FaultKind::stopped;
  std::string file;     // its path; empty when no file is involved
  std::string reason;   // the system's description, if any
  int errorNumber = 0;  // the system's error number, or 0
};

// Either a value, or the fault that explains why there is none.
template <typename Value>
class [[nodiscard]] Result {
 public:
  // Implicit, so that a function can return a value or a fault directly.
  Result(Value value) : held_(std::move(value)) {}  // NOLINT(*-explicit-*)
  Result(Fault fault) : held_(std::move(fault)) {}  // NOLINT(*-explicit-*)

  explicit operator bool() const { return std::holds_alternative<Value>(held_); }

  // The value. Must not be called on a fault.
  [[nodiscard]] Value& operator*() & { return *std::get_if<Value>(&held_); }
  [[nodiscard]] const Value& operator*() const& { return *std::get_if<Value>(&held_); }
  [[nodiscard]] Value&& operator*() && { return std::move(*std::get_if<Value>(&held_)); }
  [[nodiscard]] Value* operator->() { return std::get_if<Value>(&held_); }
  [[nodiscard]] const Value* operator->() const { return std::get_if<Value>(&held_); }

  // The fault. Must not be called on a value.
  [[nodiscard]] const Fault& Error() const { return *std::get_if<Fault>(&held_); }

 private:
  std::variant<Value, Fault> held_;
};

}  // namespace quorvel
