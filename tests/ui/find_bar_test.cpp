#include "ui/find_bar.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

namespace quorvel {

TEST(FindBars, GoFromPlaceToPlaceAndRoundTheEnds) {
  QWidget window;
  QWidget bar{&window};
  QLineEdit text{&bar};
  QLabel count{&bar};
  QPlainTextEdit output{"Ship in harbour\nthe ship's harbour, SHIP aha-haha-ha", &window};
  FindBar find{{&bar, &text, &count, &output}, &window};
  bar.hide();
  const std::tuple<const char*, std::function<void()>, const char*> rows[] = {
      {"opens as there is nothing to find", [&] { find.FindAgain(false); }, "0+0 "},
      {"typed", [&] { text.setText("SHIP"); }, "0+0 3 found"},
      {"Enter", [&] { QTest::keyClick(&text, Qt::Key_Return); }, "0+4 1 of 3"},
      {"next", [&] { find.FindNext(); }, "20+4 2 of 3"},
      {"Shift+Enter", [&] { QTest::keyClick(&text, Qt::Key_Return, Qt::ShiftModifier); },
       "0+4 1 of 3"},
      {"previous", [&] { find.FindPrevious(); }, "36+4 3 of 3"},
      {"part", [&] { find.ShowSearchesPart(true); }, "36+4 3 of 3 in what is shown"},
      {"all", [&] { find.ShowSearchesPart(false); }, "36+4 3 of 3"},
      {"emptied", [&] { text.clear(); }, "36+4 "},
      {"places do not overlap", [&] { text.setText("aha"); }, "36+4 2 found"},
      {"opens with what is selected", [&] { find.Open(); }, "36+4 3 of 3"},
      {"nothing selected", [&] { output.moveCursor(QTextCursor::Start); }, "0+0 3 of 3"},
      {"opens with what it had", [&] { find.Open(); }, "0+0 3 found"},
  };
  for (const auto& [name, act, shown] : rows) {
    act();
    const QTextCursor cursor = output.textCursor();
    EXPECT_EQ(QString("%1+%2 %3")
                  .arg(cursor.selectionStart())
                  .arg(cursor.selectedText().size())
                  .arg(count.text()),
              shown)
        << name;
    EXPECT_EQ(window.focusWidget(), &text) << name;
  }
  EXPECT_EQ(text.selectedText(), "SHIP");
  EXPECT_FALSE(bar.isHidden());
  find.Close();
  EXPECT_TRUE(bar.isHidden());
  EXPECT_EQ(window.focusWidget(), &output);
}

}  // namespace quorvel
