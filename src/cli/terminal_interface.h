// The command line's implementation of the conversation: messages go to standard error, and
// questions are answered by an option, at the terminal, or with their default button.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "cli/platform.h"
#include "run/conversation.h"

namespace quorvel {

enum class AnswerPolicy { yes, no, preset };

class TerminalInterface : public Conversation {
 public:
  // Without a policy, questions are asked if standard input and error are terminals, and otherwise
  // answered with their default. Progress is shown only on a terminal. With `quiet`, progress and
  // success messages are not shown. `inputFile` may be empty.
  TerminalInterface(std::optional<AnswerPolicy> policy, bool quiet, std::string_view inputFile);

  // For one of several documents that are processed in parallel: quiet and without questions. It
  // checks `stopped`, which must outlive it, instead of signals.
  TerminalInterface(std::optional<AnswerPolicy> policy, std::string_view inputFile,
                    const std::atomic<bool>& stopped);

  void AppendOutput(std::string_view text) override;
  void ShowBar(std::string_view caption) override;
  Answer Ask(const Message& message) override;
  void TellOfLostCharacters(std::int64_t count, Reading reading) override;
  // Used only by windows:
  void SetOutput(std::string_view /*text*/) override {}
  void SetLabel(Label /*label*/, std::string_view /*text*/) override {}
  void SayWhatIsShown(const ListingShown& /*listing*/) override {}
  void CountSeconds(bool /*counting*/) override {}
  void PopUp(std::string_view /*text*/) override {}
  void OfferStop(bool /*offered*/) override {}  // Ctrl-C is always available
  void YieldNow() override;

  // Sets the name that replaces the input's path in messages.
  void CallInput(std::string name) { inputName_ = std::move(name); }

  // Writes the text to standard error as one line with the name of the program and the input file,
  // because several runs may share a log.
  void Say(std::string_view text);

  // Like Say, for a message about a file.
  void SayOf(std::string_view path, std::string_view reason);

  // Writes a part of the result to standard output. Returns false after any failure, and also when
  // a stop was requested and the reader accepts no more bytes.
  bool WriteResult(std::string_view bytes);

  // True when a result could not be written, except because of a stop.
  [[nodiscard]] bool ResultFailed() const { return resultFailed_; }

 private:
  bool Write(Stream stream, std::string_view bytes);
  void WriteLine(std::string_view text);
  void ClearBar();

  std::optional<AnswerPolicy> policy_;
  bool quiet_;
  std::string inputFile_;  // as shown in messages
  std::string inputName_;  // shown instead, if not empty
  bool showsProgress_;
  bool barShown_ = false;
  bool resultFailed_ = false;
  const std::atomic<bool>* stopped_ = nullptr;
};

// Reports on standard error that memory ran out for `words`: a file, or the arguments of the
// program. Allocates no memory.
void SayNoMemory(const char* const* words, std::size_t count);

// Thrown by YieldNow when the system asks the program to end. Unwinding the stack removes all
// temporary files.
struct EndRequested {
  int signal = 0;
};

// After this call an interrupt (Ctrl-C) stops the run, and a second one ends the program. A
// termination request, or the loss of the terminal, makes YieldNow throw EndRequested.
void StopOnSignals();

// Ends the program with the default action of `signal`.
[[noreturn]] void EndBySignal(int signal);

}  // namespace quorvel
