#include "ui/pop_up.h"

#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QScreen>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include "ui/window_test.h"

namespace quorvel {
namespace {

constexpr int MINUTE_MS = 60000;
constexpr QSize SIZE(200, 50);

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
      {"F5, which lists", press(Qt::Key_F5)},
      {"Ctrl+Q, which quits", press(Qt::CTRL | Qt::Key_Q)},
      {"message", [](QWidget& box) { ClickOn(*box.findChild<QWidget*>("lblMessage")); }},
      {"check box", click("chkFrequencies")},
      {"check box of the panel", click("chkIgnoreLists")},
      {"frame", [this](QWidget&) { window_->windowHandle()->close(); }},
  };
  const Names boxes = {"chkFrequencies", "chkIgnoreLists"};
  for (const auto& [name, end] : rows) {
    Do(name, {Says("Done", end)}, [this] {
      PopUpInForm(*window_, {"Done", SIZE, MINUTE_MS}, QPoint(0, 0));
    });
    EXPECT_TRUE(window_->isVisible()) << name;
    EXPECT_EQ(Which("checked", boxes) + Text("txbOutput"), "chkFrequencies ") << name;
  }
  PopUpInForm(*window_, {"Done", SIZE, 1}, QPoint(0, 0));  // or when its time is up
}

// The owner sees nothing of what is meant for nobody while the message stands.
struct Owner : QWidget {
  bool event(QEvent* event) override {
    seen += QMetaEnum::fromType<QEvent::Type>().valueToKey(event->type()) + std::string(" ");
    return QWidget::event(event);
  }
  std::string seen;
};

TEST(PopUpWindows, StayForWhatIsNoKeyOrClick) {
  Owner owner;
  owner.setAcceptDrops(true);
  owner.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&owner));
  const QPointF at(1, 1);
  const QMimeData data;
  const auto mouse = [&](QEvent::Type type) {
    const bool isDown = type != QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, at, Qt::LeftButton, isDown ? Qt::LeftButton : Qt::NoButton, {});
    QCoreApplication::sendEvent(&owner, &event);
  };
  const auto acts = [&](QEvent&& event) {
    event.accept();
    owner.seen.clear();
    QCoreApplication::sendEvent(&owner, &event);
    EXPECT_EQ(owner.seen, "") << event.type();
    EXPECT_FALSE(event.isAccepted()) << event.type();
  };
  QTimer::singleShot(0, &owner, [&] {
    acts(QWheelEvent(at, at, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false));
    acts(QContextMenuEvent(QContextMenuEvent::Mouse, at.toPoint(), at.toPoint()));
    acts(QDragEnterEvent(at.toPoint(), Qt::CopyAction, &data, {}, {}));
    QKeyEvent held(QEvent::KeyPress, Qt::Key_X, {}, "x", true);
    QCoreApplication::sendEvent(&owner, &held);
    mouse(QEvent::MouseButtonRelease);  // of a button that was pressed before
    EXPECT_EQ(owner.seen, "MouseButtonRelease ");
    ASSERT_NE(ShownPopUp(), nullptr);
    PopUpInForm(owner, {"A longer message that takes the place of the first", {1, 1}, MINUTE_MS},
                QPoint(50, 60));
    const auto& label = *ShownPopUp()->findChild<QLabel*>("lblMessage");
    EXPECT_TRUE(label.text().startsWith("A longer") && label.alignment() == Qt::AlignCenter);
    EXPECT_EQ(ShownPopUp()->windowTitle(), label.text());
    EXPECT_EQ(ShownPopUp()->size(), label.sizeHint());
    EXPECT_EQ(ShownPopUp()->pos(), owner.mapToGlobal(QPoint(50, 60)));
    EXPECT_EQ(label.size(), ShownPopUp()->size());
    mouse(QEvent::MouseButtonPress);
    QTest::keyClick(&owner, Qt::Key_X);
  });
  PopUpInForm(owner, {"<i>First", SIZE, MINUTE_MS}, QPoint(0, 0));
  QTimer::singleShot(0, &owner, [&] {
    mouse(QEvent::MouseButtonRelease);  // of the one that was pressed before the first ended
    ASSERT_NE(ShownPopUp(), nullptr);
    mouse(QEvent::MouseButtonDblClick);
    mouse(QEvent::MouseButtonRelease);
    EXPECT_EQ(ShownPopUp(), nullptr);
  });
  PopUpInForm(owner, {"Second", SIZE, MINUTE_MS}, QPoint(0, 0));
  owner.seen.clear();
  mouse(QEvent::MouseButtonPress);
  EXPECT_EQ(owner.seen, "MouseButtonPress ");
}

TEST_F(PopUps, StandWhereTheyAreWantedButOnTheScreen) {
  Open();
  const QSize screen = window_->screen()->availableSize();
  const QPoint corner(screen.width() - SIZE.width(), screen.height() - SIZE.height());
  const PopUpMessage done = {"Done", SIZE, MINUTE_MS};
  const auto at = [&](QPoint place) {
    return [&done, place](QWidget& owner) { PopUpInForm(owner, done, owner.mapFromGlobal(place)); };
  };
  const struct {
    const char* name;
    std::function<void(QWidget&)> show;
    QPoint place;
  } rows[] = {
      {"given", [&](QWidget& owner) { PopUp(owner, done, QPoint(30, 40)); }, {30, 40}},
      {"middle", [&](QWidget& owner) { PopUpCenterScreen(owner, done); }, corner / 2},
      {"in the window", at({31, 42}), {31, 42}},
      {"before the edges", at({-5, -5}), {0, 0}},
      {"behind the edges", at(corner + QPoint(1, 1)), corner},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    QWidget owner;
    const auto answer = [&row](QWidget& box) {
      ExpectSoon([&] { return box.geometry() == QRect(row.place, SIZE); });
      QTest::keyClick(box.windowHandle(), Qt::Key_X);
    };
    Do(row.name, {Says("Done", answer)}, [&] { row.show(owner); });
  }
}

}  // namespace
}  // namespace quorvel
