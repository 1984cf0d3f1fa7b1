#include "ui/window_interface.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "ui/boxes.h"
#include "ui/find_bar.h"

namespace quorvel {
namespace {

class WindowInterfaces : public testing::Test {
 protected:
  WindowInterfaces() {
    for (QLabel* label : {&words_, &elapsed_, &listing_}) label->hide();
    window_.resize(400, 300);
    file_.setGeometry(20, 100, 300, 30);
    window_.show();
    Activate(window_);
  }

  // The text of the box with its caret, and the label below it.
  [[nodiscard]] std::string Output() const {
    std::string text = output_.toPlainText().toStdString();
    text.insert(static_cast<std::size_t>(output_.textCursor().position()), "^");
    return text + (listing_.isHidden() ? "" : " | " + listing_.text().toStdString());
  }

  Boxes boxes_;
  QWidget window_;
  QPlainTextEdit output_{&window_};
  QPushButton stop_{&window_};
  QLineEdit file_{&window_};
  QLineEdit find_{&window_};
  QLabel words_{&window_}, occurrences_{&window_}, found_{&window_}, bar_{&window_},
      busy_{&window_}, elapsed_{&window_}, listing_{&window_}, count_{&window_}, lost_{&window_};
  QWidget lossBar_{&window_};
  QPushButton unicode_{&window_};
  FindBar findBar_{{&window_, &find_, &count_, &output_}, nullptr};
  WindowInterface interface_{{&window_,
                              &output_,
                              &stop_,
                              &file_,
                              {&words_, &occurrences_, &found_},
                              &bar_,
                              &busy_,
                              &elapsed_,
                              &listing_,
                              &lossBar_,
                              &lost_,
                              &unicode_,
                              &findBar_}};
};

TEST_F(WindowInterfaces, ShowTheLatestTextInStepsThatTheEyeFollows) {
  interface_.SetOutput("one\r\n");
  EXPECT_EQ(Output(), "^one\n");
  interface_.SayWhatIsShown({1234, 1234567, false});
  EXPECT_EQ(Output(), "^one\n | The first 1,234 of 1,234,567 characters.");
  interface_.BeginWork();
  interface_.SetOutput("two ");
  EXPECT_TRUE(Output().starts_with("^one"));
  interface_.AppendOutput("three");
  EXPECT_EQ(Output(), "two three^");
  interface_.SetOutput("four");
  interface_.YieldAtOnce();
  EXPECT_EQ(Output(), "^four");
  interface_.SayWhatIsShown({5, 6, true});
  EXPECT_EQ(Output(), "^four | The first 5 of 6 characters; the file contains the whole listing.");
  interface_.SetOutput("six");
  boxes_.During({Tells("Title", "text")}, "message", [this] { interface_.Tell("text", "Title"); });
  EXPECT_EQ(Output(), "^six");
  interface_.SetOutput("seven");
  interface_.ShowBar("[--]");
  interface_.SetLabel(Label::numberOfWords, "words ");
  interface_.SetLabel(Label::keywordsFound, "found ");
  EXPECT_TRUE(words_.isVisible());
  EXPECT_EQ(words_.text() + occurrences_.text() + found_.text() + bar_.text(), "words found [--]");
  interface_.OfferStop(true);
  EXPECT_TRUE(stop_.text() == "&Stop" && stop_.isEnabled());
  interface_.OfferStop(false);
  EXPECT_FALSE(stop_.isEnabled());
  EXPECT_EQ(busy_.text(), "|");
  interface_.EndWork();
  EXPECT_FALSE(interface_.IsWorking());
  EXPECT_EQ(Output() + bar_.text().toStdString() + busy_.text().toStdString(), "^seven ");
}

TEST_F(WindowInterfaces, AskWhatIsAskedAndGiveTheAnswer) {
  using enum Answer;
  constexpr const char* ALL = "Cancel,Yes,No";
  const std::tuple<Icon, Buttons, Answer, Box, Answer> rows[] = {
      {Icon::information, Buttons::ok, ok, Tells("T", "<b>1", Icon::information), ok},
      {Icon::none, Buttons::yesNo, no, Asks("T", "<b>1", "No", "Escape"), no},
      {Icon::none, Buttons::yesNoCancel, yes, Asks("T", "<b>1", "Yes", "Escape", ALL), cancel},
      {Icon::none, Buttons::yesNoCancel, cancel, Asks("T", "<b>1", "Cancel", "Yes", ALL), yes},
  };
  for (const auto& [icon, buttons, preset, box, answer] : rows) {
    Answer given = ok;
    const Message message = {"<b>1", "T", icon, buttons, preset};
    boxes_.During({box}, "question", [&] { given = interface_.Ask(message); });
    EXPECT_EQ(given, answer);
  }
}

TEST_F(WindowInterfaces, PopUpBelowTheFileWhenTheWorkIsDone) {
  Box box = PopsUp("written");
  box.answer = [this, answer = box.answer](QWidget& shown) {
    const QRect wanted(file_.mapToGlobal(QPoint(0, 30)), QSize(300, 60));
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.geometry() == wanted; }));
    answer(shown);
  };
  boxes_.During({box}, "at once", [this] { interface_.PopUp("written"); });
  interface_.BeginWork();
  interface_.PopUp("written");
  interface_.EndWork();
  boxes_.During({PopsUp("written")}, "later", [this] { interface_.ShowPendingPopUp(); });
  interface_.ShowPendingPopUp();  // it appears only once
}

TEST_F(WindowInterfaces, CountTheSecondsThatAUserWaits) {
  const auto shown = [this] { return (words_.text() + elapsed_.text()).toStdString(); };
  elapsed_.setText("of the last run");
  interface_.CountSeconds(true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return shown() == "Number of words: 0"; }));
  interface_.NoteWordsFound(1234);
  EXPECT_TRUE(QTest::qWaitFor([&] { return shown() == "Number of words: 1,234"; }));
  EXPECT_TRUE(QTest::qWaitFor([&] { return shown().ends_with("1,234Time elapsed: 3s"); }));
  EXPECT_TRUE(elapsed_.isVisible());
}

}  // namespace
}  // namespace quorvel
