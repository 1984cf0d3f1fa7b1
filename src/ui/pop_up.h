// A short message in a small window that closes by itself.
//
// It is for messages that need no answer. Each function waits until the time is over or the user
// presses a key or clicks in any window of the program. This key or click does nothing else. If a
// pop-up is already shown, its text, place and time are replaced, and the function returns at once.
#pragma once

#include <QPoint>
#include <QSize>
#include <QString>

class QWidget;

namespace quorvel {

struct PopUpMessage {
  QString text;
  QSize size;          // in pixels; larger if the text needs it
  int intervalMs = 0;  // how long it stays, in milliseconds
};

// Shows the message with its top left corner at `place`, in pixels of the screen.
void PopUp(QWidget& owner, const PopUpMessage& message, QPoint place);

// Shows the message in the middle of the screen.
void PopUpCenterScreen(QWidget& owner, const PopUpMessage& message);

// Shows the message at `offset`, in pixels, from the top left corner of `owner`, which is a window
// or a control. The message is moved if it would not be completely on the screen.
void PopUpInForm(QWidget& owner, const PopUpMessage& message, QPoint offset);

// The pop-up that is shown now, or null. It is not a modal window.
[[nodiscard]] QWidget* ShownPopUp();

}  // namespace quorvel
