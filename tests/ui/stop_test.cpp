#include <QElapsedTimer>

#include "support/made_texts.h"
#include "ui/window_test.h"
#include "util/time_text.h"

namespace quorvel {
namespace {

class Stop : public WindowTest {
 protected:
  // The question whether to stop, answered when a run would have counted a second more.
  static Box WaitsAWhile(const char* button) {
    constexpr int LONG_MS = 1500;
    Box question = ReallyStop(button);
    question.ready = [shown = std::make_shared<QElapsedTimer>()] {
      if (!shown->isValid()) shown->start();
      return shown->elapsed() > LONG_MS;
    };
    return question;
  }
};

TEST_F(Stop, EndsARunOrAListing) {
  OpenText("a.txt", LongText(24));
  StopWhen([this] { return IsAmid(SCANNING); });
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
    SCOPED_TRACE(name);
    phases_.clear();
    StopWhen([this] { return IsAmid(LISTING); });
    list();
    EXPECT_TRUE(acted_ && Text("txbOutput").ends_with("\nListing stopped.\n"));
    EXPECT_EQ(Text("lblListingShown"), ShownOf("a.qvl.conc.txt"));
  }
  OpenText("long.txt", LongText(96));  // read for long enough on a fast machine, too
  phases_.clear();
  StopWhen([this] { return IsReading(); });
  Click("cmdListWords");
  ASSERT_TRUE(acted_);
  EXPECT_EQ(Text("txbOutput") + Counts(), "Stopped when reading file.");
}

TEST_F(Stop, IsAskedForAndNothingElseIsLive) {
  OpenText("a.txt", LongText(24));
  Choose("cboContextSize", " 0");
  Click("cmdSetParameters");
  std::string live;
  Box question = WaitsAWhile("Enter");
  question.answer = [this, &live, answer = question.answer](QWidget& box) {
    live = Which("enabled", {"optCreate", "txbFile_0", "cboWordOrder", "chkFrequencies", "cmdQuit",
                             "cmdClosePanel", "cmdListWords"});
    live += Text("cmdListWords") + Counts() + Text("lblTimeElapsed");
    answer(box);
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

TEST_F(Stop, ThatIsDeclinedLeavesTheCountsOfTheListing) {
  OpenText("a.txt", LongText(8));
  Meanwhile([this] { return IsAmid(LISTING); },
            [this] { Press(Qt::Key_Escape, {WaitsAWhile("No")}); });
  List();
  EXPECT_TRUE(acted_);
  const std::string file = folder_.Read("a.qvl.conc.txt");
  std::int64_t entries = 0;
  for (std::size_t at = 0; (at = file.find("\r\n[", at)) != std::string::npos; ++at) ++entries;
  EXPECT_EQ(Text("lblNumberOfWords"), "Number of words: " + GroupedNumber(entries));
}

TEST_F(Stop, ComesBeforeClosing) {
  OpenText("a.txt", LongText(24));
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
