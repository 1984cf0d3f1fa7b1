// The main window's half of the conversation with the core: progress in the output box,
// counts on labels, message boxes, and the events of the window while a run goes on.
#pragma once

#include <QElapsedTimer>
#include <QString>
#include <array>
#include <optional>
#include <string_view>

#include "util/user_interface.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QWidget;

namespace quorvel {

// The controls that the conversation takes place in.
struct ConversationControls {
  QWidget* window;
  QPlainTextEdit* output;
  QPushButton* stopButton;
  QWidget* outputFileBox;              // beside which it says that the file is written
  std::array<QLabel*, LABELS> labels;  // in the order of Label
};

class WindowInterface : public UserInterface {
 public:
  explicit WindowInterface(const ConversationControls& controls) : controls_(controls) {}

  void AppendOutput(std::string_view text) override;
  void SetOutput(std::string_view text) override;
  void SetLabel(Label label, std::string_view text) override;
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

  // Shows the message that popped up during the work; it would only have held that up.
  void ShowPendingPopUp();

  // Shows at once what the output box is to show next.
  void ShowPendingOutput();

 private:
  [[nodiscard]] QLabel& LabelOf(Label label) const;
  void TurnBusyIndicator();

  ConversationControls controls_;
  bool working_ = false;
  std::optional<QString> pendingOutput_;  // what the output box is to show next
  std::optional<QString> pendingPopUp_;
  QElapsedTimer sinceEvents_;
  int busyStep_ = 0;
};

}  // namespace quorvel
