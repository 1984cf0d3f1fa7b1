#include "ui/option_list.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QTest>
#include <QWheelEvent>

namespace quorvel {
namespace {

constexpr int LONG_PAUSE_MS = 60000;

class OptionLists : public testing::Test {
 protected:
  OptionLists() {
    for (int number = 2; number <= 20; ++number) list_.addItem(QString(" %1").arg(number));
    list_.show();
  }
  ~OptionLists() override { QApplication::setKeyboardInputInterval(usual_); }

  void Type(const char* keys) {
    QTest::keyClicks(list_.view()->isVisible() ? static_cast<QWidget*>(list_.view()) : &list_,
                     keys);
  }

  const int usual_ = QApplication::keyboardInputInterval();
  OptionList list_;
};

TEST_F(OptionLists, ChooseTheNumberThatIsTyped) {
  const struct {
    const char* typed;
    const char* atOnce;
    const char* afterPause;
  } rows[] = {{"7", " 7", " 7"},    {"2", " 7", " 2"},  {"20", " 20", " 20"}, {"1", " 20", " 10"},
              {"13", " 13", " 13"}, {"28", " 8", " 8"}, {"0", " 8", " 8"}};
  for (const auto& [typed, atOnce, afterPause] : rows) {
    QApplication::setKeyboardInputInterval(LONG_PAUSE_MS);
    Type(typed);
    EXPECT_EQ(list_.currentText(), atOnce) << typed;
    // Whoever leaves the list has made the choice.
    QFocusEvent leaves(QEvent::FocusOut);
    QCoreApplication::sendEvent(&list_, &leaves);
    EXPECT_EQ(list_.currentText(), afterPause) << typed;
  }
  QApplication::setKeyboardInputInterval(1);
  Type("2");
  EXPECT_TRUE(QTest::qWaitFor([this] { return list_.currentText() == " 2"; }));
}

TEST_F(OptionLists, AreChosenFromWithEnterWhereTheyAreOpen) {
  list_.showPopup();
  QApplication::setKeyboardInputInterval(1);
  Type("1");
  EXPECT_EQ(list_.view()->currentIndex().row(), 8);
  QTest::qWait(100);  // longer than the pause between two digits is now
  EXPECT_EQ(list_.currentText(), " 2");
  Type("5");
  EXPECT_EQ(list_.view()->currentIndex().row(), 3);
  QTest::keyClick(list_.view(), Qt::Key_Return);
  EXPECT_EQ(list_.currentText(), " 5");
}

TEST_F(OptionLists, TakeOtherKeysAsAnyListDoes) {
  list_.clear();
  list_.addItems({"alphabetical", "by frequency"});
  Type("b");
  EXPECT_EQ(list_.currentText(), "by frequency");
  Type("2");
  QFocusEvent leaves(QEvent::FocusOut);
  QCoreApplication::sendEvent(&list_, &leaves);
  EXPECT_EQ(list_.currentText(), "by frequency");
}

TEST_F(OptionLists, AreNotChangedByTheWheel) {
  list_.setCurrentIndex(5);
  const QPointF place = list_.rect().center();
  for (const int turn : {120, -120, -120}) {
    QWheelEvent event(place, list_.mapToGlobal(place), {}, {0, turn}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&list_, &event);
    EXPECT_FALSE(event.isAccepted());
  }
  EXPECT_EQ(list_.currentIndex(), 5);
}

}  // namespace
}  // namespace quorvel
