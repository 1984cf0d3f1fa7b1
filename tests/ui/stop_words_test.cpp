#include <QComboBox>
#include <QTest>

#include "run/stop_word_choice.h"
#include "ui/window_test.h"

namespace quorvel {
namespace {

class StopWords : public WindowTest {
 protected:
  // The chooser of languages: takes the one at `place`, and leaves by a button.
  static Box AsksForLanguage(const char* opensOn, int place, const char* name,
                             const char* caption) {
    return {"Stop words", [=](QWidget& chooser) {
              auto* list = chooser.findChild<QComboBox*>("cboCommonWordsFiles");
              EXPECT_EQ(list->currentText(), opensOn);
              list->setFocus();
              QTest::keyClick(chooser.windowHandle(), Qt::Key_Home);
              for (int i = 0; i < place; ++i) {
                QTest::keyClick(chooser.windowHandle(), Qt::Key_Down);
              }
              EXPECT_EQ(list->currentText(), name);
              PressButton(chooser, caption);
            }};
  }
};

TEST_F(StopWords, FollowTheLanguageOfTheInputUnlessAllAreInUse) {
  const std::string german =
      folder_.Write("de.txt", "Das Haus und der Hafen, aber nicht das Schiff. Wir sind hier.\r\n");
  const std::string english = OpenText("en.txt");
  Drop(german, {LoadsStopWords(LANGUAGES.at(1))});
  Drop(german);
  Click("cmdSetParameters");
  Click("cmdSelectStopWordsFile_1", {AsksForLanguage("German", 2, "Spanish", "Cancel")});
  EXPECT_EQ(Text("txbStopWordsFile"), StopWordsPath(LANGUAGES.at(1)));
  Click("cmdSelectStopWordsFile_1",
        {AsksForLanguage("German", 5, "French", "Load stop words file for this language"),
         LoadsStopWords(LANGUAGES.back())});
  Click("cmdSelectStopWordsFile_1", {AsksForLanguage("French", 6, "All six languages",
                                                     "Load stop words file for these languages"),
                                     LoadsStopWords(ALL_LANGUAGES)});
  ExpectSoon([this] { return Control("cmdClosePanel").hasFocus(); });
  Click("cmdSelectStopWordsFile_1", {AsksForLanguage("All six languages", 0, "English", "Cancel")});
  Click("cmdClosePanel");
  EXPECT_FALSE(Shown("SettingsPanel"));
  Drop(english);
  // All are in use at the next start too, where the last input is gone.
  Click("cmdSaveState", {PopsUp("Settings saved")});
  std::filesystem::remove(english);
  Open();
  Drop(german);
  Click("cmdSetParameters");
  EXPECT_EQ(Text("txbStopWordsFile"), StopWordsPath(ALL_LANGUAGES));
}

TEST_F(StopWords, OfAFileOfOnesOwn) {
  const std::string own = folder_.Write("own.txt", "silent old\r\n/* comment */\r\n");
  const std::string missing = folder_.Path("none.txt");
  OpenText("a.txt");
  Click("cmdSetParameters");
  Click("cmdSelectStopWordsFile_0",
        {AsksForFile("Specify file of stop words (words to ignore)", own),
         Tells("Stop words loaded", "Two stop words loaded from " + own, Icon::none)});
  EXPECT_EQ(Text("txbStopWordsFile"), own);
  const Box listed = Tells("Stop words", "There are 2 stop words.\n\nold\nsilent\n", Icon::none);
  Click("cmdListStopWords", {listed});
  Click("cmdSelectStopWordsFile_1", {AsksForLanguage("English", 1, "German", "Cancel")});
  Click("cmdClearStopWordsFile");
  EXPECT_EQ(Text("txbStopWordsFile"), "");
  List();
  EXPECT_EQ(Text("lblNumberOfWords"), "Number of words: 7");
  // A box emptied by typing is like one that was cleared.
  Type("txbStopWordsFile", own);
  Click("cmdListStopWords", {listed});
  Type("txbStopWordsFile", "");
  List();
  EXPECT_EQ(Text("lblNumberOfWords"), "Number of words: 7");
  Click("cmdListStopWords");
  EXPECT_NE(Text("txbOutput"), "");
  // A path that was typed is read when it is needed.
  Type("txbStopWordsFile", " " + missing + " ");
  EXPECT_EQ(Text("txbStopWordsFile"), missing);
  const Box refused = Tells("Stop words", "Stop words file not found:\n" + missing);
  Click("cmdListWords", {refused});
  Click("cmdListStopWords", {refused});
  Type("txbStopWordsFile", own, {}, Qt::Key_Return);
  List();
  EXPECT_EQ(Text("lblNumberOfWords"), "Number of words: 5");
}

TEST_F(StopWords, ThatAreTypedAreTidiedAndChecked) {
  const Box complaint = Tells("Character not allowed",
                              "The character 3 occurs in some stop word\n"
                              "but is not currently set as a character allowed in a word.");
  OpenText("a.txt");
  Click("cmdSetParameters");
  Type("txbExtraStopWords", "Old,SILENT mp3", {complaint}, Qt::Key_Return);
  EXPECT_EQ(Text("txbExtraStopWords"), "mp3 old silent");
  Click("cmdListWords", {complaint});
  Click("chkAllowWordsWithNumerals");
  ExpectSoon([this] { return Control("cmdClosePanel").hasFocus(); });
  List();
  EXPECT_EQ(Text("lblNumberOfWords"), "Number of words: 1");
}

}  // namespace
}  // namespace quorvel
