// What a listing was made of stays with it, and no file is lost by listing again.

#include <QTest>
#include <QWindow>
#include <chrono>
#include <filesystem>

#include "support/made_texts.h"
#include "ui/window_test.h"

namespace quorvel {
namespace {

class KeptValues : public WindowTest {
 protected:
  static Box Refuses(const std::string& output, const std::string& kept) {
    return Tells("Quorvel", "The " + output + " cannot be the same as the " + kept + ".");
  }

  static Box RefusesStopWord() {
    return Tells("Character not allowed",
                 "The character % occurs in some stop word\n"
                 "but is not a character allowed in a word.");
  }

  // Lists what has been listed in another size, which is the next one each time.
  void ListAgain(const BoxList& boxes) {
    size_ = size_ % 9 + 1;
    Choose("cboContextSize", " " + std::to_string(size_), boxes);
  }

  // Names a file of each kind that a run starts from, and leaves other names of the input.
  void NameFiles() {
    const std::string input = OpenText("a.txt");
    std::filesystem::create_directory(folder_.Path("sub"));
    std::filesystem::create_symlink(input, folder_.Path("link.txt"));
    std::filesystem::create_hard_link(input, folder_.Path("hard.txt"));
    Click("cmdSetParameters");
    Type("txbStopWordsFile", folder_.Write("own.txt", "was\r\n"));
    Click("cmdClosePanel");
    Search();
    Type("txbFile_2", folder_.Write("k.txt", "silent\r\nold\r\n"), {OffersKeywords("No")});
    Click("cmdSaveState", {PopsUp("Settings saved")});
  }

  // In the mode of now, whose listing is on the screen, names each kept file as the output; then
  // lists again, or by the button.
  void ExpectRefusals(const std::string& box, const std::string& output, bool again) {
    const std::pair<const char*, const char*> rows[] = {
        {"a.txt", "input file"},
        {"sub/../a.txt", "input file"},
        {"link.txt", "input file"},
        {"hard.txt", "input file"},
        {"own.txt", "stop words file"},
        {"k.txt", "keywords file"},
        {"config/Quorvel/qvl.usr", "settings file"}};
    const std::string listing = Text("txbOutput");
    const auto files = folder_.Files();
    for (const auto& [name, kept] : rows) {
      SCOPED_TRACE(box + " " + name);
      Type(box, folder_.Path(name));
      const Box refusal = Refuses(output, kept);
      if (again) {
        ListAgain({refusal});
        EXPECT_EQ(Text("txbOutput"), listing);
      } else {
        Click("cmdListWords", {refusal});
        EXPECT_EQ(Text("txbOutput") + Counts(), "");
      }
      EXPECT_EQ(folder_.Files(), files);
    }
  }

 private:
  int size_ = 5;
};

TEST_F(KeptValues, AreNotWrittenOverAFileThatARunStartsFrom) {
  NameFiles();
  Click("optCreate");
  List();
  ExpectRefusals("txbFile_3", "concordance file", true);
  ExpectRefusals("txbFile_3", "concordance file", false);
  // A refused run changes nothing of what can be listed again.
  Type("txbFile_3", folder_.Path("good.txt"));
  ListAgain({WritesConcordance()});
  EXPECT_NE(folder_.Read("good.txt"), "");
  Type("txbFile_3", folder_.Path("hard.txt"));
  Click("chkDisable");
  ListAgain({Tells("Quorvel", "Output to file is disabled.", Icon::information)});
  Click("optSearch", {OffersKeywords("No")});
  Type("txbFile_1", folder_.Path("found.txt"));
  Click("cmdListWords");
  ExpectRefusals("txbFile_1", "search results file", true);
  ExpectRefusals("txbFile_1", "search results file", false);
  EXPECT_EQ(folder_.Read("a.txt"), HARBOUR);
}

TEST_F(KeptValues, AreNotWrittenOverTheIndexOrTheInputBySettings) {
  const std::string input = OpenText("a.txt");
  Click("chkCreateIndexFile");
  Type("txbFile_3", folder_.Path("sub/../a.qvl.ndx"));
  std::filesystem::create_directory(folder_.Path("sub"));
  Click("cmdListWords", {Refuses("index file", "concordance file")});
  EXPECT_EQ(folder_.Read("a.qvl.ndx"), "");
  Click("cmdSetParameters");
  const std::string title = "Specify file to save settings to";
  const Box names = {title, [&input](QWidget& dialog) {
                       QTest::keyClick(dialog.windowHandle(), Qt::Key_A, Qt::ControlModifier);
                       TypeText(dialog, input);
                       // The question that comes now comes over this dialog.
                       QMetaObject::invokeMethod(
                           &dialog, [&dialog] { PressButton(dialog, "Enter"); },
                           Qt::QueuedConnection);
                     }};
  const Box replaces = {title +
                            " | a.txt already exists.\nDo you want to replace it? | icon 2 | "
                            "Yes,No*",
                        [](QWidget& box) { PressButton(box, "Yes"); }};
  Click("cmdSaveLoadState_0", {names, replaces, Refuses("settings file", "input file")});
  EXPECT_EQ(folder_.Read("a.txt"), HARBOUR);
}

// After a run that dropped them, there is nothing to list again.
TEST_F(KeptValues, AreNotListedAgainOnceTheyAreGone) {
  const struct {
    std::string name;
    std::string bytes;  // of the input meanwhile
    std::function<void()> run;
  } rows[] = {
      {"stopped", LongText(8),
       [this] {
         StopWhen([this] { return IsAmid(SCANNING); });
         Click("cmdListWords");
         EXPECT_TRUE(acted_);
       }},
      {"cancelled", "\xEF\xBB\xBF\x63\x61\x66\xC3\xA9 one\r\n",
       [this] {
         Click("cmdListWords",
               {Asks("UTF-8 or ANSI file?",
                     "This file seems to be UTF-8 encoded.\n"
                     "Click 'Yes' to scan it as UTF-8 encoded or 'No' to scan it as ANSI.",
                     "No", "Escape", "Cancel,Yes,No")});
       }},
      {"searched", HARBOUR,
       [this] {
         Search();
         Type("txbExtraKeywords", "harbour");
         Click("cmdListWords");
         Click("optCreate");
         Click("cmdSetParameters");
         Type("txbExtraStopWords", "a%", {RefusesStopWord()});
         Click("cmdListWords", {RefusesStopWord()});
       }},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    OpenText(row.name + ".txt");
    Click("chkCreateIndexFile");
    List();
    (void)folder_.Write(row.name + ".txt", row.bytes);
    const auto files = folder_.Files();
    row.run();
    const std::string box = Text("txbOutput");
    ListAgain({});
    EXPECT_EQ(Text("txbOutput"), box);
    EXPECT_TRUE(folder_.Files() == files);
  }
}

TEST_F(KeptValues, AreThoseThatTheListingWasMadeOf) {
  OpenText("a.txt");
  List();
  const std::string listed = folder_.Read("a.qvl.conc.txt");
  const std::string digestLine = listed.substr(0, listed.find("\r\nConcordance"));
  (void)folder_.Write("a.txt",
                      "Now all of you may see the ship and what she has on board today.\r\n");
  Choose("cboContextSize", " 1", {WritesConcordance()});
  EXPECT_TRUE(folder_.Read("a.qvl.conc.txt").starts_with(digestLine + "\r\n"));
  EXPECT_TRUE(Text("txbOutput").starts_with("[harbour 2]\n... old «harbour» was (x2)\n"));
  Search();
  Type("txbFile_1", folder_.Path("found.txt"));
  Type("txbExtraKeywords", "ship");
  Click("cmdListWords");
  Type("txbExtraKeywords", "zebra");
  Choose("cboContextSize", " 2");
  EXPECT_EQ(Text("txbOutput"), "[ship 1]\n... see the «ship» and what\n");
  EXPECT_NE(folder_.Read("found.txt").find("... see the \xABship\xBB and"), std::string::npos);
}

TEST_F(KeptValues, OutliveAStopWhileTheInputIsCompared) {
  constexpr int LINES = 2000000;
  const std::string input =
      OpenText("a.txt", HARBOUR + Repeated("....................\r\n", LINES));
  Click("chkCreateIndexFile");
  List();
  const std::string listed = folder_.Read("a.qvl.conc.txt");
  const auto written = std::filesystem::last_write_time(input);
  std::filesystem::last_write_time(input, written - std::chrono::hours(1));
  phases_.clear();
  StopWhen([this] { return IsReading() && phases_.empty(); });
  Click("cmdListWords");
  EXPECT_TRUE(acted_);
  EXPECT_EQ(Text("txbOutput") + Counts(), "Stopped when reading file.");
  EXPECT_TRUE(folder_.Read("a.qvl.conc.txt") == listed);
}

}  // namespace
}  // namespace quorvel
