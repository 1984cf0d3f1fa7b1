#include "run/stop_word_choice.h"
#include "ui/window_test.h"

namespace quorvel {
namespace {

class Settings : public WindowTest {
 protected:
  static Box Saved() { return PopsUp("Settings saved"); }
  [[nodiscard]] std::string StateFile() const { return folder_.Read("config/Quorvel/qvl.usr"); }

  [[nodiscard]] Box AsksToSave(const char* name) const {
    return AsksForFile("Specify file to save settings to", folder_.Path(name));
  }

  [[nodiscard]] Box AsksToLoad(const char* name) const {
    return AsksForFile("Specify file to load settings from.", folder_.Path(name));
  }

  // Gives every option a value that it does not have at first, and ends in search mode with the
  // panel open.
  void ChangeEverything() {
    OpenText("a.txt");
    Type("txbFile_3", folder_.Path("not there.txt"));
    for (const std::string& box : MAIN_BOXES) Click(box);
    Choose("cboWordOrder", "by frequency");
    Choose("cboContextSize", " 3");
    Search();
    Type("txbFile_1", folder_.Write("found.txt", "x"));
    Type("txbFile_2", folder_.Write("k.txt", "ship\r\nold\r\n"), {OffersKeywords("No")});
    Type("txbExtraKeywords", "h*+s?a b#");
    Click("cmdSetParameters");
    for (const std::string& box : PANEL_BOXES) Click(box);
    Choose("cboThresholdFrequency", " 20");
    Type("txbExtraStopWords", "mp3,the");
  }

  // A press of a button in the panel after which the keys are still the panel's.
  void ClickAndStay(const std::string& button, const BoxList& boxes) {
    Click(button, boxes);
    QWidget& panel = Control("SettingsPanel");
    ExpectSoon([&panel] { return HasTheKeys(panel); });
    EXPECT_TRUE(Control(button).hasFocus()) << button;
  }

  // The settings file that says so, with the modes in lines 5 and 6.
  [[nodiscard]] std::string ChangedFile(const std::string& modes) const {
    std::string lines;
    for (const char* name : {"a.txt", "found.txt", "k.txt", "not there.txt"}) {
      lines += "\"" + folder_.Path(name) + "\"\r\n";
    }
    lines += modes + "\"mp3 the\"\r\n18\r\n1\r\n1\r\n0\r\n1\r\n1\r\n1\r\n0\r\n1\r\n1\r\n3\r\n";
    return lines + "\"" + StopWordsPath(LANGUAGES[0]) + "\"\r\n\"h*+s?a b#\"\r\n1\r\n1\r\n";
  }

  static constexpr const char* CREATE = "1\r\n0\r\n";
  static constexpr const char* SEARCH = "0\r\n1\r\n";
  const Names MAIN_BOXES = {"chkFrequencies",     "chkShowLineBreaks",  "chkDisable",
                            "chkCreateIndexFile", "chkWarnOnOverwrite", "chkSaveStateOnQuit"};
  const Names PANEL_BOXES = {"chkAllowWordsWithHyphens", "chkAllowWordsWithNumerals",
                             "chkIgnoreInfrequentWords", "chkIgnoreLists"};
};

TEST_F(Settings, AreSavedAndComeBackInCreateMode) {
  ChangeEverything();
  Click("cmdSaveState", {Saved()});
  EXPECT_EQ(StateFile(), ChangedFile(SEARCH));
  Open({}, {LoadsStopWords()});
  EXPECT_EQ(Which("checked", MAIN_BOXES),
            "chkShowLineBreaks chkDisable chkCreateIndexFile chkWarnOnOverwrite "
            "chkSaveStateOnQuit ");
  EXPECT_EQ(Text("cboWordOrder") + Text("cboContextSize"), "by frequency 3");
  Click("cmdSaveState", {Saved()});
  EXPECT_EQ(StateFile(), ChangedFile(CREATE));
}

TEST_F(Settings, AreSavedWhenTheProgramEnds) {
  Open();
  Press(Qt::CTRL | Qt::Key_Q);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(StateFile(), "");
  Open();
  Click("chkSaveStateOnQuit");
  Click("cmdSetParameters");
  Click("cmdQuitProgram", {Asks("Quit", "Really quit?", "Yes", "No")});
  EXPECT_TRUE(window_->isVisible());
  Click("cmdQuitProgram", {Asks("Quit", "Really quit?", "Yes", "Yes"), Saved()});
  EXPECT_FALSE(window_->isVisible());
  EXPECT_NE(StateFile(), "");
}

TEST_F(Settings, GoToAFileOfTheUsersChoiceAndBack) {
  const Box initialized = PopsUp("Settings reinitialized");
  ChangeEverything();
  Click("cmdSaveLoadState_0", {AsksToSave("mine")});
  EXPECT_EQ(folder_.Read("mine.lvz"), ChangedFile(SEARCH));
  ClickAndStay("cmdInitialize", {initialized});
  EXPECT_EQ(Text("cboContextSize") + Text("txbExtraStopWords") + Text("lblInputFileSize"), " 5");
  (void)folder_.Write("none.lvz", ChangedFile("0\r\n0\r\n"));
  ClickAndStay("cmdSaveLoadState_1", {AsksToLoad("none.lvz"), LoadsStopWords()});
  EXPECT_EQ(Which("checked", {"optCreate", "optSearch"}), "");
  EXPECT_EQ(Text("txbExtraStopWords") + Text("cboThresholdFrequency"), "mp3 the 20");
  (void)folder_.Write("bad.lvz", "\"" + folder_.Path("a.txt") + "\"\r\n");
  const char* const error =
      "Error when attempting to restore settings: the file ends after line 1.";
  ClickAndStay("cmdSaveLoadState_1", {AsksToLoad("bad.lvz"), Tells("Load settings", error)});
  EXPECT_EQ(Text("txbFile_0") + Text("cboContextSize") + Text("txbExtraStopWords"), " 5mp3 the");
  EXPECT_EQ(Which("checked", {"optCreate", "optSearch"}), "optCreate ");
  // They bring their keywords: what the boxes show is what a run goes by.
  ClickAndStay("cmdSaveLoadState_1",
               {AsksToLoad("mine.lvz"), LoadsStopWords(), OffersKeywords("No")});
  EXPECT_EQ(Which("checked", {"optCreate", "optSearch"}), "optSearch ");
  Type("txbExtraKeywords", "");
  Type("txbFile_1", "");
  Click("cmdListWords");
  EXPECT_EQ(Text("txbOutput").substr(0, 6), "[old]\n");
  // And they go when the settings do.
  Click("cmdInitialize", {initialized});
  Drop(folder_.Path("a.txt"), {LoadsStopWords()});
  Search();
  Click("cmdListWords", {WantsKeywords()});
}

TEST_F(Settings, ThatCannotBeSavedAreReported) {
  (void)folder_.Write("config", "in the way");
  const std::string error = "Error when attempting to save settings: Not a directory";
  Open();
  Click("cmdSaveState", {Tells("Quorvel", error)});
  Click("cmdSetParameters");
  Click("cmdSaveLoadState_0", {AsksToSave("config/x.lvz"), Tells("Save settings", error)});
}

}  // namespace
}  // namespace quorvel
