#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include "run/stop_word_choice.h"
#include "ui/window_test.h"

namespace quorvel {
namespace {

class StopWords : public WindowTest {
 protected:
  // The chooser of languages: takes the one at `place`, and leaves by a button.
  static Box AsksForLanguage(int place, const char* name, const char* caption) {
    return {"Stop words", [=](QWidget& chooser) {
              auto* list = chooser.findChild<QComboBox*>("cboCommonWordsFiles");
              list->setFocus();
              QTest::keyClick(chooser.windowHandle(), Qt::Key_Home);
              for (int i = 0; i < place; ++i) {
                QTest::keyClick(chooser.windowHandle(), Qt::Key_Down);
              }
              EXPECT_EQ(list->currentText(), name);
              for (auto* button : chooser.findChildren<QPushButton*>()) {
                if (button->text().remove('&') == caption) return ClickOn(*button);
              }
              ADD_FAILURE() << "no button " << caption;
            }};
  }

  static Box Loads(const std::string& count, const std::string& path) {
    return Tells("Stop words loaded", count + " loaded from " + path, Icon::none);
  }
};

TEST_F(StopWords, OfEachLanguageAreLoaded) {
  const std::pair<const char*, const char*> languages[] = {
      {"English", "en"}, {"German", "de"}, {"Spanish", "es"},           {"Portuguese", "pt"},
      {"Italian", "it"}, {"French", "fr"}, {"All six languages", "all"}};
  Open();
  Click("cmdSetParameters");
  Click("cmdSelectStopWordsFile_1", {AsksForLanguage(1, "German", "Cancel")});
  EXPECT_EQ(Text("txbStopWordsFile"), "");
  for (int place = 0; place < 7; ++place) {
    const auto& [name, code] = languages[place];
    SCOPED_TRACE(name);
    const char* const caption = place == 6 ? "Load stop words file for these languages"
                                           : "Load stop words file for this language";
    Click("cmdSelectStopWordsFile_1",
          {AsksForLanguage(place, name, caption), LoadsStopWords(code)});
  }
  EXPECT_EQ(Text("txbStopWordsFile"), StopWordsPath(ALL_LANGUAGES));
  ExpectSoon([this] { return Control("cmdClosePanel").hasFocus(); });
}

TEST_F(StopWords, FollowTheLanguageOfTheInputUnlessAllAreInUse) {
  const std::string german =
      folder_.Write("de.txt", "Das Haus und der Hafen, aber nicht das Schiff. Wir sind hier.\r\n");
  const std::string english = OpenText("en.txt");
  Drop(german, {LoadsStopWords("de")});
  Drop(german);
  Click("cmdSetParameters");
  Click("cmdSelectStopWordsFile_1",
        {AsksForLanguage(6, "All six languages", "Load stop words file for these languages"),
         LoadsStopWords("all")});
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
  const std::string title = "Specify file of stop words (words to ignore)";
  Click("cmdSelectStopWordsFile_0", {AsksForFile(title, "")});
  Click("cmdSelectStopWordsFile_0", {AsksForFile(title, own), Loads("Two stop words", own)});
  EXPECT_EQ(Text("txbStopWordsFile"), own);
  EXPECT_EQ(Text("lblNumberOfWords"), "Two stop words");
  Click("cmdListStopWords",
        {Tells("Stop words", "There are 2 stop words.\n\nold\nsilent\n", Icon::none)});
  List();
  EXPECT_EQ(Text("lblNumberOfWords"), "Number of words: 5");
  Click("cmdClearStopWordsFile");
  EXPECT_EQ(Text("txbStopWordsFile"), "");
  Click("cmdListStopWords");
  List();
  EXPECT_EQ(Text("lblNumberOfWords"), "Number of words: 7");
  // A path that was typed is read when it is needed.
  Type("txbStopWordsFile", " " + missing + " ");
  EXPECT_EQ(Text("txbStopWordsFile"), missing);
  Click("cmdListWords", {Tells("Stop words", "Stop words file not found:\n" + missing)});
  Type("txbStopWordsFile", own, {}, Qt::Key_Return);
  List();
  EXPECT_EQ(Text("lblNumberOfWords"), "Number of words: 5");
  // Nor is a chosen one that cannot be read passed over.
  const std::string rtf = folder_.Write("rtf.txt", "{\\rtf1 old}");
  const Box refusal = Tells("Fatal error", "File " + rtf + "\nis an RTF file.", Icon::information);
  Click("cmdSelectStopWordsFile_0", {AsksForFile(title, rtf), refusal});
  EXPECT_EQ(Text("txbStopWordsFile"), rtf);
  Click("cmdListWords", {refusal});
}

TEST_F(StopWords, ThatAreTypedAreTidiedAndChecked) {
  const Box complaint = Tells("Character not allowed",
                              "The character 3 occurs in some stop word\n"
                              "but is not currently set as a character allowed in a word.");
  OpenText("a.txt");
  List();
  Click("cmdSetParameters");
  for (const Qt::Key end : {Qt::Key_Return, Qt::Key_Tab}) {
    Type("txbExtraStopWords", "the, OLD,an", {}, end);
    EXPECT_EQ(Text("txbExtraStopWords"), "an old the");
    Type("txbExtraStopWords", "Old,SILENT mp3", {complaint}, end);
  }
  Click("cmdListWords", {complaint});
  EXPECT_EQ(Text("txbOutput"), HARBOUR_LISTING);
  Click("chkAllowWordsWithNumerals");
  ExpectSoon([this] { return Control("cmdClosePanel").hasFocus(); });
  Click("cmdClosePanel");
  List();
  EXPECT_EQ(Text("lblNumberOfWords"), "Number of words: 1");
}

}  // namespace
}  // namespace quorvel
