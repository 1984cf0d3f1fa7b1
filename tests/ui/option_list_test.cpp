#include "ui/option_list.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QTest>
#include <QWheelEvent>

namespace quorvel {
namespace {

class OptionLists : public testing::Test {
 protected:
  OptionLists() {
    for (int number = 2; number <= 20; ++number) list_.addItem(QString(" %1").arg(number));
    list_.show();
  }
  // When the list loses the focus, the choice is made.
  std::string Left() {
    QFocusEvent leaves(QEvent::FocusOut);
    QCoreApplication::sendEvent(&list_, &leaves);
    return list_.currentText().toStdString();
  }

  OptionList list_;
};

TEST_F(OptionLists, ChooseTheNumberThatIsTyped) {
  const char* const rows[][3] = {{"7", " 7", " 7"},   {"2", " 7", " 2"},    {"20", " 20", " 20"},
                                 {"1", " 20", " 10"}, {"13", " 13", " 13"}, {"28", " 8", " 8"},
                                 {"0", " 8", " 8"}};
  QApplication::setKeyboardInputInterval(60000);
  for (const auto& [typed, atOnce, afterPause] : rows) {
    QTest::keyClicks(&list_, typed);
    EXPECT_EQ(list_.currentText(), atOnce) << typed;
    EXPECT_EQ(Left(), afterPause) << typed;
  }
  QApplication::setKeyboardInputInterval(1);
  QTest::keyClicks(&list_, "2");
  EXPECT_TRUE(QTest::qWaitFor([this] { return list_.currentText() == " 2"; }));
}

TEST_F(OptionLists, AreChosenFromWithEnterWhereTheyAreOpen) {
  list_.showPopup();
  QTest::keyClicks(list_.view(), "1");
  QTest::keyClick(list_.view(), Qt::Key_Return);
  EXPECT_EQ(list_.currentText(), " 10");
}

TEST_F(OptionLists, TakeOtherKeysAsAnyListDoesButNotTheWheel) {
  list_.addItem("by frequency");
  QTest::keyClicks(&list_, "b");
  EXPECT_EQ(Left(), "by frequency");
  QWheelEvent turn({}, {}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&list_, &turn);
  EXPECT_FALSE(turn.isAccepted());
}

}  // namespace
}  // namespace quorvel
