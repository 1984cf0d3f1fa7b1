#include "ui/run_control.h"

#include "support/made_texts.h"
#include "ui/window_test.h"

namespace quorvel {
namespace {

class RunControls : public WindowTest {
 protected:
  // All that is to be used or read.
  const Names CONTROLS = {"optCreate",    "txbFile_0",      "cmdFile_0",    "chkUTF8_0",
                          "cboWordOrder", "chkFrequencies", "cmdQuit",      "cmdSetParameters",
                          "cmdListWords", "cmdClosePanel",  "txbOutput",    "lblNumberOfWords",
                          "txbFile_3",    "cboContextSize", "SettingsPanel"};
};

TEST_F(RunControls, LeaveOnlyTheStopButtonLive) {
  OpenText("a.txt", LongText(24));
  Choose("cboContextSize", " 0");
  Click("cmdSetParameters");
  const std::string before = Which("enabled", CONTROLS);
  std::string live;
  Box question = ReallyStop("Enter");
  question.answer = [this, &live, answer = question.answer](QWidget& box) {
    live = Which("enabled", CONTROLS) + Text("cmdListWords");
    answer(box);
  };
  WhileScanning([&] {
    Press(Qt::Key_F5);
    Press(Qt::CTRL | Qt::Key_O);
    Drop(folder_.Path("a.txt"));
    Click("cmdListWords", {question});
    CloseWindow({ReallyStop("No")});
    EXPECT_TRUE(window_->isVisible());
    Press(Qt::Key_Escape, {ReallyStop("Yes")});
  });
  Press(Qt::Key_F5);
  EXPECT_TRUE(acted_ && Text("txbOutput").ends_with(" words found.\n"));
  EXPECT_EQ(Text("cmdListWords") + folder_.Read("a.qvl.conc.txt"), "List words");
  EXPECT_EQ(live, "cmdListWords txbOutput lblNumberOfWords Stop");
  EXPECT_EQ(Which("enabled", CONTROLS), before);
  ExpectSoon([this] { return Control("cmdListWords").hasFocus(); });
  EXPECT_TRUE(window_->isVisible());
}

TEST_F(RunControls, EndBeforeTheWindowCloses) {
  OpenText("a.txt", LongText(24));
  Click("chkSaveStateOnQuit");
  WhileScanning([this] { CloseWindow({ReallyStop("Yes")}); });
  Click("cmdListWords", {PopsUp("Settings saved")});
  EXPECT_TRUE(acted_);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_NE(folder_.Read("config/Quorvel/qvl.usr"), "");
  EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), "");
}

}  // namespace
}  // namespace quorvel
