// Answers the boxes that appear while a test acts, like a user.
#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "run/conversation.h"

namespace quorvel {

// True if a window has the focus for both Qt and the X server. Sometimes Qt is ahead of the server.
// If a window is closed then, the next window does not get the focus.
[[nodiscard]] bool HasTheKeys(const QWidget& window);

// Waits until a window has the focus.
void Activate(QWidget& window);

// Fails if the control is hidden, disabled or covered.
void ClickOn(QWidget& control);

// Presses the button with this caption, or the key "Enter" or "Escape".
void PressButton(QWidget& box, const std::string& caption);

void TypeText(QWidget& window, const std::string& text);

struct Box {
  std::string shows;  // the beginning of its description: title, text, icon and buttons
  std::function<void(QWidget&)> answer;
};
using BoxList = std::vector<Box>;

// A message box with the button "OK"; lines are separated by "\n".
[[nodiscard]] Box Tells(const std::string& title, const std::string& text,
                        Icon icon = Icon::exclamation);

// A question on which Enter would press `preset`. The user presses `button`.
[[nodiscard]] Box Asks(const std::string& title, const std::string& text, const char* preset,
                       const char* button, std::string buttons = "Yes,No");

// A file dialog, in which the user types `path`, or cancels if it is empty.
[[nodiscard]] Box AsksForFile(const std::string& title, const std::string& path);

// A pop-up message, which the user closes with a click.
[[nodiscard]] Box PopsUp(const std::string& text);

// Watches for modal windows. If one is not the next expected window, the test fails, the window is
// closed so that nothing hangs, and no more windows are expected.
class Boxes {
 public:
  Boxes();

  // Acts, and waits until these boxes have appeared in this order. `name` is for messages.
  void During(const BoxList& boxes, const std::string& name, const std::function<void()>& act);

 private:
  void Look();

  QTimer timer_;
  std::deque<Box> expected_;
  std::string action_;  // the last one
  QPointer<QWidget> current_;
  int looks_ = 0;  // at the current box
};

}  // namespace quorvel
