#include "ui/pop_up.h"

#include <QScreen>
#include <QTest>
#include <QWindow>

#include "ui/window_test.h"

namespace quorvel {
namespace {

constexpr int MINUTE_MS = 60000;

class PopUps : public WindowTest {
 protected:
  static Box Says(const char* text, std::function<void(QWidget&)> answer) {
    Box box = PopsUp(text);
    box.answer = std::move(answer);
    return box;
  }
};

TEST_F(PopUps, EndAtAnyKeyOrClickThatThenDoesNothingElse) {
  OpenText("a.txt");
  Click("cmdSetParameters");
  // In one go: a key for Ctrl alone, which QTest would press before, ends it as well.
  const auto press = [](QKeyCombination keys) {
    return [keys](QWidget& box) {
      QTest::simulateEvent(box.windowHandle(), true, keys.key(), keys.keyboardModifiers(), {},
                           false);
    };
  };
  const auto click = [this](const char* name) {
    return [this, name](QWidget&) { ClickOn(Control(name)); };
  };
  const std::pair<const char*, std::function<void(QWidget&)>> rows[] = {
      {"letter", press(Qt::Key_X)},
      {"Esc", press(Qt::Key_Escape)},
      {"F5, which lists", press(Qt::Key_F5)},
      {"F5 in the window",
       [this](QWidget&) {
         Activate(*window_);
         QTest::keyClick(window_->windowHandle(), Qt::Key_F5);
       }},
      {"Ctrl+Q, which quits", press(Qt::CTRL | Qt::Key_Q)},
      {"message", [](QWidget& box) { ClickOn(*box.findChild<QWidget*>("lblMessage")); }},
      {"check box", click("chkFrequencies")},
      {"list", click("cboContextSize")},
      {"check box of the panel", click("chkIgnoreLists")},
      {"frame", [this](QWidget&) { window_->windowHandle()->close(); }},
  };
  const Names boxes = {"chkFrequencies", "chkIgnoreLists"};
  for (const auto& [name, end] : rows) {
    Do(name, {Says("Done", end)}, [this] {
      PopUpInForm(*window_, {"Done", QSize(200, 50), MINUTE_MS}, QPoint(0, 0));
    });
    EXPECT_TRUE(window_->isVisible()) << name;
    EXPECT_EQ(Which("checked", boxes) + Text("txbOutput"), "chkFrequencies ") << name;
  }
}

// For what concerns no window in particular.
TEST_F(PopUps, StandInTheMiddleOfTheScreen) {
  Open();
  QRect place;
  const Box done = Says("Done", [&](QWidget& box) {
    place = box.geometry();
    QTest::keyClick(box.windowHandle(), Qt::Key_X);
  });
  Do("center", {done}, [this] {
    PopUpCenterScreen(*window_, {"Done", QSize(200, 50), MINUTE_MS});
  });
  const QSize screen = window_->screen()->geometry().size();
  EXPECT_EQ(place,
            QRect(QPoint((screen.width() - 200) / 2, (screen.height() - 50) / 2), QSize(200, 50)));
}

}  // namespace
}  // namespace quorvel
