#include "ui/settings_panel.h"

#include <QComboBox>

#include "lists/languages.h"
#include "run/stop_word_choice.h"
#include "ui/window_test.h"

namespace quorvel {
namespace {

constexpr const char* SAVE = "Specify file to save settings to";

class SettingsPanels : public WindowTest {
 protected:
  [[nodiscard]] Box AsksToLoad(const char* name) const {
    return AsksForFile("Specify file to load settings from.", folder_.Path(name));
  }

  // The language chooser: selects the language at `place`, and presses a button.
  static Box AsksForLanguage(const char* opensOn, int place, const char* button) {
    return {"Stop words", [=](QWidget& chooser) {
              auto* list = chooser.findChild<QComboBox*>("cboCommonWordsFiles");
              EXPECT_EQ(list->currentText(), opensOn);
              ExpectNames(chooser);
              list->setCurrentIndex(place);
              PressButton(chooser, button);
            }};
  }

  // Sets every option to a value other than its default.
  void ChangeEverything() {
    OpenText("a.txt");
    Type("txbFile_3", folder_.Path("not there.txt"));
    for (const char* box : {"chkFrequencies", "chkShowLineBreaks", "chkDisable",
                            "chkCreateIndexFile", "chkWarnOnOverwrite", "chkSaveStateOnQuit"}) {
      Click(box);
    }
    Choose("cboWordOrder", "by frequency");
    Choose("cboContextSize", " 3");
    Search();
    Type("txbFile_1", folder_.Write("found.txt", "x"));
    Type("txbFile_2", folder_.Write("k.txt", "ship\r\nold\r\n"), {OffersKeywords("No")});
    Type("txbExtraKeywords", "h*+s?a b#");
    Click("cmdSetParameters");
    for (const std::string& box : PANEL_BOXES) {
      Click(box);
      ExpectAt("cmdClosePanel");
      Control("txbExtraStopWords").setFocus();
    }
    Choose("cboThresholdFrequency", " 20");
    Type("txbExtraStopWords", "mp3,the");
  }

  // Fails unless this control of the panel has the focus.
  void ExpectAt(const std::string& name) {
    ExpectSoon(
        [this, &name] { return HasTheKeys(Control("SettingsPanel")) && Control(name).hasFocus(); });
  }

  void ClickAndStay(const std::string& button, const BoxList& boxes) {
    Click(button, boxes);
    ExpectAt(button);
  }

  // The settings file with these values. The modes are in lines 5 and 6.
  [[nodiscard]] std::string ChangedFile(const std::string& modes) const {
    std::string lines;
    for (const char* name : {"a.txt", "found.txt", "k.txt", "not there.txt"}) {
      lines += "\"" + folder_.Path(name) + "\"\r\n";
    }
    lines += modes + "\"mp3 the\"\r\n18\r\n1\r\n1\r\n0\r\n1\r\n1\r\n1\r\n0\r\n1\r\n1\r\n3\r\n";
    return lines + "\"" + StopWordsPath(LANGUAGES[0]) + "\"\r\n\"h*+s?a b#\"\r\n1\r\n1\r\n";
  }

  const Names PANEL_BOXES = {"chkAllowWordsWithHyphens", "chkAllowWordsWithNumerals",
                             "chkIgnoreInfrequentWords", "chkIgnoreLists"};
};

TEST_F(SettingsPanels, WritesAFileOfTheUsersChoiceAndReadsIt) {
  ChangeEverything();
  Click("cmdSaveState", {PopsUp("Settings saved")});
  Click("cmdSaveLoadState_0", {AsksForFile(SAVE, folder_.Path("mine"))});
  EXPECT_EQ(folder_.Read("mine.lvz"), ChangedFile("0\r\n1\r\n"));
  ClickAndStay("cmdInitialize", {PopsUp("Settings reinitialized")});
  EXPECT_EQ(Text("cboContextSize") + Text("txbExtraStopWords") + Text("lblInputFileSize"), " 5");
  EXPECT_EQ(Which("checked", PANEL_BOXES), "chkAllowWordsWithHyphens ");
  (void)folder_.Write("none.lvz", ChangedFile("0\r\n0\r\n"));
  ClickAndStay("cmdSaveLoadState_1", {AsksToLoad("none.lvz"), LoadsStopWords()});
  EXPECT_EQ(Which("checked", {"optCreate", "optSearch"}), "");
  (void)folder_.Write("bad.lvz", "\"" + folder_.Path("a.txt") + "\"\r\n");
  const char* const error =
      "Error when attempting to restore settings: the file ends after line 1.";
  ClickAndStay("cmdSaveLoadState_1", {AsksToLoad("bad.lvz"), Tells("Load settings", error)});
  EXPECT_EQ(Text("txbFile_0") + Text("cboContextSize") + Text("txbExtraStopWords"), " 5mp3 the");
  EXPECT_EQ(Which("checked", {"optCreate", "optSearch"}), "optCreate ");
  // The keywords of the loaded settings are read too, so a run uses what the boxes show.
  ClickAndStay("cmdSaveLoadState_1",
               {AsksToLoad("mine.lvz"), LoadsStopWords(), OffersKeywords("No")});
  EXPECT_EQ(Which("checked", {"optCreate", "optSearch"}), "optSearch ");
  Type("txbExtraKeywords", "");
  Type("txbFile_1", "");
  Click("cmdListWords");
  EXPECT_EQ(Text("txbOutput").substr(0, 6), "[old]\n");
  Open({}, {LoadsStopWords()});
  Click("cmdSaveState", {PopsUp("Settings saved")});
  EXPECT_EQ(folder_.Read("config/Quorvel/qvl.usr"), ChangedFile("1\r\n0\r\n"));
}

TEST_F(SettingsPanels, TellsThatSettingsCannotBeSavedAndEndsTheProgram) {
  (void)folder_.Write("config", "in the way");
  const std::string error = "Error when attempting to save settings: Not a directory";
  Open();
  Click("cmdSaveState", {Tells("Quorvel", error)});
  Click("cmdSetParameters");
  Click("cmdSaveLoadState_0",
        {AsksForFile(SAVE, folder_.Path("config/x.lvz")), Tells("Save settings", error)});
  Click("cmdQuitProgram", {Asks("Quit", "Really quit?", "Yes", "No")});
  EXPECT_TRUE(window_->isVisible());
  Click("cmdQuitProgram", {Asks("Quit", "Really quit?", "Yes", "Enter")});
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(SettingsPanels, IsClosedByEnterButNotFromAText) {
  Open();
  Click("cmdSetParameters");
  ExpectNames(Control("SettingsPanel"));
  Click("cmdClosePanel");
  for (const char* name : {"txbStopWordsFile", "chkIgnoreLists"}) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
      Click("cmdSetParameters");
      Control(name).setFocus();
      ExpectAt(name);
      Press(key);
      EXPECT_EQ(Shown("SettingsPanel"), name[0] == 't' && key != Qt::Key_Escape) << name;
    }
  }
}

TEST_F(SettingsPanels, OffersTheStopWordsOfALanguage) {
  OpenText("a.txt");
  Click("cmdSetParameters");
  constexpr const char* LOAD = "Load stop words file for this language";
  Click("cmdSelectStopWordsFile_1", {AsksForLanguage("English", 5, LOAD), LoadsStopWords()});
  const Box all = AsksForLanguage("French", 6, "Load stop words file for these languages");
  Click("cmdSelectStopWordsFile_1", {all, LoadsStopWords()});
  Click("cmdSelectStopWordsFile_1", {AsksForLanguage("All six languages", 0, "Cancel")});
}

TEST_F(SettingsPanels, TakesStopWordsOfOnesOwn) {
  const std::string own = folder_.Write("own.txt", "silent old\r\n/* comment */\r\n");
  const std::string missing = folder_.Path("none.txt");
  const char* const title = "Specify file of stop words (words to ignore)";
  OpenText("a.txt");
  Click("cmdSetParameters");
  Click("cmdSelectStopWordsFile_0",
        {AsksForFile(title, own),
         Tells("Stop words loaded", "Two stop words loaded from " + own, Icon::none)});
  EXPECT_EQ(Text("txbStopWordsFile"), own);
  const Box listed = Tells("Stop words", "There are 2 stop words.\n\nold\nsilent\n", Icon::none);
  ClickAndStay("cmdListStopWords", {listed});
  Click("cmdClearStopWordsFile");
  EXPECT_EQ(Text("txbStopWordsFile"), "");
  List();
  Click("cmdClearStopWordsFile");
  EXPECT_NE(Text("txbOutput"), "");
  // A typed path is read when it is needed. Emptying the box is the same as "Clear".
  TypeInto("txbStopWordsFile", " " + own + " ");
  Press(Qt::ALT | Qt::Key_L, {listed});
  EXPECT_EQ(Text("txbStopWordsFile") + Text("txbOutput"), own);
  Type("txbStopWordsFile", " ");
  List();
  EXPECT_EQ(Text("lblNumberOfWords"), "Number of words: 7");
  Type("txbStopWordsFile", missing);
  Click("cmdListStopWords", {Tells("Stop words", "Stop words file not found:\n" + missing)});
}

TEST_F(SettingsPanels, TidiesAndChecksStopWordsThatAreTyped) {
  OpenText("a.txt");
  Click("cmdSetParameters");
  Type("txbExtraStopWords", "Old,SILENT mp3",
       {Tells("Character not allowed",
              "The character 3 occurs in some stop word\n"
              "but is not currently set as a character allowed in a word.")},
       Qt::Key_Return);
  EXPECT_EQ(Text("txbExtraStopWords"), "mp3 old silent");
  Click("chkAllowWordsWithNumerals");
  List();
  EXPECT_EQ(Text("lblNumberOfWords"), "Number of words: 1");
}

}  // namespace
}  // namespace quorvel
