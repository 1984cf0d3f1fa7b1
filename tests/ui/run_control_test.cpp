#include "ui/run_control.h"

#include <QApplication>
#include <QWindow>

#include "support/made_texts.h"
#include "ui/window_test.h"
#include "ui/x_client.h"

namespace quorvel {

using RunControls = WindowTest;

TEST_F(RunControls, LeaveOnlyTheStopButtonLiveAndStopBeforeTheWindowCloses) {
  const auto really = [](const char* button) {
    return BoxList{Asks("Stop", "Do you really wish to stop?", "No", button)};
  };
  const auto close = [this] { window_->windowHandle()->close(); };
  OpenText("a.txt", LongText(24));
  Click("chkSaveStateOnQuit");
  Click("cmdSetParameters");
  QTimer meanwhile;
  bool acted = false;
  QObject::connect(&meanwhile, &QTimer::timeout, &meanwhile, [&] {
    const bool isScanning = Text("txbOutput").find("Processing file") != std::string::npos;
    if (acted || !isScanning || !Text("lblTotalNumOccurrences").starts_with("[-")) return;
    acted = true;
    EXPECT_EQ(Which("enabled", {"optCreate", "txbFile_0", "cmdFile_0", "cboWordOrder", "cmdQuit",
                                "cmdListWords", "SettingsPanel", "txbOutput"}),
              "cmdListWords txbOutput ");
    EXPECT_EQ(Text("cmdListWords"), "Stop");
    Press(Qt::Key_F5);
    Press(Qt::CTRL | Qt::Key_O);
    Drop(folder_.Path("a.txt"));
    Click("cmdListWords", really("Enter"));
    Press(Qt::Key_Escape, really("Escape"));
    Do("close", really("No"), close);
    EXPECT_TRUE(window_->isVisible());
    Do("close", really("Yes"), close);
  });
  meanwhile.start(1);
  Click("cmdListWords", {PopsUp("Settings saved")});
  EXPECT_TRUE(acted && Text("txbOutput").ends_with(" words found.\n"));
  EXPECT_EQ(Text("cmdListWords") + folder_.Read("a.qvl.conc.txt"), "List words");
  EXPECT_FALSE(window_->isVisible());
  EXPECT_NE(folder_.Read("config/Quorvel/qvl.usr"), "");
}

TEST_F(RunControls, AskNothingMoreWhenTheWindowIsClosedDuringAQuestion) {
  OpenText("a.txt");
  Click("chkWarnOnOverwrite");
  (void)folder_.Write("a.qvl.conc.txt", "old");
  Click("cmdListWords", {{"File exists", [this](QWidget& box) {
                            // Nobody would answer a second question in front of this one.
                            QTimer::singleShot(500, &box, [&box] {
                              auto* asked = QApplication::activeModalWidget();
                              EXPECT_EQ(asked, &box);
                              if (asked != &box) asked->close();
                            });
                            CloseByFrame(*window_);
                            window_->close();
                            EXPECT_TRUE(window_->isVisible() && HasTheKeys(box));
                            PressButton(box, "No");
                          }}});
  EXPECT_EQ(folder_.Read("a.qvl.conc.txt") + Text("cmdListWords"), "oldList words");
  CloseByFrame(*window_);
  EXPECT_FALSE(window_->isVisible());
}

}  // namespace quorvel
