#include "ui/boxes.h"

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QWindow>
#include <algorithm>
#include <cstdlib>

#include "ui/pop_up.h"

namespace quorvel {
namespace {

constexpr const char* POP_UP = "pop-up | ";
constexpr int BETWEEN_LOOKS_MS = 10;
constexpr int LOOKS_FOR_KEYS = 30;
constexpr int MOST_LOOKS = 3000;
constexpr int PATIENCE_MS = 5000;

std::string Caption(const QAbstractButton& button) {
  return button.text().remove('&').toStdString();
}

std::string Shows(const std::string& title, const std::string& text, int icon,
                  const std::string& buttons) {
  return title + " | " + text + " | icon " + std::to_string(icon) + " | " + buttons;
}

// The preset button has a star after its caption.
std::string ShownBy(const QWidget& window) {
  const std::string title = window.windowTitle().toStdString();
  if (const auto* box = qobject_cast<const QMessageBox*>(&window)) {
    std::string buttons;
    for (const QAbstractButton* button : box->buttons()) {
      buttons += (buttons.empty() ? "" : ",") + Caption(*button);
      if (button == box->defaultButton()) buttons += '*';
    }
    return Shows(title, box->text().toStdString(), box->icon(), buttons);
  }
  return window.findChild<QLabel*>("lblMessage") == nullptr ? title : POP_UP + title;
}

// The box that the program waits for, if any.
QWidget* ShownBox() {
  QWidget* modal = QApplication::activeModalWidget();
  return modal != nullptr ? modal : ShownPopUp();
}

xcb_connection_t* XServer() {
  return qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

}  // namespace

bool HasTheKeys(const QWidget& window) {
  xcb_connection_t* x = XServer();
  const std::unique_ptr<xcb_get_input_focus_reply_t, decltype(&std::free)> focus(
      xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr), &std::free);
  return window.isActiveWindow() && focus != nullptr && focus->focus == window.winId();
}

void Activate(QWidget& window) {
  const auto isActive = [&window] { return HasTheKeys(window); };
  const QWidget* active = QApplication::activeWindow();
  if (active != nullptr && active != &window && active->isVisible()) window.activateWindow();
  for (int tries = 0; tries < 20; ++tries) {
    if (QTest::qWaitFor(isActive, PATIENCE_MS / 5)) return;
    // Qt may have missed that the window has the focus, so the focus is removed and set again.
    for (const auto owner : {static_cast<xcb_window_t>(XCB_NONE), xcb_window_t(window.winId())}) {
      xcb_set_input_focus(XServer(), XCB_INPUT_FOCUS_PARENT, owner, XCB_CURRENT_TIME);
    }
    xcb_flush(XServer());
  }
  ADD_FAILURE() << window.objectName().toStdString() << " does not become active";
}

void ClickOn(QWidget& control) {
  QWidget& window = *control.window();
  const QPoint place(std::min(12, control.width() / 2), control.height() / 2);
  const QPoint inWindow = control.mapTo(&window, place);
  const QWidget* hit = window.childAt(inWindow);
  EXPECT_TRUE(control.isEnabled() && (hit == &control || control.isAncestorOf(hit)))
      << control.objectName().toStdString() << " is hidden, disabled or covered";
  QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, inWindow);
}

void PressButton(QWidget& box, const std::string& caption) {
  if (caption == "Escape") return QTest::keyClick(box.windowHandle(), Qt::Key_Escape);
  if (caption == "Enter") return QTest::keyClick(box.windowHandle(), Qt::Key_Enter);
  for (QAbstractButton* button : box.findChildren<QAbstractButton*>()) {
    if (Caption(*button) == caption) return ClickOn(*button);
  }
  ADD_FAILURE() << "no button " << caption;
}

void TypeText(QWidget& window, const std::string& text) {
  for (const char ch : text) QTest::keyClick(window.windowHandle(), ch);
}

Box Tells(const std::string& title, const std::string& text, Icon icon) {
  return {Shows(title, text, static_cast<int>(icon), "OK*"),
          [](QWidget& box) { PressButton(box, "OK"); }};
}

Box Asks(const std::string& title, const std::string& text, const char* preset, const char* button,
         std::string buttons) {
  buttons.insert(buttons.find(preset) + std::string(preset).size(), "*");
  return {Shows(title, text, QMessageBox::NoIcon, buttons),
          [button](QWidget& box) { PressButton(box, button); }};
}

Box AsksForFile(const std::string& title, const std::string& path) {
  return {title, [path](QWidget& dialog) {
            if (path.empty()) return PressButton(dialog, "Escape");
            // Suggestions appear when the disk answers, even after the dialog is closed.
            dialog.findChild<QLineEdit*>("fileNameEdit")->setCompleter(nullptr);
            QTest::keyClick(dialog.windowHandle(), Qt::Key_A, Qt::ControlModifier);
            TypeText(dialog, path);
            PressButton(dialog, "Enter");
          }};
}

Box PopsUp(const std::string& text) {
  return {POP_UP + text, [](QWidget& window) {
            QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, window.rect().center());
          }};
}

Boxes::Boxes() {
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
  timer_.start(BETWEEN_LOOKS_MS);
}

void Boxes::During(const BoxList& boxes, const std::string& name,
                   const std::function<void()>& act) {
  const std::size_t others = expected_.size();  // the boxes of a run that continues
  expected_.insert(expected_.begin(), boxes.begin(), boxes.end());
  action_ = name;
  act();
  QCoreApplication::processEvents();  // delayed calls happen now
  const auto allCame = [this, others] {
    return expected_.size() <= others && (others > 0 || ShownBox() == nullptr);
  };
  if (QTest::qWaitFor(allCame, PATIENCE_MS)) return;
  for (; expected_.size() > others; expected_.pop_front()) {
    ADD_FAILURE() << "after " << name << " did not come: " << expected_.front().shows;
  }
}

void Boxes::Look() {
  QWidget* box = ShownBox();
  if (box == nullptr) return;
  looks_ = box == current_ ? looks_ + 1 : 0;
  current_ = box;
  const std::string shown = ShownBy(*box);
  const bool isWanted = !expected_.empty() && shown.starts_with(expected_.front().shows);
  if (!isWanted || looks_ > MOST_LOOKS) {
    ADD_FAILURE() << "after " << action_ << " came: " << shown
                  << "\nnot: " << (expected_.empty() ? "none" : expected_.front().shows);
    expected_.clear();
    qobject_cast<QDialog*>(box)->reject();
    return;
  }
  // A pop-up needs no focus, and the window manager may leave it with another window of the
  // program.
  if (!HasTheKeys(*box) && !(shown.starts_with(POP_UP) && looks_ > LOOKS_FOR_KEYS)) return;
  const Box next = expected_.front();
  expected_.pop_front();
  current_ = nullptr;
  next.answer(*box);
}

}  // namespace quorvel
