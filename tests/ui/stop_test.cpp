#include <random>

#include "support/made_texts.h"
#include "ui/window_test.h"

namespace quorvel {
namespace {

class Stop : public WindowTest {
 protected:
  // Long enough for a user to reach a run on it in each of its phases.
  static std::string LongText() {
    std::mt19937 random(1);
    std::string text = Repeated("The harbour is there, and this is the old ship.\r\n", 200);
    while (text.size() < 1U << 20U) {
      for (auto number = 1000 + random() % 20000; number > 0; number /= 20) {
        text += static_cast<char>('b' + number % 20);
      }
      text += random() % 12 == 0 ? "\r\n" : " ";
    }
    return Repeated(text, 24);
  }

  static Box ReallyStop(const char* button) {
    return Asks("Stop", "Do you really wish to stop?", "No", button);
  }

  // The phase with a bar of its own has got somewhere.
  [[nodiscard]] bool IsAmid(const char* phase) const {
    return phases_.ends_with(phase) && Text("lblTotalNumOccurrences").starts_with("[-");
  }

  static constexpr const char* SCANNING = "Processing file, ";
  static constexpr const char* LISTING = "Creating concordance, ";
};

TEST_F(Stop, EndsARunOrAListing) {
  OpenText("a.txt", LongText());
  Meanwhile([this] { return IsAmid(SCANNING); },
            [this] { Press(Qt::Key_Escape, {ReallyStop("Yes")}); });
  Click("cmdListWords");
  EXPECT_TRUE(acted_ && Text("txbOutput").ends_with(" words found.\n"));
  EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), "");
  EXPECT_EQ(Which("enabled", {"optSearch", "cmdSetParameters"}), "optSearch cmdSetParameters ");
  EXPECT_EQ(Text("cmdListWords"), "List words");
  const std::pair<const char*, std::function<void()>> listings[] = {
      {"first", [this] { List(); }},
      {"again", [this] { Choose("cboContextSize", " 9", {WritesConcordance()}); }},
  };
  for (const auto& [name, list] : listings) {
    phases_.clear();
    Meanwhile([this] { return IsAmid(LISTING); },
              [this] { Click("cmdListWords", {ReallyStop("Yes")}); });
    list();
    EXPECT_TRUE(acted_ && Text("txbOutput").ends_with("\nListing stopped.\n")) << name;
  }
}

TEST_F(Stop, IsAskedForAndNothingElseIsLive) {
  OpenText("a.txt", LongText());
  Choose("cboContextSize", " 0");
  Click("cmdSetParameters");
  std::string live;
  Box question = ReallyStop("Enter");
  question.ready = [&] {
    live = Which("enabled", {"optCreate", "txbFile_0", "cboWordOrder", "chkFrequencies", "cmdQuit",
                             "cmdClosePanel", "cmdListWords"});
    live += Text("cmdListWords");
    return Text("lblTimeElapsed") == "Time elapsed: 3s";
  };
  Meanwhile([this] { return IsAmid(SCANNING); },
            [&] {
              Press(Qt::Key_F5);
              Press(Qt::CTRL | Qt::Key_O);
              Drop(folder_.Path("a.txt"));
              Click("cmdListWords", {question});
            });
  Click("cmdListWords", {WritesConcordance()});
  EXPECT_TRUE(acted_);
  EXPECT_EQ(live, "cmdListWords Stop");
  EXPECT_NE(folder_.Read("a.qvl.conc.txt"), "");
}

TEST_F(Stop, ComesBeforeClosing) {
  OpenText("a.txt", LongText());
  Click("chkSaveStateOnQuit");
  Meanwhile([this] { return IsAmid(SCANNING); },
            [this] {
              CloseWindow({ReallyStop("No")});
              EXPECT_TRUE(window_->isVisible());
              CloseWindow({ReallyStop("Yes")});
            });
  Click("cmdListWords", {PopsUp("Settings saved")});
  EXPECT_TRUE(acted_);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_NE(folder_.Read("config/Quorvel/qvl.usr"), "");
  EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), "");
}

}  // namespace
}  // namespace quorvel
