#include "ui/pop_up.h"

#include <QDialog>
#include <QHideEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>
#include <QTimer>
#include <algorithm>

namespace quorvel {
namespace {

class PopUpWindow : public QDialog {
 public:
  explicit PopUpWindow(QWidget* window)
      : QDialog(window, Qt::Dialog | Qt::FramelessWindowHint), message_(this), timer_(this) {
    setWindowModality(Qt::WindowModal);
    message_.setObjectName("lblMessage");
    message_.setAlignment(Qt::AlignCenter);
    message_.setTextFormat(Qt::PlainText);
    message_.setFrameStyle(QFrame::Box | QFrame::Plain);
    message_.setMargin(MARGIN);
    timer_.setObjectName("Timer1");
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &QDialog::hide);
  }

  // To be called before the place is set, for the place may depend on the size.
  void SetMessage(const PopUpMessage& message) {
    setWindowTitle(message.text);  // what a screen reader says
    message_.setText(message.text);
    setFixedSize(message.size.expandedTo(message_.sizeHint()));
    message_.resize(size());
    timer_.setInterval(message.intervalMs);
  }

  // Hiding the window, by whatever way, ends the wait.
  void ShowAt(QPoint place) {
    move(place);
    timer_.start();
    if (!isVisible()) exec();  // else it is there already, with its older message
  }

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override {
    if (rect().contains(event->position().toPoint())) hide();
  }

  void hideEvent(QHideEvent*) override { timer_.stop(); }

 private:
  static constexpr int MARGIN = 9;  // pixels between frame and text
  QLabel message_;
  QTimer timer_;
};

PopUpWindow& PopUpOf(QWidget& owner) {
  QWidget* window = owner.window();
  for (QObject* child : window->children()) {
    if (auto* popUp = dynamic_cast<PopUpWindow*>(child)) return *popUp;
  }
  return *new PopUpWindow(window);  // the window deletes it
}

QPoint CenteredIn(const QRect& screen, QSize size) {
  return screen.topLeft() +
         QPoint((screen.width() - size.width()) / 2, (screen.height() - size.height()) / 2);
}

// The place nearest to `place` where all of the window is on the screen.
QPoint KeptOn(const QRect& screen, QPoint place, QSize size) {
  return {std::max(screen.left(), std::min(place.x(), screen.right() + 1 - size.width())),
          std::max(screen.top(), std::min(place.y(), screen.bottom() + 1 - size.height()))};
}

}  // namespace

void PopUp(QWidget& owner, const PopUpMessage& message, QPoint place) {
  PopUpWindow& popUp = PopUpOf(owner);
  popUp.SetMessage(message);
  popUp.ShowAt(place);
}

void PopUpCenterScreen(QWidget& owner, const PopUpMessage& message) {
  PopUpWindow& popUp = PopUpOf(owner);
  popUp.SetMessage(message);
  popUp.ShowAt(CenteredIn(owner.screen()->geometry(), popUp.size()));
}

void PopUpInForm(QWidget& owner, const PopUpMessage& message, QPoint offset) {
  PopUpWindow& popUp = PopUpOf(owner);
  popUp.SetMessage(message);
  popUp.ShowAt(
      KeptOn(owner.screen()->availableGeometry(), owner.mapToGlobal(offset), popUp.size()));
}

}  // namespace quorvel
