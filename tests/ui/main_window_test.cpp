#include "ui/main_window.h"

#include <QAccessible>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTest>
#include <QWindow>

#include "ui/window_test.h"
#include "util/progress_bar.h"

namespace quorvel {
namespace {

class MainWindows : public WindowTest {
 protected:
  static Box Saved() { return PopsUp("Settings saved"); }
  [[nodiscard]] std::string StateFile() const { return folder_.Read("config/Quorvel/qvl.usr"); }
  [[nodiscard]] const QPlainTextEdit& Output() const {
    return dynamic_cast<const QPlainTextEdit&>(Control("txbOutput"));
  }

  [[nodiscard]] bool TakesDrag(const QMimeData& data) const {
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window_->windowHandle(), &enter);
    return enter.isAccepted();
  }
};

TEST_F(MainWindows, HasAllInView) {
  const MainWindow fresh;
  EXPECT_EQ(fresh.size(), QSize(1000, 720));
  OpenText("a.txt");
  const QRegularExpression ours("^(cmd|txb|chk|opt|cbo|lbl)");
  for (const QWidget* control : window_->findChildren<QWidget*>(ours)) {
    if (!control->isVisible()) continue;
    EXPECT_EQ(control->visibleRegion().boundingRect(), control->rect())
        << control->objectName().toStdString();
  }
}

// A name of its own would hide from a screen reader what a label shows.
TEST_F(MainWindows, HasLabelsThatTellWhatTheyShowAndKeepTheirSize) {
  OpenText("a.txt");
  const auto width = [this](const char* name) { return Control(name).width(); };
  const QFontMetrics metrics(Output().font());
  EXPECT_EQ(metrics.horizontalAdvance('i'), metrics.horizontalAdvance('W'));
  const int bar = metrics.horizontalAdvance(ProgressCaption(PROGRESS_BAR_WIDTH).c_str());
  EXPECT_EQ(width("lblTotalNumOccurrences"), bar);
  EXPECT_EQ(width("lblTwirler"), metrics.horizontalAdvance('/'));
  for (QLabel* label : window_->centralWidget()->findChildren<QLabel*>()) {
    label->setText("1234567");
    const auto* told = QAccessible::queryAccessibleInterface(label);
    EXPECT_EQ(told->text(QAccessible::Name), "1234567") << label->objectName().toStdString();
  }
  QCoreApplication::processEvents();
  EXPECT_EQ(width("lblTotalNumOccurrences"), bar);
  EXPECT_EQ(Control("lblTwirler").font(), Output().font());
}

TEST_F(MainWindows, AnswersToItsKeys) {
  OpenText("a.txt");
  ExpectSoon([this] { return Control("cmdListWords").hasFocus(); });
  Press(Qt::CTRL | Qt::Key_O, {AsksForFile("Specify input file", "")});
  for (const QKeyCombination keys : {QKeyCombination(Qt::Key_F5), Qt::CTRL | Qt::Key_Return,
                                     Qt::CTRL | Qt::Key_Enter, Qt::ALT | Qt::Key_S}) {
    Control("txbOutput").setFocus();
    Press(keys, {WritesConcordance()});
    ExpectSoon([this] { return Control("cmdListWords").hasFocus(); });
  }
  Click("cmdHelp");
  EXPECT_GT(Text("txbText1").size(), 1000U);
  Click("cmdViewFile");
  EXPECT_EQ(Control("txbText1").window()->windowTitle().toStdString(),
            folder_.Path("a.qvl.conc.txt"));
  EXPECT_NE(Text("txbText1").find(HARBOUR_ENTRY), std::string::npos);
  Press(Qt::Key_Escape);
  Click("cmdSetParameters");
  Activate(*window_);
  Click("cmdSetParameters");
  ExpectSoon([this] { return HasTheKeys(Control("SettingsPanel")); });
  // The caret moves in the listing, from which can be copied.
  Activate(*window_);
  Control("txbOutput").setFocus();
  Press(Qt::SHIFT | Qt::Key_End);
  EXPECT_EQ(Output().textCursor().selectedText(), "[harbour 2]");
}

TEST_F(MainWindows, FindsInTheListing) {
  OpenText("a.txt");
  List();
  EXPECT_FALSE(Shown("findBar"));
  Press(Qt::Key_F3);
  TypeText(*window_, "harbour");
  Click("cmdFindClose");
  EXPECT_FALSE(Shown("findBar"));
  Press(Qt::CTRL | Qt::Key_F);
  std::string counts;
  const auto note = [&] { counts += Text("lblFindCount") + ", "; };
  for (const QKeyCombination key : {QKeyCombination(Qt::Key_F3), Qt::SHIFT | Qt::Key_F3}) {
    Press(key);
    note();
  }
  for (const char* button : {"cmdFindNext", "cmdFindPrevious"}) {
    Click(button);
    note();
  }
  EXPECT_EQ(counts, "1 of 11, 11 of 11, 1 of 11, 11 of 11, ");
  Press(Qt::Key_Escape);
  EXPECT_FALSE(Shown("findBar"));
}

TEST_F(MainWindows, TakesAFileThatIsDropped) {
  const std::string input = folder_.Write("a.txt", HARBOUR);
  Open();
  QMimeData data;
  data.setText(QString::fromStdString(input));
  EXPECT_FALSE(TakesDrag(data));
  data.setUrls({QUrl("https://example.org/a.txt")});
  EXPECT_TRUE(TakesDrag(data));
  QDropEvent drop(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(window_->windowHandle(), &drop);
  EXPECT_EQ(Text("txbFile_0"), "");
  Drop(input, {LoadsStopWords()});
  EXPECT_EQ(Text("txbFile_0"), input);
  Click("cmdClearFile_0");
  Drop(input, {}, "txbFile_0");
  EXPECT_EQ(Text("txbFile_0"), input);
}

TEST_F(MainWindows, KeepsWhatItShowsCurrent) {
  const std::string input = OpenText("a.txt");
  const auto tip = [this] { return Control("txbFile_0").toolTip().toStdString(); };
  ExpectSoon([&] { return tip() == input; });
  // A path that is being typed is not looked at yet.
  const std::string other = folder_.Write("b.txt", "ship ahoy\r\n");
  Click("txbFile_0");
  Press(Qt::CTRL | Qt::Key_A);
  TypeText(*window_, other);
  (void)folder_.Write("a.qvl.conc.txt", "ship");
  ExpectSoon([this] { return Control("cmdViewFile").isEnabled(); });
  EXPECT_EQ(Text("lblConcordanceFileSize"), "Concordance filesize: 4 bytes");
  EXPECT_EQ(Text("txbFile_3"), folder_.Path("a.qvl.conc.txt"));
  // It is when the box was left, even by a button that was let go elsewhere.
  const QPoint place = Control("cmdQuit").mapTo(window_.get(), QPoint(5, 5));
  QTest::mousePress(window_->windowHandle(), Qt::LeftButton, {}, place);
  QTest::mouseRelease(window_->windowHandle(), Qt::LeftButton, {}, QPoint(1, 1));
  ExpectSoon([&] { return Text("txbFile_3") == folder_.Path("b.qvl.conc.txt"); });
  EXPECT_FALSE(Control("cmdViewFile").isEnabled());
  EXPECT_EQ(Text("lblConcordanceFileSize"), "");
  Click("cmdClearFile_0");
  ExpectSoon([&] { return tip() == "The path of the input file"; });
}

TEST_F(MainWindows, SavesItsSettingsWhereThatIsWanted) {
  Open();
  Press(Qt::CTRL | Qt::Key_Q);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(StateFile(), "");
  Open();
  const QWidget& button = Control("cmdSetParameters");
  Box saved = Saved();
  saved.answer = [&button, answer = saved.answer](QWidget& box) {
    EXPECT_EQ(box.pos(), button.mapToGlobal(QPoint(0, 0)));
    EXPECT_GE(box.width(), button.width());
    answer(box);
  };
  Click("cmdSaveState", {saved});
  const std::string state = StateFile();
  Click("chkSaveStateOnQuit");
  Click("cmdQuit", {Saved()});
  EXPECT_NE(StateFile(), state);
  // What is cut is not taken.
  (void)folder_.Write("config/Quorvel/qvl.usr", "\"" + folder_.Write("a.txt", HARBOUR) + "\"\r\n");
  Open();
  EXPECT_EQ(Text("txbFile_0") + Text("cboContextSize") + Text("cboWordOrder"), " 5alphabetical");
}

}  // namespace
}  // namespace quorvel
