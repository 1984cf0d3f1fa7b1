#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <array>
#include <set>

#include "ui/window_test.h"

namespace quorvel {
namespace {

class Controls : public WindowTest {
 protected:
  // Fails unless Tab leads to each control of a window that takes keys at all.
  static void ExpectAllReached(QWidget& window) {
    ExpectSoon([&window] { return HasTheKeys(window); });
    std::set<std::string> wanted;
    for (const QWidget* control : window.findChildren<QWidget*>()) {
      // Arrow keys lead from one radio button to the other.
      const bool isOther =
          control->inherits("QRadioButton") && !control->property("checked").toBool();
      if ((control->focusPolicy() & Qt::TabFocus) != 0 && control->window() == &window &&
          control->isVisible() && control->isEnabled() && !isOther) {
        wanted.insert(control->objectName().toStdString());
      }
    }
    std::set<std::string> reached;
    for (int presses = 0; presses < 60; ++presses) {
      QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
      if (window.focusWidget()) reached.insert(window.focusWidget()->objectName().toStdString());
    }
    EXPECT_EQ(reached, wanted);
  }

  // Turns the wheel of the mouse over a control, both ways.
  void Wheel(const std::string& name) {
    QWidget& control = Control(name);
    const QPointF place = control.mapTo(control.window(), control.rect().center());
    for (const int turn : {120, -120, -120}) {
      QWheelEvent event(place, control.window()->mapToGlobal(place), {}, {0, turn}, Qt::NoButton,
                        Qt::NoModifier, Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(control.window()->windowHandle(), &event);
    }
  }
};

TEST_F(Controls, AreReachedByTab) {
  OpenText("a.txt");
  List();
  Press(Qt::CTRL | Qt::Key_F);
  ExpectAllReached(*window_);
  Click("cmdSetParameters");
  ExpectAllReached(Control("SettingsPanel"));
}

TEST_F(Controls, AreAllInView) {
  Open();
  const QRegularExpression ours("^(cmd|txb|chk|opt|cbo|lbl)");
  for (const QWidget* control : window_->findChildren<QWidget*>(ours)) {
    if (!control->isVisible()) continue;
    EXPECT_EQ(control->visibleRegion().boundingRect(), control->rect())
        << control->objectName().toStdString();
  }
}

// A name of its own would hide from a screen reader what a label shows.
TEST_F(Controls, TellWhatLabelsShow) {
  OpenText("a.txt");
  for (QLabel* label : window_->centralWidget()->findChildren<QLabel*>()) {
    label->setText("123");
    const auto* told = QAccessible::queryAccessibleInterface(label);
    EXPECT_EQ(told->text(QAccessible::Name), "123") << label->objectName().toStdString();
  }
}

TEST_F(Controls, AnswerToTheirKeys) {
  OpenText("a.txt");
  Press(Qt::CTRL | Qt::Key_O, {AsksForFile("Specify input file", "")});
  for (const QKeyCombination keys : {QKeyCombination(Qt::Key_F5), Qt::CTRL | Qt::Key_Return,
                                     Qt::CTRL | Qt::Key_Enter, Qt::ALT | Qt::Key_S}) {
    Press(keys, {WritesConcordance()});
  }
  Click("cmdAbout", {{"About Quorvel", [](QWidget& about) {
                        EXPECT_FALSE(about.findChild<QLabel*>("lblIcon")->pixmap().isNull());
                        PressButton(about, "Close");
                      }}});
  Press(Qt::Key_F1);
  EXPECT_GT(Text("txbText1").size(), 1000U);
}

TEST_F(Controls, FindInTheListing) {
  OpenText("a.txt");
  List();
  Press(Qt::CTRL | Qt::Key_F);
  TypeText(*window_, "HARBOUR");
  EXPECT_EQ(Text("lblFindCount"), "11 found");
  const auto& output = dynamic_cast<QPlainTextEdit&>(Control("txbOutput"));
  const struct {
    const char* name;
    std::function<void()> find;
    const char* count;
  } rows[] = {
      {"Enter", [this] { Press(Qt::Key_Return); }, "1 of 11"},
      {"Enter again", [this] { Press(Qt::Key_Return); }, "2 of 11"},
      {"Shift+Enter", [this] { Press(Qt::SHIFT | Qt::Key_Return); }, "1 of 11"},
      {"previous", [this] { Click("cmdFindPrevious"); }, "11 of 11"},
      {"next", [this] { Click("cmdFindNext"); }, "1 of 11"},
  };
  for (const auto& row : rows) {
    row.find();
    EXPECT_EQ(Text("lblFindCount"), row.count) << row.name;
    EXPECT_EQ(output.textCursor().selectedText().toLower(), "harbour") << row.name;
  }
  Type("txbFind", "zebra", {}, Qt::Key_Return);
  EXPECT_EQ(Text("lblFindCount"), "0 found");
  Press(Qt::Key_Escape);
  EXPECT_FALSE(Shown("findBar"));
  EXPECT_TRUE(output.hasFocus());
}

TEST_F(Controls, FindAgainWithoutTheBar) {
  OpenText("a.txt");
  List();
  const auto& output = dynamic_cast<QPlainTextEdit&>(Control("txbOutput"));
  const auto selected = [&output] { return output.textCursor().selectionStart(); };
  Press(Qt::Key_F3);
  TypeText(*window_, "harbour");
  Press(Qt::Key_F3);
  EXPECT_EQ(Text("lblFindCount"), "1 of 11");
  const int first = selected();
  Press(Qt::Key_Escape);
  Press(Qt::Key_F3);
  const int second = selected();
  EXPECT_GT(second, first);
  Press(Qt::SHIFT | Qt::Key_F3);
  EXPECT_EQ(selected(), first);
  EXPECT_EQ(output.textCursor().selectedText(), "harbour");
  EXPECT_FALSE(Shown("findBar"));
}

TEST_F(Controls, SayHowMuchOfTheListingIsShown) {
  const std::string letters = "bcdfghjklmnpqrstwz";
  std::string text;
  for (const char first : letters) {
    for (const char second : letters) {
      for (const char* end : {"arbour ", "ouse ", "ight "}) {
        text.push_back(first);
        text.push_back(second);
        text += end;
      }
    }
  }
  OpenText("a.txt", text + "\r\n");
  List();
  EXPECT_EQ(Text("lblListingShown"), ShownOf("a.qvl.conc.txt"));
  Press(Qt::CTRL | Qt::Key_F);
  TypeText(*window_, "ight");
  EXPECT_TRUE(Text("lblFindCount").ends_with(" found in what is shown")) << Text("lblFindCount");
  Press(Qt::Key_Return);
  EXPECT_TRUE(Text("lblFindCount").ends_with(" in what is shown")) << Text("lblFindCount");
  const Box disabled = Tells("Quorvel", "Output to file is disabled.", Icon::information);
  Click("chkDisable");
  Choose("cboContextSize", " 4", {disabled});
  EXPECT_TRUE(Text("lblListingShown").ends_with(" characters.")) << Text("lblListingShown");
  Choose("cboContextSize", " 0", {disabled});
  EXPECT_FALSE(Shown("lblListingShown"));
  EXPECT_EQ(Text("lblFindCount"), "324 found");
}

TEST_F(Controls, AreNotChangedByTheWheel) {
  OpenText("a.txt");
  List();
  const std::string listing = Text("txbOutput");
  Click("cmdSetParameters");
  const Names lists = {"cboWordOrder", "cboContextSize", "cboThresholdFrequency"};
  for (const std::string& name : lists) Wheel(name);
  for (const char* name : {"chkFrequencies", "chkDisable", "chkIgnoreLists"}) Wheel(name);
  EXPECT_EQ(Text(lists[0]) + Text(lists[1]) + Text(lists[2]), "alphabetical 5 2");
  EXPECT_EQ(Which("checked", {"chkFrequencies", "chkDisable", "chkIgnoreLists"}),
            "chkFrequencies ");
  EXPECT_EQ(Text("txbOutput"), listing);
  Click("cmdSelectStopWordsFile_1", {{"Stop words", [this](QWidget& chooser) {
                                        Wheel("cboCommonWordsFiles");
                                        EXPECT_EQ(Text("cboCommonWordsFiles"), "English");
                                        PressButton(chooser, "Cancel");
                                      }}});
}

TEST_F(Controls, ChooseTheNumberThatIsTyped) {
  OpenText("a.txt");
  Click("cmdSetParameters");
  using Row = std::array<const char*, 3>;
  const Row rows[] = {
      {"cboContextSize", "3", " 3"},          {"cboContextSize", "0", " 0"},
      {"cboThresholdFrequency", "7", " 7"},   {"cboThresholdFrequency", "2", " 2"},
      {"cboThresholdFrequency", "20", " 20"}, {"cboThresholdFrequency", "13", " 13"}};
  for (const auto& [list, typed, chosen] : rows) {
    SCOPED_TRACE(list + std::string(typed));
    Activate(*Control(list).window());
    Control(list).setFocus();
    TypeText(*Control(list).window(), typed);
    ExpectSoon([this, list = list, chosen = chosen] { return Text(list) == chosen; });
  }
  // In the open list Enter ends the choice.
  const Row openRows[] = {{"cboContextSize", "38", " 8"}, {"cboThresholdFrequency", "11", " 11"}};
  for (const auto& [list, typed, chosen] : openRows) {
    Click(list);
    QWindow* opened = dynamic_cast<QComboBox&>(Control(list)).view()->window()->windowHandle();
    for (const char* digit = typed; *digit != 0; ++digit) QTest::keyClick(opened, *digit);
    Do(list, {}, [opened] { QTest::keyClick(opened, Qt::Key_Return); });
    EXPECT_EQ(Text(list), chosen) << list;
  }
}

TEST_F(Controls, AreKeptCurrent) {
  const std::string input = OpenText("a.txt");
  const auto tip = [this] { return Control("txbFile_0").toolTip().toStdString(); };
  ExpectSoon([&] { return tip() == input; });
  const std::string output = folder_.Write("a.qvl.conc.txt", "ship");
  ExpectSoon([this] { return Control("cmdViewFile").isEnabled(); });
  EXPECT_EQ(Text("lblConcordanceFileSize"), "Concordance filesize: 4 bytes");
  std::filesystem::remove(output);
  ExpectSoon([this] { return !Control("cmdViewFile").isEnabled(); });
  EXPECT_EQ(Text("lblConcordanceFileSize"), "");
  Click("cmdClearFile_0");
  ExpectSoon([&] { return tip() != input; });
}

}  // namespace
}  // namespace quorvel
