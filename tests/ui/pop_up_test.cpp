#include "ui/pop_up.h"

#include <QLabel>
#include <QSpinBox>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include "ui/window_test.h"
#include "ui/x_client.h"

namespace quorvel {
namespace {

constexpr int MINUTE_MS = 60000;
constexpr QSize SIZE(200, 50);

class PopUps : public WindowTest {
 protected:
  const PopUpMessage done_ = {"Done", SIZE, MINUTE_MS};
  Box shown_ = PopsUp("Done");
};

TEST_F(PopUps, EndAtAnyKeyOrClickThatThenDoesNothingElse) {
  Open();
  const std::function<void(QWidget&)> acts[] = {
      // One event, because QTest would press Ctrl alone first, which closes the pop-up too.
      [](QWidget& box) {
        QTest::simulateEvent(box.windowHandle(), true, Qt::Key_Q, Qt::ControlModifier, {}, false);
      },
      [this](QWidget&) { ClickOn(Control("chkFrequencies")); },
      [this](QWidget&) { CloseByFrame(*window_); },
  };
  for (const auto& act : acts) {
    shown_.answer = act;
    Do("show", {shown_}, [this] { PopUpInForm(*window_, done_, QPoint(0, 0)); });
    // The click did not reach the window.
    EXPECT_EQ(Which("checked", {"chkFrequencies"}), "chkFrequencies ");
  }
  CloseByFrame(*window_);
  EXPECT_FALSE(window_->isVisible());
}

TEST(PopUpWindows, StayForWhatIsNoKeyOrClickUntilTheirTimeIsOver) {
  QSpinBox owner;
  owner.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&owner));
  const QPointF at(1, 1);
  QTimer::singleShot(0, &owner, [&] {
    QWheelEvent turn(at, at, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&owner, &turn);
    EXPECT_FALSE(turn.isAccepted());
    QKeyEvent held(QEvent::KeyPress, Qt::Key_5, {}, "5", true);
    QCoreApplication::sendEvent(&owner, &held);
    // The release of a button that was pressed before.
    QMouseEvent release(QEvent::MouseButtonRelease, at, at, Qt::LeftButton, {}, {});
    QCoreApplication::sendEvent(&owner, &release);
    ASSERT_NE(ShownPopUp(), nullptr);
    PopUpInForm(owner, {"A longer message that takes the place of the first", {1, 1}, MINUTE_MS},
                QPoint(50, 60));
    const auto& label = *ShownPopUp()->findChild<QLabel*>("lblMessage");
    EXPECT_TRUE(label.text().startsWith("A longer"));
    EXPECT_EQ(ShownPopUp()->size(), label.sizeHint());
    QTest::keyClick(&owner, Qt::Key_5);
  });
  PopUpInForm(owner, {"<i>First", SIZE, MINUTE_MS}, QPoint(0, 0));
  PopUpInForm(owner, {"Short", SIZE, 1}, QPoint(0, 0));
  QTest::keyClick(&owner, Qt::Key_Up);
  EXPECT_EQ(owner.value(), 1);
}

}  // namespace
}  // namespace quorvel
