// What went wrong, as a value: the one way in which the core reports that something failed.
//
// Names what failed, on which file, and the system's reason. Whoever talks with the user makes a
// text of it. A stop that the user asked for is an outcome like the others.
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace quorvel {

enum class FaultKind {
  stopped,  // by the user
  // A file that was to be read.
  missing,
  notAFile,   // a device, a pipe or a folder
  tooLong,    // 2 GB or more
  notOpened,  // for want of rights, say
  notRead,    // the system did not give its bytes
  // A file that was to be written.
  wouldReplace,  // it is another file of the run: `reason` names that, "input file"
  notWritten,
  // A document.
  noHead,             // a web page without a head
  unknownCharset,     // one that cannot be read: `reason` names it
  textTooLong,        // more characters than a position can tell
  noTemporaryFolder,  // none could be made
  temporaryFolderFull,
  fileNotRemoved,    // from the temporary folder
  folderNotRemoved,  // the temporary folder, or one in it
  noBody,            // nothing of the document's body could be unpacked
  bodyTooLarge,
  // Words that were typed; `reason` holds what is wrong in them.
  notAllowedInStopWord,  // a character that stands in no word
  notAllowedForNow,      // one that an option would allow
  notAllowedInKeyword,
  manyPlusSigns,
};

struct Fault {
  FaultKind kind = FaultKind::stopped;
  std::string file;     // its path; empty where no file is at fault
  std::string reason;   // the system's description, where it has one
  int errorNumber = 0;  // the system's number of it, or 0
};

// Either a value or why there is none.
template <typename Value>
class [[nodiscard]] Result {
 public:
  // As what a function returns, either stands for the whole.
  Result(Value value) : held_(std::move(value)) {}  // NOLINT(*-explicit-*)
  Result(Fault fault) : held_(std::move(fault)) {}  // NOLINT(*-explicit-*)

  explicit operator bool() const { return std::holds_alternative<Value>(held_); }

  // The value, which must be there.
  [[nodiscard]] Value& operator*() & { return *std::get_if<Value>(&held_); }
  [[nodiscard]] const Value& operator*() const& { return *std::get_if<Value>(&held_); }
  [[nodiscard]] Value&& operator*() && { return std::move(*std::get_if<Value>(&held_)); }
  [[nodiscard]] Value* operator->() { return std::get_if<Value>(&held_); }
  [[nodiscard]] const Value* operator->() const { return std::get_if<Value>(&held_); }

  // Why there is none, which must be so.
  [[nodiscard]] const Fault& Why() const { return *std::get_if<Fault>(&held_); }

 private:
  std::variant<Value, Fault> held_;
};

}  // namespace quorvel
