#include "ui/main_window.h"

#include <QRegularExpression>
#include <QTest>

#include "ui/window_test.h"

namespace quorvel {

using MainWindows = WindowTest;

TEST_F(MainWindows, HasAllInView) {
  EXPECT_EQ(MainWindow().size(), QSize(1000, 720));
  OpenText("a.txt");
  const QRegularExpression ours("^(cmd|txb|chk|opt|cbo|lbl)");
  for (const QWidget* control : window_->findChildren<QWidget*>(ours)) {
    if (!control->isVisible()) continue;
    EXPECT_EQ(control->visibleRegion().boundingRect(), control->rect())
        << control->objectName().toStdString();
  }
  ExpectNames(*window_);
  Click("cmdHelp");
  ExpectNames(*Control("txbText1").window());
  Activate(*window_);
  Click("cmdAbout", {{"About Quorvel", [](QWidget& box) {
                        ExpectNames(box);
                        PressButton(box, "Close");
                      }}});
}

TEST_F(MainWindows, AnswersToItsKeys) {
  OpenText("a.txt");
  Press(Qt::CTRL | Qt::Key_O, {AsksForFile("Specify input file", "")});
  for (const auto keys : {Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter}) {
    Control("txbOutput").setFocus();
    Press(keys, {WritesConcordance()});
    ExpectSoon([this] { return Control("cmdListWords").hasFocus(); });
  }
  Click("cmdViewFile");
  EXPECT_NE(Text("txbText1").find(HARBOUR_ENTRY), std::string::npos);
  Click("cmdSetParameters");
  Activate(*window_);
  Click("cmdSetParameters");
  ExpectSoon([this] { return HasTheKeys(Control("SettingsPanel")); });
}

TEST_F(MainWindows, FindsInTheListing) {
  OpenText("a.txt");
  List();
  Press(Qt::Key_F3);
  TypeText(*window_, "harbour");
  Click("cmdFindClose");
  EXPECT_FALSE(Shown("findBar"));
  Press(Qt::CTRL | Qt::Key_F);
  Press(Qt::Key_F3);
  EXPECT_EQ(Text("lblFindCount"), "1 of 11");
  Press(Qt::SHIFT | Qt::Key_F3);
  Click("cmdFindPrevious");
  EXPECT_EQ(Text("lblFindCount"), "10 of 11");
  Click("cmdFindNext");
  EXPECT_EQ(Text("lblFindCount"), "11 of 11");
  Press(Qt::Key_Escape);
  EXPECT_FALSE(Shown("findBar"));
}

TEST_F(MainWindows, FoldsTheFilesAndOptionsAway) {
  OpenText("a.txt");
  window_->resize(1024, 600);
  Press(Qt::Key_F9);
  ExpectSoon([this] { return window_->size() == QSize(1024, 600); });
  EXPECT_FALSE(Shown("txbFile_0") || Shown("chkFrequencies") || Shown("lblInputFileSize"));
  EXPECT_EQ(Text("cmdFold"), "Files and options of a.txt");
  const QWidget& counts = Control("lblNumberOfWords");
  EXPECT_GE(600 - counts.mapTo(window_.get(), counts.rect().bottomLeft()).y(), 400);
  Box written = WritesConcordance();
  written.answer = [this, answer = written.answer](QWidget& popUp) {
    const QPoint below = Control("cmdListWords").mapToGlobal(QPoint(0, 23));
    EXPECT_LT((popUp.pos() - below).manhattanLength(), 20);
    answer(popUp);
  };
  Press(Qt::Key_F5, {written});
  Open();
  EXPECT_FALSE(Shown("txbFile_0"));
  Press(Qt::CTRL | Qt::Key_O, {AsksForFile("Specify input file", "")});
  Click("cmdFold");
  EXPECT_EQ(Text("cmdFold"), "Files and options");
  EXPECT_TRUE(Shown("txbFile_0") && Shown("chkFrequencies") && Shown("lblInputFileSize"));
  Open();
  EXPECT_TRUE(Shown("txbFile_0"));
}

TEST_F(MainWindows, KeepsWhatItShowsCurrent) {
  const std::string input = OpenText("a.txt");
  const auto tip = [this] { return Control("txbFile_0").toolTip().toStdString(); };
  ExpectSoon([&] { return tip() == input; });
  // A path that is being typed is not checked yet.
  const std::string other = folder_.Write("b.txt", "ship ahoy\r\n");
  TypeInto("txbFile_0", other);
  (void)folder_.Write("a.qvl.conc.txt", "ship");
  ExpectSoon([this] { return Control("cmdViewFile").isEnabled(); });
  EXPECT_EQ(Text("lblConcordanceFileSize"), "Concordance filesize: 4 bytes");
  // It is checked when the user leaves the box, even with a mouse press that is released elsewhere.
  const QPoint place = Control("cmdQuit").mapTo(window_.get(), QPoint(5, 5));
  QTest::mousePress(window_->windowHandle(), Qt::LeftButton, {}, place);
  EXPECT_EQ(Text("txbFile_3"), folder_.Path("a.qvl.conc.txt"));
  QTest::mouseRelease(window_->windowHandle(), Qt::LeftButton, {}, QPoint(1, 1));
  ExpectSoon([&] { return Text("txbFile_3") == folder_.Path("b.qvl.conc.txt"); });
  Click("cmdClearFile_0");
  ExpectSoon([&] { return tip() == "The path of the input file"; });
}

TEST_F(MainWindows, SavesItsSettingsWhereThatIsWanted) {
  constexpr const char* STATE = "config/Quorvel/qvl.usr";
  Open();
  Press(Qt::CTRL | Qt::Key_Q);
  EXPECT_EQ(folder_.Read(STATE), "");
  Open();
  Click("chkSaveStateOnQuit");
  Click("cmdQuit", {PopsUp("Settings saved")});
  EXPECT_NE(folder_.Read(STATE), "");
  // A settings file that ends too early is not used.
  (void)folder_.Write(STATE, "\"" + folder_.Write("a.txt", HARBOUR) + "\"\r\n");
  Open();
  EXPECT_EQ(Text("txbFile_0") + Text("cboContextSize"), " 5");
}

}  // namespace quorvel
