// The main window's half of the conversation with the core: progress in the output box,
// counts on labels, message boxes, and the events of the window while a run goes on.
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QString>
#include <QTimer>
#include <array>
#include <optional>
#include <string_view>

#include "run/conversation.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QWidget;

namespace quorvel {

class FindBar;

// The controls that the conversation takes place in.
struct ConversationControls {
  QWidget* window;
  QPlainTextEdit* output;
  QPushButton* stopButton;
  QWidget* outputFileBox;              // below which it says that the file is written
  std::array<QLabel*, LABELS> labels;  // in the order of Label
  QLabel* progressBar;
  QLabel* busyIndicator;
  QLabel* timeElapsed;
  QLabel* listingShown;  // how much of it, where that is not all
  QWidget* lossBar;      // above the listing: what the text lacks
  QLabel* lostCharacters;
  QPushButton* readUnicode;
  FindBar* findBar;
};

class WindowInterface : public Conversation {
  Q_DECLARE_TR_FUNCTIONS(WindowInterface)

 public:
  explicit WindowInterface(const ConversationControls& controls);

  void AppendOutput(std::string_view text) override;
  void SetOutput(std::string_view text) override;
  void TellOfLostCharacters(std::int64_t count, Reading reading) override;
  void SetLabel(Label label, std::string_view text) override;
  void ShowBar(std::string_view caption) override;
  void SayWhatIsShown(const ListingShown& listing) override;
  void CountSeconds(bool counting) override;
  Answer Ask(const Message& message) override;
  void PopUp(std::string_view text) override;
  void OfferStop(bool offered) override;
  void YieldNow() override;
  void YieldAtOnce() override;

  // From now on, until EndWork, the output box follows in steps that the eye can, and
  // events run at each yield.
  void BeginWork();
  void EndWork();
  [[nodiscard]] bool IsWorking() const { return working_; }

  // Takes away what was told of lost characters, which are those of another text now.
  void HideLostCharacters() const;

  // Shows the message that popped up during the work; it would only have held that up.
  void ShowPendingPopUp();

 private:
  void ShowPendingOutput();
  void TurnBusyIndicator();
  void Timer2_Timer();

  ConversationControls controls_;
  bool working_ = false;
  std::optional<QString> pendingOutput_;  // what the output box is to show next
  std::optional<QString> pendingPopUp_;
  QElapsedTimer sinceEvents_;
  QTimer timer2_;  // counts the seconds of a run
  int secondsOfRun_ = 0;
  int busyStep_ = 0;
};

}  // namespace quorvel
