#include "ui/find_bar.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <functional>
#include <string>

namespace quorvel {
namespace {

class FindBars : public testing::Test {
 protected:
  FindBars() {
    output_.setPlainText("Ship in harbour\nthe ship's harbour, SHIP aha-haha-ha");
    bar_.hide();
  }

  // Where the selection begins and how long it is, and what the bar says.
  [[nodiscard]] std::string Shown() const {
    const QTextCursor cursor = output_.textCursor();
    return QString("%1+%2 %3")
        .arg(cursor.selectionStart())
        .arg(cursor.selectedText().size())
        .arg(count_.text())
        .toStdString();
  }

  void Select(int start, int length) {
    QTextCursor cursor = output_.textCursor();
    cursor.setPosition(start);
    cursor.setPosition(start + length, QTextCursor::KeepAnchor);
    output_.setTextCursor(cursor);
  }

  QWidget window_;
  QWidget bar_{&window_};
  QLineEdit text_{&bar_};
  QLabel count_{&bar_};
  QPlainTextEdit output_{&window_};
  FindBar find_{{&bar_, &text_, &count_, &output_}, &window_};
};

TEST_F(FindBars, GoesFromPlaceToPlaceAndRoundTheEnds) {
  const struct {
    const char* name;
    std::function<void()> act;
    const char* shown;
  } rows[] = {
      {"nothing", [this] { find_.FindNext(); }, "0+0 "},
      {"typed", [this] { text_.setText("SHIP"); }, "0+0 3 found"},
      {"Enter", [this] { QTest::keyClick(&text_, Qt::Key_Return); }, "0+4 1 of 3"},
      {"next", [this] { find_.FindNext(); }, "20+4 2 of 3"},
      {"Shift+Enter", [this] { QTest::keyClick(&text_, Qt::Key_Return, Qt::ShiftModifier); },
       "0+4 1 of 3"},
      {"previous", [this] { find_.FindPrevious(); }, "36+4 3 of 3"},
      {"again", [this] { find_.FindAgain(false); }, "0+4 1 of 3"},
      {"again, backward", [this] { find_.FindAgain(true); }, "36+4 3 of 3"},
      {"part", [this] { find_.ShowSearchesPart(true); }, "36+4 3 of 3 in what is shown"},
      {"all", [this] { find_.ShowSearchesPart(false); }, "36+4 3 of 3"},
      {"emptied", [this] { text_.clear(); }, "36+4 "},
      {"nothing again", [this] { find_.FindNext(); }, "36+4 "},
      {"none", [this] { text_.setText("zebra"); }, "36+4 0 found"},
      {"part of none", [this] { find_.ShowSearchesPart(true); }, "36+4 0 found in what is shown"},
      {"places do not overlap", [this] { text_.setText("aha"); }, "36+4 2 found in what is shown"},
  };
  for (const auto& row : rows) {
    row.act();
    EXPECT_EQ(Shown(), row.shown) << row.name;
  }
  EXPECT_TRUE(bar_.isHidden());
}

TEST_F(FindBars, OpensWithWhatIsSelected) {
  find_.FindAgain(false);  // there is nothing to find yet
  EXPECT_FALSE(bar_.isHidden());
  EXPECT_EQ(window_.focusWidget(), &text_);
  find_.ShowSearchesPart(true);
  EXPECT_EQ(text_.placeholderText(), "Find in what is shown of the listing");
  find_.ShowSearchesPart(false);
  EXPECT_EQ(text_.placeholderText(), "Find in the listing");
  Select(20, 4);
  find_.Open();
  EXPECT_EQ(text_.text() + " " + text_.selectedText(), "ship ship");
  EXPECT_EQ(Shown(), "20+4 2 of 3");
  find_.Close();
  EXPECT_TRUE(bar_.isHidden());
  EXPECT_EQ(window_.focusWidget(), &output_);
  Select(0, 0);
  find_.Open();
  EXPECT_EQ(text_.selectedText(), "ship");
  EXPECT_EQ(Shown(), "0+0 3 found");
}

}  // namespace
}  // namespace quorvel
