#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
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

  [[nodiscard]] std::string Live() const {
    std::string live;
    for (const QWidget* control : window_->findChildren<QWidget*>()) {
      const bool takesInput = qobject_cast<const QAbstractButton*>(control) != nullptr ||
                              qobject_cast<const QLineEdit*>(control) != nullptr ||
                              qobject_cast<const QComboBox*>(control) != nullptr;
      if (takesInput && !control->window()->isModal() && control->isVisible() &&
          control->isEnabled()) {
        live += control->objectName().toStdString() + " ";
      }
    }
    return live;
  }

  static constexpr const char* SCANNING = "Processing file, ";
  static constexpr const char* LISTING = "Creating concordance, ";
};

TEST_F(Stop, EndsEachPhase) {
  const auto press = [this] { Click("cmdListWords", {ReallyStop("Yes")}); };
  const auto pressKey = [this] { Press(Qt::Key_Escape, {ReallyStop("Yes")}); };
  const struct {
    const char* name;
    std::function<bool()> isInPhase;
    std::function<void()> stop;
    const char* end;
    bool writes;
  } rows[] = {
      {"reading", [this] { return !phases_.empty(); }, press, "Stopped when reading file.", false},
      {"scanning", [this] { return IsAmid(SCANNING); }, pressKey, " words found.\n", false},
      {"listing", [this] { return IsAmid(LISTING); }, press, "\nListing stopped.\n", true},
  };
  OpenText("a.txt", LongText());
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    phases_.clear();
    Meanwhile(row.isInPhase, row.stop);
    Click("cmdListWords", row.writes ? BoxList{WritesConcordance()} : BoxList{});
    EXPECT_TRUE(acted_ && Text("txbOutput").ends_with(row.end));
    EXPECT_EQ(std::filesystem::exists(folder_.Path("a.qvl.conc.txt")), row.writes);
    EXPECT_EQ(Which("enabled", {"optSearch", "cmdSetParameters"}), "optSearch cmdSetParameters ");
    EXPECT_EQ(Text("cmdListWords"), "List words");
  }
  // It can be listed again, and that be stopped.
  phases_.clear();
  Meanwhile(rows[2].isInPhase, press);
  Choose("cboContextSize", " 9", {WritesConcordance()});
  EXPECT_TRUE(acted_ && Text("txbOutput").ends_with(rows[2].end));
}

TEST_F(Stop, IsAskedForAndNothingElseIsLive) {
  OpenText("a.txt", LongText());
  Choose("cboContextSize", " 0");
  Click("cmdSetParameters");
  std::string live;
  std::string counted;
  std::string elapsed;
  Box question = ReallyStop("Enter");
  question.ready = [&] {
    live = Live();
    counted = Text("lblNumberOfWords");
    const std::string text = Text("lblTimeElapsed");
    if (!elapsed.ends_with(text)) elapsed += text;
    return text.ends_with("3s");
  };
  std::string caption;
  Meanwhile([this] { return IsAmid(SCANNING); },
            [&] {
              caption = Text("cmdListWords");
              Press(Qt::Key_F1);
              Press(Qt::Key_F5);
              Press(Qt::CTRL | Qt::Key_O);
              Drop(folder_.Path("a.txt"));
              Click("cmdListWords", {question});
            });
  Click("cmdListWords", {WritesConcordance()});
  EXPECT_TRUE(acted_);
  EXPECT_EQ(caption, "Stop");
  EXPECT_EQ(live, "cmdListWords ");
  EXPECT_TRUE(counted.starts_with("Number of words: ") && !counted.ends_with(" 0")) << counted;
  EXPECT_EQ(elapsed, "Time elapsed: 3s");
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
