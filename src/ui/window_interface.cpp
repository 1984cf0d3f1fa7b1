#include "ui/window_interface.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextCursor>
#include <array>

#include "run/fault_texts.h"
#include "ui/find_bar.h"
#include "ui/pop_up.h"
#include "ui/text.h"
#include "util/time_text.h"

namespace quorvel {
namespace {

// Short enough for a responsive window, long enough to cost little: the window is painted each
// time.
constexpr qint64 BETWEEN_EVENTS_MS = 25;

QMessageBox::Icon IconOf(Icon icon) {
  switch (icon) {
    case Icon::information:
      return QMessageBox::Information;
    case Icon::exclamation:
      return QMessageBox::Warning;
    default:
      return QMessageBox::NoIcon;
  }
}

QMessageBox::StandardButtons ButtonsOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::yesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case Buttons::yesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    default:
      return QMessageBox::Ok;
  }
}

QMessageBox::StandardButton ButtonOf(Answer answer) {
  switch (answer) {
    case Answer::yes:
      return QMessageBox::Yes;
    case Answer::no:
      return QMessageBox::No;
    case Answer::cancel:
      return QMessageBox::Cancel;
    default:
      return QMessageBox::Ok;
  }
}

Answer AnswerOf(int button, Buttons buttons) {
  if (buttons == Buttons::ok) return Answer::ok;
  if (button == QMessageBox::Yes) return Answer::yes;
  return button == QMessageBox::Cancel ? Answer::cancel : Answer::no;
}

}  // namespace

WindowInterface::WindowInterface(const ConversationControls& controls) : controls_(controls) {
  QObject::connect(&timer2_, &QTimer::timeout, &timer2_, [this] { Timer2_Timer(); });
}

void WindowInterface::TellOfLostCharacters(std::int64_t count, Reading reading) {
  controls_.lostCharacters->setText(ShownText(LostCharactersText(count, reading)));
  controls_.readUnicode->setVisible(reading != Reading::unicode);
  controls_.lossBar->show();
}

void WindowInterface::HideLostCharacters() const { controls_.lossBar->hide(); }

void WindowInterface::AppendOutput(std::string_view text) {
  ShowPendingOutput();
  QTextCursor end(controls_.output->document());
  end.movePosition(QTextCursor::End);
  end.insertText(ShownText(text));
  controls_.output->moveCursor(QTextCursor::End);
  controls_.output->viewport()->repaint();
}

void WindowInterface::SetOutput(std::string_view text) {
  pendingOutput_ = ShownText(text);
  if (!working_) ShowPendingOutput();
}

void WindowInterface::SetLabel(Label label, std::string_view text) {
  QLabel& shown = *controls_.labels.at(static_cast<std::size_t>(label));
  shown.setText(ShownText(text));
  shown.setVisible(true);
}

void WindowInterface::ShowBar(std::string_view caption) {
  controls_.progressBar->setText(ShownText(caption));
}

void WindowInterface::SayWhatIsShown(const ListingShown& listing) {
  ShowPendingOutput();
  const QString text =
      listing.fileHoldsAll
          ? tr("The first %1 of %2 characters; the file contains the whole listing.")
          : tr("The first %1 of %2 characters.");
  controls_.listingShown->setText(
      text.arg(ShownText(GroupedNumber(listing.shown)), ShownText(GroupedNumber(listing.all))));
  controls_.listingShown->show();
  controls_.findBar->ShowSearchesPart(true);
}

void WindowInterface::CountSeconds(bool counting) {
  constexpr int SECOND_MS = 1000;
  if (!counting) return timer2_.stop();
  secondsOfRun_ = 0;
  NoteWordsFound(0);
  controls_.timeElapsed->clear();
  timer2_.start(SECOND_MS);
}

void WindowInterface::Timer2_Timer() {
  constexpr int SECONDS_BEFORE_SHOWN = 3;
  ++secondsOfRun_;
  SetLabel(Label::numberOfWords, "Number of words: " + GroupedNumber(WordsFound()));
  if (secondsOfRun_ < SECONDS_BEFORE_SHOWN) return;
  controls_.timeElapsed->setText("Time elapsed: " +
                                 ShownText(ElapsedText(secondsOfRun_, false, false)));
  controls_.timeElapsed->setVisible(true);
}

Answer WindowInterface::Ask(const Message& message) {
  ShowPendingOutput();
  // Show the question over the active window, which may be the settings panel.
  QWidget* const active = QApplication::activeWindow();
  QMessageBox box(IconOf(message.icon), ShownText(message.title), ShownText(message.text),
                  ButtonsOf(message.buttons), active != nullptr ? active : controls_.window);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(ButtonOf(message.preset));
  if (message.buttons == Buttons::yesNo) box.setEscapeButton(QMessageBox::No);
  const bool counting = timer2_.isActive();
  timer2_.stop();
  const Answer answer = AnswerOf(box.exec(), message.buttons);
  if (counting) timer2_.start();
  return answer;
}

void WindowInterface::PopUp(std::string_view text) {
  pendingPopUp_ = ShownText(text);
  if (!working_) ShowPendingPopUp();
}

void WindowInterface::ShowPendingPopUp() {
  constexpr QSize SIZE(300, 60);
  constexpr int SHOWN_MS = 3500;
  if (!pendingPopUp_) return;
  const QString text = *pendingPopUp_;
  pendingPopUp_.reset();
  QWidget& beside =
      controls_.outputFileBox->isVisible() ? *controls_.outputFileBox : *controls_.stopButton;
  PopUpInForm(beside, {text, SIZE, SHOWN_MS}, QPoint(0, beside.height()));
}

void WindowInterface::OfferStop(bool offered) {
  if (offered) controls_.stopButton->setText("&Stop");
  controls_.stopButton->setEnabled(offered);
}

void WindowInterface::YieldNow() {
  if (working_ && sinceEvents_.elapsed() >= BETWEEN_EVENTS_MS) YieldAtOnce();
}

void WindowInterface::YieldAtOnce() {
  if (!working_) return;
  ShowPendingOutput();
  TurnBusyIndicator();
  QCoreApplication::processEvents();
  sinceEvents_.restart();
}

void WindowInterface::BeginWork() {
  working_ = true;
  sinceEvents_.start();
}

void WindowInterface::EndWork() {
  working_ = false;
  ShowPendingOutput();
  controls_.progressBar->clear();
  controls_.busyIndicator->setText(" ");
}

void WindowInterface::ShowPendingOutput() {
  if (!pendingOutput_) return;
  controls_.output->setPlainText(*pendingOutput_);
  controls_.listingShown->hide();
  controls_.findBar->ShowSearchesPart(false);
  controls_.output->moveCursor(QTextCursor::Start);
  pendingOutput_.reset();
}

void WindowInterface::TurnBusyIndicator() {
  constexpr std::array<char, 4> FACES = {'|', '/', '-', '\\'};
  constexpr int STEPS_A_FACE = 8;
  busyStep_ = (busyStep_ + 1) % (STEPS_A_FACE * static_cast<int>(FACES.size()));
  controls_.busyIndicator->setText(
      QString(QChar(FACES.at(static_cast<std::size_t>(busyStep_ / STEPS_A_FACE)))));
}

}  // namespace quorvel
