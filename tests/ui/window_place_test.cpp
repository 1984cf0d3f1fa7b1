#include "ui/window_place.h"

#include <QScreen>

#include "ui/preferences.h"
#include "ui/window_test.h"

namespace quorvel {
namespace {

using WindowPlaces = WindowTest;

TEST_F(WindowPlaces, AreTakenUpOnTheSameScreenAlone) {
  const QRect place(150, 120, 900, 650);
  const auto reopen = [this] {
    window_ = std::make_unique<MainWindow>();
    window_->show();
    Activate(*window_);
  };
  reopen();
  window_->setGeometry(place);
  for (int start = 0; start < 3; ++start) {
    ExpectSoon([&] { return window_->geometry() == place; });
    window_->close();
    reopen();
  }
  window_->showMaximized();
  ExpectSoon([this] { return window_->width() > 1200; });
  window_->close();
  reopen();
  ExpectSoon([this] { return window_->isMaximized() && window_->width() > 1200; });
  window_->showNormal();
  ExpectSoon([&] { return window_->geometry() == place; });
  const QByteArray screen = KeptState(WINDOW_SCREEN);
  const std::tuple<const char*, QByteArray, QByteArray> rows[] = {
      {"screen gone", KeptState(WINDOW_PLACE), "DP-2 " + screen},
      {"other scale", KeptState(WINDOW_PLACE), QByteArray(screen).replace("@1", "@2")},
      {"wrong", "\x01\xD9\xD0\xCB wrong", screen},
  };
  for (const auto& [name, keptPlace, keptScreen] : rows) {
    KeepState(WINDOW_PLACE, keptPlace);
    KeepState(WINDOW_SCREEN, keptScreen);
    reopen();
    EXPECT_EQ(window_->size(), QSize(1000, 720)) << name;
    EXPECT_TRUE(window_->screen()->geometry().contains(window_->frameGeometry())) << name;
  }
}

TEST_F(WindowPlaces, AndAllElseThatIsWrongInTheFileCountsAsNotThere) {
  KeepFolding(true);  // creates the folder
  (void)folder_.Write(
      "config/Quorvel/window.ini",
      "[General]\ninputs=relative.txt, /a%00b, , /a, %2Fa, /b\n[window]\nfolded=perhaps\n"
      "place=@Variant(\\0\\x1)\nscreen=@Size(1 2)\n");
  EXPECT_EQ(KeptInputs(), (std::vector<std::string>{"/a", "/b"}));
  Open();
  EXPECT_TRUE(Shown("txbFile_0"));
}

}  // namespace
}  // namespace quorvel
