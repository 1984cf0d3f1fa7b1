#include "ui/pop_up.h"

#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QHideEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <algorithm>

namespace quorvel {
namespace {

// Not a modal window: Qt discards clicks outside a modal window, and a click anywhere must close
// this one.
class PopUpWindow : public QDialog {
 public:
  explicit PopUpWindow(QWidget* window)
      : QDialog(window, Qt::Dialog | Qt::FramelessWindowHint), message_(this), timer_(this) {
    message_.setObjectName("lblMessage");
    message_.setAlignment(Qt::AlignCenter);
    message_.setTextFormat(Qt::PlainText);
    message_.setFrameStyle(QFrame::Box | QFrame::Plain);
    message_.setMargin(MARGIN);
    timer_.setObjectName("Timer1");
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &QDialog::hide);
  }

  // Must be called before ShowAt, because the place may depend on the size.
  void SetMessage(const PopUpMessage& message) {
    setWindowTitle(message.text);  // for screen readers
    message_.setText(message.text);
    setFixedSize(message.size.expandedTo(message_.sizeHint()));
    message_.resize(size());
    timer_.setInterval(message.intervalMs);
  }

  // Returns when the window is hidden for any reason.
  void ShowAt(QPoint place) {
    move(place);
    timer_.start();
    if (isVisible()) return;  // already shown, with an earlier message
    QEventLoop wait;
    wait_ = &wait;
    isPressed_ = false;
    qApp->installEventFilter(this);
    show();
    wait.exec();
  }

 protected:
  // Keeps keys and clicks from all windows of the program while the pop-up is shown.
  bool eventFilter(QObject* receiver, QEvent* event) override {
    switch (event->type()) {
      case QEvent::ShortcutOverride:  // the key then arrives as a KeyPress and triggers no shortcut
        event->accept();
        return true;
      case QEvent::KeyPress:
        // A key that was already down before does not count.
        if (!dynamic_cast<QKeyEvent&>(*event).isAutoRepeat()) hide();
        return true;
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
        isPressed_ = true;
        return true;
      case QEvent::MouseButtonRelease:
        if (!isPressed_) return false;  // the button was pressed before the pop-up appeared
        hide();
        return true;
      default:
        return KeepsAway(*receiver, *event);
    }
  }

  void hideEvent(QHideEvent*) override {
    qApp->removeEventFilter(this);
    if (wait_) wait_->quit();
  }

 private:
  bool KeepsAway(const QObject& receiver, QEvent& event) {
    switch (event.type()) {
      case QEvent::Close:  // of another window, by its frame
        if (!event.spontaneous() || &receiver == this || &receiver == windowHandle()) return false;
        hide();
        [[fallthrough]];
      case QEvent::Wheel:
      case QEvent::ContextMenu:
      case QEvent::DragEnter:
      case QEvent::DragMove:
      case QEvent::Drop:
        event.ignore();
        return true;
      default:
        return false;
    }
  }

  static constexpr int MARGIN = 9;  // pixels between frame and text
  QLabel message_;
  QTimer timer_;
  QPointer<QEventLoop> wait_;
  bool isPressed_ = false;  // a mouse button, since the pop-up appeared
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

// The position nearest to `place` at which the whole window is on the screen.
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

QWidget* ShownPopUp() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && dynamic_cast<PopUpWindow*>(window) != nullptr) return window;
  }
  return nullptr;
}

}  // namespace quorvel
