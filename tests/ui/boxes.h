// The boxes that come up while a test acts, answered as a user would.
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

// Whether keys go to a window, as both Qt and the X server see it. Qt is ahead of the server at
// times, and a window that is closed then takes the keys of the next one with it.
[[nodiscard]] bool HasTheKeys(const QWidget& window);

// Sees to it that keys go to a window.
void Activate(QWidget& window);

// Fails when the control is hidden, disabled or covered.
void ClickOn(QWidget& control);

// Presses the button of this caption, or the key "Enter" or "Escape".
void PressButton(QWidget& box, const std::string& caption);

void TypeText(QWidget& window, const std::string& text);

struct Box {
  std::string shows;  // what it begins with: title, text, icon and buttons
  std::function<void(QWidget&)> answer;
};
using BoxList = std::vector<Box>;

// A message box with the button "OK"; lines are separated by "\n".
[[nodiscard]] Box Tells(const std::string& title, const std::string& text,
                        Icon icon = Icon::exclamation);

// A question on which Enter would press `preset`. The user presses `button`.
[[nodiscard]] Box Asks(const std::string& title, const std::string& text, const char* preset,
                       const char* button, std::string buttons = "Yes,No");

// A file dialog, in which the user types `path`, or chooses nothing when that is empty.
[[nodiscard]] Box AsksForFile(const std::string& title, const std::string& path);

// A message that goes away by itself, unless it is clicked away.
[[nodiscard]] Box PopsUp(const std::string& text);

// Watches for modal windows. One that is not the next expected one fails the test and is closed,
// so that nothing hangs; then nothing more is waited for.
class Boxes {
 public:
  Boxes();

  // Acts, and waits until these boxes have come, in this order. `name` is for messages.
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
