// A short message in a small window that closes by itself.
//
// For what needs no answer; a message box is for the rest. Each form waits until the time is
// up or the user presses a key or clicks, in whichever window of the program, and then returns.
// That key or click does nothing else.
// While one is shown already, its text, place and time are replaced and the call returns
// at once.
#pragma once

#include <QPoint>
#include <QSize>
#include <QString>

class QWidget;

namespace quorvel {

struct PopUpMessage {
  QString text;
  QSize size;          // in pixels; made larger where the text needs it
  int intervalMs = 0;  // how long it stays, in milliseconds
};

// With the message's top left corner at `place`, in pixels of the screen.
void PopUp(QWidget& owner, const PopUpMessage& message, QPoint place);

// In the middle of the screen.
void PopUpCenterScreen(QWidget& owner, const PopUpMessage& message);

// At `offset`, in pixels, from the top left corner of `owner`, which may be a window or
// a control in it; but not beyond the edges of the screen.
void PopUpInForm(QWidget& owner, const PopUpMessage& message, QPoint offset);

// The pop-up that is shown now, if any; it is no modal window.
[[nodiscard]] QWidget* ShownPopUp();

}  // namespace quorvel
