// The command line's half of the conversation: messages go to standard error,
// questions are answered by option, at the terminal, or with their default button.
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
  // Without a policy, questions are asked where a terminal shows and answers them, and
  // take their default button elsewhere. Progress is shown only on a terminal; with
  // `quiet` neither progress nor a message that all went well. `inputFile` may be empty.
  TerminalInterface(std::optional<AnswerPolicy> policy, bool quiet, std::string_view inputFile);

  // For one of several documents that are worked on at once: quiet, it asks nothing, and instead of
  // signals it looks at `stopped`, which must outlive it.
  TerminalInterface(std::optional<AnswerPolicy> policy, std::string_view inputFile,
                    const std::atomic<bool>& stopped);

  void AppendOutput(std::string_view text) override;
  void SetOutput(std::string_view text) override;
  void ShowBar(std::string_view caption) override;
  Answer Ask(const Message& message) override;
  void TellOfLostCharacters(std::int64_t count, Reading reading) override;
  // What only a window has.
  void SetLabel(Label /*label*/, std::string_view /*text*/) override {}
  void SayWhatIsShown(const ListingShown& /*listing*/) override {}
  void CountSeconds(bool /*counting*/) override {}
  void PopUp(std::string_view /*text*/) override {}
  void OfferStop(bool /*offered*/) override {}  // Ctrl-C is always there
  void YieldNow() override;

  // Calls the input so wherever messages would have its path.
  void CallInput(std::string name) { inputName_ = std::move(name); }

  // Writes the text to standard error, as one line that names the program and the input
  // file: several runs may share one log.
  void Say(std::string_view text);

  // The same of what is wrong with a file.
  void SayOf(std::string_view path, std::string_view reason);

  // Writes bytes of a result to standard output. False when that fails, now or before; also when a
  // stop is wanted and the reader at the other end takes nothing.
  bool WriteResult(std::string_view bytes);

  // Whether a result could not be written, but for a stop.
  [[nodiscard]] bool ResultFailed() const { return resultFailed_; }

 private:
  bool Write(Stream stream, std::string_view bytes);
  void WriteLine(std::string_view text);
  void ClearBar();

  std::optional<AnswerPolicy> policy_;
  bool quiet_;
  std::string inputFile_;  // as messages show it
  std::string inputName_;  // in its place, if not empty
  bool showsProgress_;
  bool barShown_ = false;
  bool resultFailed_ = false;
  const std::atomic<bool>* stopped_ = nullptr;
};

// Says on standard error that there is not enough memory for what these words name, a file or the
// arguments of a program. Asks for no memory.
void SayNoMemory(const char* const* words, std::size_t count);

// Leaves YieldNow when the system wants the program to end: on the way out all that is
// temporary is removed.
struct EndRequested {
  int signal = 0;
};

// From now on an interrupt (Ctrl-C) asks the run to stop, and the next one ends the program.
// A request to end, or the loss of the terminal, makes YieldNow throw EndRequested.
void StopOnSignals();

// Ends the program as `signal` does by itself.
[[noreturn]] void EndBySignal(int signal);

}  // namespace quorvel
