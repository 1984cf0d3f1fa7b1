// The conversation of a run with its user: questions, messages, labels and the output box.
//
// The window, the command line and the tests each hold their half of it. Only the code in run/ and
// above speaks; what does the work below sees no more of it than Progress. Every text is UTF-8;
// lines inside one are separated by CR LF.
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

// The title of a message box that has no title of its own.
inline constexpr const char* STANDARD_TITLE = "Quorvel";

// A message box: `preset` is the button that Enter presses.
struct Message {
  std::string text;
  std::string title = STANDARD_TITLE;
  Icon icon = Icon::exclamation;
  Buttons buttons = Buttons::ok;
  Answer preset = Answer::ok;
};

// The captions that are kept current beside the output.
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
  // Shows "Sorting ..." in the output box, as a line of its own.
  void BeginPhase(std::string_view name) override {
    AppendOutput(std::string(name).append(" ...\r\n"));
  }

  // Adds to the end of the output box.
  virtual void AppendOutput(std::string_view text) = 0;

  // Replaces the content of the output box and shows its beginning.
  virtual void SetOutput(std::string_view text) = 0;

  virtual void SetLabel(Label label, std::string_view text) = 0;

  // Says how much of the listing in the output box is shown there; of one that is shown whole
  // nothing is said. The next text of the box takes it back.
  virtual void SayWhatIsShown(const ListingShown& listing) = 0;

  // Counts the seconds of a run, and shows the words found so far, from here until it ends. While
  // a message waits for the user nothing is counted.
  virtual void CountSeconds(bool counting) = 0;

  // Shows a message box and waits; gives the button that was pressed.
  virtual Answer Ask(const Message& message) = 0;

  // Shows a message box that has nothing to answer, and waits until it is closed.
  void Tell(std::string text, std::string title, Icon icon = Icon::exclamation) {
    Ask({std::move(text), std::move(title), icon, Buttons::ok, Answer::ok});
  }

  // Tells that the text which is about to be listed lacks so many characters of the input, at least
  // one: those that Windows-1252 does not have or, in Unicode, bytes that were no characters.
  // Nothing waits for the user.
  virtual void TellOfLostCharacters(std::int64_t /*count*/, Reading /*reading*/) {}

  // Shows a short text that goes away by itself.
  virtual void PopUp(std::string_view text) = 0;

  // Shows the button by which the user can stop what is under way, or hides it.
  virtual void OfferStop(bool offered) = 0;
};

}  // namespace quorvel
