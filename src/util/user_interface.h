// What a run says to its user and asks of them.
//
// The core knows no window and no terminal: it speaks through this one class,
// which the window, the command line and the tests each implement. Every text is
// UTF-8; lines inside one are separated by CR LF.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace quorvel {

enum class Icon { none, information, exclamation };
enum class Buttons { ok, yesNo, yesNoCancel };
enum class Answer { ok, yes, no, cancel };

// The title of a message box that has no title of its own.
inline constexpr const char* STANDARD_TITLE = "Quorvel";

// A message box: `preset` is the button that Enter presses.
struct Message {
  std::string text;
  std::string title;
  Icon icon = Icon::exclamation;
  Buttons buttons = Buttons::ok;
  Answer preset = Answer::ok;
};

// The captions that a run keeps current beside its output.
enum class Label {
  numberOfWords,
  numberOfOccurrences,
  keywordsFound,
  progressBar,
  busyIndicator,
};
inline constexpr std::size_t LABELS = 5;

class UserInterface {
 public:
  UserInterface() = default;
  UserInterface(const UserInterface&) = delete;
  UserInterface& operator=(const UserInterface&) = delete;
  virtual ~UserInterface() = default;

  // Adds to the end of the output box; a progress line brings its own line end.
  virtual void AppendOutput(std::string_view text) = 0;

  // Replaces the content of the output box and shows its beginning.
  virtual void SetOutput(std::string_view text) = 0;

  virtual void SetLabel(Label label, std::string_view text) = 0;

  // Shows a message box and waits; gives the button that was pressed.
  virtual Answer Ask(const Message& message) = 0;

  // Shows a message box that has nothing to answer, and waits until it is closed.
  void Tell(std::string text, std::string title, Icon icon = Icon::exclamation) {
    Ask({std::move(text), std::move(title), icon, Buttons::ok, Answer::ok});
  }

  // Shows a short text that goes away by itself.
  virtual void PopUp(std::string_view text) = 0;

  // Shows the button by which the user can stop what is under way, or hides it.
  virtual void OfferStop(bool offered) = 0;

  // Lets pending events run; to be called once a coarse step.
  virtual void YieldNow() = 0;

  // The same however short a time ago it did: before a step that nothing can run in.
  virtual void YieldAtOnce() { YieldNow(); }

  // The same for the innermost loops: only one call in a few thousand does work.
  void Yield() {
    if (--callsUntilYield_ == 0) {
      callsUntilYield_ = CALLS_BETWEEN_YIELDS;
      YieldNow();
    }
  }

  // Whether the user has asked, and confirmed, that the run should end.
  [[nodiscard]] bool StopRequested() const { return stopRequested_; }
  void RequestStop() { stopRequested_ = true; }
  void ClearStop() { stopRequested_ = false; }

 private:
  static constexpr int CALLS_BETWEEN_YIELDS = 4096;
  int callsUntilYield_ = CALLS_BETWEEN_YIELDS;
  bool stopRequested_ = false;
};

}  // namespace quorvel
