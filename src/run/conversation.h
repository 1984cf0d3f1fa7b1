// The conversation of a run with its user: questions, messages, labels and the output box.
//
// The window, the command line and the tests each implement this interface. Only code in run/ and
// above uses it; the layers below see only Progress. All texts are UTF-8, with CR LF between their
// lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "util/alphabet.h"
#include "util/progress.h"

namespace quorvel {

enum class Icon { none, information, exclamation };
enum class Buttons { ok, yesNo, yesNoCancel };
enum class Answer { ok, yes, no, cancel };

// The title of message boxes without a title of their own.
inline constexpr const char* STANDARD_TITLE = "Quorvel";

// A message box. `preset` is the button that Enter presses.
struct Message {
  std::string text;
  std::string title = STANDARD_TITLE;
  Icon icon = Icon::exclamation;
  Buttons buttons = Buttons::ok;
  Answer preset = Answer::ok;
};

// The labels beside the output box.
enum class Label { numberOfWords, numberOfOccurrences, keywordsFound };
inline constexpr std::size_t LABELS = 3;

// How much of a listing the output box shows, in characters.
struct ListingShown {
  std::int64_t shown = 0;
  std::int64_t all = 0;
  bool fileHoldsAll = false;
};

class Conversation : public Progress {
 public:
  // Appends a line such as "Sorting ..." to the output box.
  void BeginPhase(std::string_view name) override {
    AppendOutput(std::string(name).append(" ...\r\n"));
  }

  // Appends to the output box.
  virtual void AppendOutput(std::string_view text) = 0;

  // Replaces the contents of the output box and scrolls to its beginning.
  virtual void SetOutput(std::string_view text) = 0;

  // Sets the text of a label. An empty text clears it.
  virtual void SetLabel(Label label, std::string_view text) = 0;

  // Reports that the output box shows only a part of the listing. Called only if it does. The next
  // text in the box removes the note.
  virtual void SayWhatIsShown(const ListingShown& listing) = 0;

  // Starts or stops counting the seconds of a run and showing the words found so far. The count
  // pauses while a message box is open.
  virtual void CountSeconds(bool counting) = 0;

  // Shows a message box, waits, and returns the button that was pressed.
  virtual Answer Ask(const Message& message) = 0;

  // Shows a message box with only an OK button, and waits until it is closed.
  void Tell(std::string text, std::string title, Icon icon = Icon::exclamation) {
    Ask({std::move(text), std::move(title), icon, Buttons::ok, Answer::ok});
  }

  // Reports, before a text is listed, that `count` characters of the input (at least one) are
  // missing from it: characters that Windows-1252 lacks or, in the Unicode reading, invalid bytes.
  // Does not wait for the user.
  virtual void TellOfLostCharacters(std::int64_t /*count*/, Reading /*reading*/) {}

  // Shows a short text that disappears by itself.
  virtual void PopUp(std::string_view text) = 0;

  // Shows or hides the button that stops the work.
  virtual void OfferStop(bool offered) = 0;
};

}  // namespace quorvel
