// The conversation with the core in the main window: progress in the output box, counts in labels,
// message boxes, and the events of the window during a run.
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

// The controls that the conversation uses.
struct ConversationControls {
  QWidget* window;
  QPlainTextEdit* output;
  QPushButton* stopButton;
  QWidget* outputFileBox;              // the pop-up about the written file is shown below it
  std::array<QLabel*, LABELS> labels;  // in the order of Label
  QLabel* progressBar;
  QLabel* busyIndicator;
  QLabel* timeElapsed;
  QLabel* listingShown;  // says how much is shown if that is not all
  QWidget* lossBar;      // above the listing: the count of lost characters
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

  // Until EndWork, the output box is updated only a few times a second, and events run when the
  // core yields.
  void BeginWork();
  void EndWork();
  [[nodiscard]] bool IsWorking() const { return working_; }

  // Hides the message about lost characters, which was about another text.
  void HideLostCharacters() const;

  // Shows the last pop-up message of the work. During the work it would have delayed it.
  void ShowPendingPopUp();

 private:
  void ShowPendingOutput();
  void TurnBusyIndicator();
  void Timer2_Timer();

  ConversationControls controls_;
  bool working_ = false;
  std::optional<QString> pendingOutput_;  // the next text of the output box
  std::optional<QString> pendingPopUp_;
  QElapsedTimer sinceEvents_;
  QTimer timer2_;  // counts the seconds of a run
  int secondsOfRun_ = 0;
  int busyStep_ = 0;
};

}  // namespace quorvel
