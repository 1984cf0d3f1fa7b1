#include "ui/files_and_options.h"

#include <QTest>
#include <utility>

#include "ui/window_test.h"

namespace quorvel {
namespace {

class FilesAndOptionsTest : public WindowTest {
 protected:
  static Box NotFound(const std::string& path) {
    return Tells("Fatal error", "File " + path + " not found.", Icon::information);
  }

  // Types into a text box, and stays in it.
  void TypeInto(const std::string& control, const std::string& text) {
    Click(control);
    Press(Qt::CTRL | Qt::Key_A);
    TypeText(*window_, text);
  }

  void ExpectListed(const std::string& begins = HARBOUR_ENTRY) const {
    EXPECT_EQ(Text("txbOutput").substr(0, begins.size()), begins);
  }

  // Does what ends with the keys at the List button.
  void ExpectFocusAfter(const std::function<void()>& act) {
    Control("txbOutput").setFocus();
    act();
    ExpectSoon([this] { return Control("cmdListWords").hasFocus(); });
  }
};

using Files = FilesAndOptionsTest;
using Options = FilesAndOptionsTest;
using Keywords = FilesAndOptionsTest;

TEST_F(Files, AreChosenInDialogs) {
  const std::string input = folder_.Write("a.txt", HARBOUR);
  const std::string output = folder_.Write("o.txt", "old");
  const char* const title = "Specify concordance (output) file";
  Open();
  Click("cmdFile_3", {Tells("Quorvel", "An input file must be specified before a concordance file.",
                            Icon::information)});
  Click("cmdFile_0", {AsksForFile("Specify input file", "")});
  EXPECT_EQ(Text("txbFile_0"), "");
  ExpectFocusAfter([&] {
    Click("cmdFile_0", {AsksForFile("Specify input file", input), LoadsStopWords()});
  });
  EXPECT_EQ(std::exchange(phases_, ""), "Checking file, ");
  EXPECT_EQ(Texts({"txbFile_0", "txbFile_3", "lblInputFileSize", "lblConcordanceFileSize"}),
            input + folder_.Path("a.qvl.conc.txt") + "Input filesize: 66 bytes");
  Click("cmdFile_3", {{title, [](QWidget& dialog) {
                         const auto* name = dialog.findChild<QWidget*>("fileNameEdit");
                         EXPECT_EQ(name->property("text").toString(), "a.qvl.conc.txt");
                         dialog.close();
                       }}});
  ExpectFocusAfter([&] { Click("cmdFile_3", {AsksForFile(title, output)}); });
  EXPECT_EQ(Texts({"txbFile_3", "lblConcordanceFileSize"}),
            output + "Concordance filesize: 3 bytes");
  EXPECT_TRUE(Control("cmdViewFile").isEnabled());
  List();
  EXPECT_EQ(phases_,
            "Reading file, Compacting spaces, Processing file, Sorting, Applying filters, "
            "Counting words, Ordering by frequency, Creating concordance, ");
  ExpectListed();
  EXPECT_EQ(Counts() + Texts({"lblTimeElapsed", "lblTotalNumOccurrences", "lblTwirler"}),
            "Number of words: 3Number of occurrences: 6Number of keywords found: 7 ");
  Click("cmdClearFile_3");
  EXPECT_EQ(Texts({"txbFile_3", "lblConcordanceFileSize"}), "");
  EXPECT_FALSE(Control("cmdViewFile").isEnabled());
}

// The key does not take the focus from the box as a click on a button does.
TEST_F(Files, AreTakenAsTheyWereTypedBeforeTheNextAct) {
  const std::string other = folder_.Write("b.txt", "ship ahoy\r\n");
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"F5", [this] { Press(Qt::Key_F5, {WritesConcordance()}); }},
      {"click", [this] { Click("cmdListWords", {WritesConcordance()}); }},
      {"option, which finds nothing to list again", [this] { Click("chkFrequencies"); }},
      {"dialog", [this] { Click("cmdFile_0", {AsksForFile("Specify input file", "")}); }},
      {"settings", [this] { Click("cmdSetParameters"); }},
  };
  for (const auto& [name, act] : rows) {
    SCOPED_TRACE(name);
    OpenText("a.txt");
    List();
    const std::string listed = folder_.Read("a.qvl.conc.txt");
    TypeInto("txbFile_0", " " + other + " ");
    act();
    EXPECT_EQ(Text("txbFile_0") + Text("txbFile_3"), other + folder_.Path("b.qvl.conc.txt"));
    EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), listed);
  }
}

// A user lets go of the mouse when a box comes up, and the button below it never hears of that.
TEST_F(Files, AreTakenWhenTheMouseIsLetGo) {
  Open();
  TypeInto("txbFile_0", folder_.Write("a.txt", HARBOUR));
  auto& button = dynamic_cast<QPushButton&>(Control("cmdListWords"));
  const QPoint place = button.mapTo(window_.get(), button.rect().center());
  bool isDown = true;
  const auto release = [this, place, &isDown] {
    if (std::exchange(isDown, false)) {
      QTest::mouseRelease(window_->windowHandle(), Qt::LeftButton, {}, place);
    }
    return true;
  };
  Box box = LoadsStopWords();
  box.ready = release;
  Do("press and release", {box, WritesConcordance()}, [this, place, &release] {
    QTest::mousePress(window_->windowHandle(), Qt::LeftButton, {}, place);
    release();
  });
  EXPECT_FALSE(button.isDown());
  ExpectListed();
}

TEST_F(Files, ThatAreRefusedLeaveNothing) {
  const std::string listing = folder_.Write("a.QVL.conc.txt", HARBOUR);
  const std::string missing = folder_.Path("missing.txt");
  const std::string good = OpenText("good.txt");
  const std::string checked = "Checking file ...\n";
  const Box refused = Tells("Invalid input", "This is an QVL concordance file.");
  const struct {
    const char* name;
    std::function<void()> act;
    std::string left;  // the input, its size, the output
  } rows[] = {
      {"listing", [&] { Type("txbFile_0", listing, {refused}); }, ""},
      {"missing", [&] { Type("txbFile_0", missing, {NotFound(missing)}); }, checked},
      {"the same", [&] { Type("txbFile_0", good); }, good + "Input filesize: 66 bytes" + checked},
      {"none", [&] { Click("cmdClearFile_0"); }, ""},
      {"typed empty", [&] { Type("txbFile_0", ""); }, ""},
      {"gone", [&] { Click("cmdListWords", {NotFound(good)}); }, good},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Drop(good);
    List();
    if (row.left == good) std::filesystem::remove(good);
    row.act();
    EXPECT_EQ(Texts({"txbFile_0", "lblInputFileSize", "txbOutput"}) + Counts(), row.left);
  }
}

TEST_F(Files, ComeBackAfterClear) {
  const std::string input = OpenText("a.txt");
  Click("cmdClearFile_0");
  EXPECT_EQ(Texts({"txbFile_0", "lblInputFileSize"}), "");
  Click("txbFile_0");
  Press(Qt::CTRL | Qt::Key_Z);
  Press(Qt::Key_Tab);
  EXPECT_EQ(Texts({"txbFile_0", "lblInputFileSize"}), input + "Input filesize: 66 bytes");
}

TEST_F(Files, OfAnIndexAreWrittenAndOffered) {
  const std::string input = OpenText("a.txt");
  EXPECT_EQ(Texts({"lblIndexFile", "lblIndexFileSize"}), "Index file:");
  Click("chkCreateIndexFile");
  List();
  const std::string index = folder_.Read("a.qvl.ndx");
  EXPECT_EQ(Text("lblIndexFile"), "Index file: " + folder_.Path("a.qvl.ndx"));
  EXPECT_EQ(Control("lblIndexFile").toolTip().toStdString(), Text("lblIndexFile"));
  EXPECT_EQ(Text("lblIndexFileSize"), "Index filesize: " + std::to_string(index.size()) + " bytes");
  Type("txbFile_0", input, {OffersIndex(index, "Yes")}, Qt::Key_Return);
}

// The input is gone meanwhile, so what is listed can only come from memory.
TEST_F(Options, ListAgainWithoutReadingTheInput) {
  const BoxList written = {WritesConcordance()};
  const std::pair<std::function<void()>, const char*> rows[] = {
      {[&] { Choose("cboWordOrder", "by frequency", written); }, "[harbour 2]\n...  old"},
      {[&] { Click("chkShowLineBreaks", written); }, "now. / The «old» harbour"},
      {[&] { Choose("cboContextSize", " 1", written); }, "«harbour» was (x2)\n\n[old 2]\n"},
      {[&] { Click("chkFrequencies", written); }, "[harbour]\n... old «harbour» was\n\n[old]\n"},
      {[&] { Choose("cboWordOrder", "alphabetical", written); }, "[harbour]\n..."},
      {[&] { Choose("cboContextSize", " 0", written); }, "harbour\nold\nsilent\n"},
  };
  const std::string input = OpenText("a.txt");
  Click("chkFrequencies");  // before a run there is nothing to list
  Click("chkFrequencies");
  EXPECT_EQ(Text("txbOutput"), "");
  List();
  ASSERT_TRUE(std::filesystem::remove(input));
  for (const auto& [change, part] : rows) {
    phases_.clear();
    ExpectFocusAfter(change);
    EXPECT_NE(Text("txbOutput").find(part), std::string::npos) << part;
    EXPECT_EQ(phases_, "Creating concordance, ") << part;
  }
  // In the other mode the words are others.
  Search();
  Click("chkFrequencies");
  ExpectListed("harbour\nold\nsilent\n");
}

TEST_F(Options, AllowLineBreaksWhereTheInputHasThem) {
  OpenText("first.txt");
  std::filesystem::copy_file(QUORVEL_TEST_DATA "/docx/harbour_log.docx", folder_.Path("a.docx"));
  for (const char* name : {"a.txt", "a.HTML", "a.xml"}) {
    Drop(folder_.Write(name, "<p>ship ahoy</p>\r\n"));
    EXPECT_EQ(Control("chkShowLineBreaks").isEnabled(), name == std::string("a.txt")) << name;
  }
  Drop(folder_.Path("a.docx"), {LoadsStopWords(LANGUAGES.back())});
  EXPECT_FALSE(Control("chkShowLineBreaks").isEnabled());
  Drop(folder_.Path("a.txt"), {LoadsStopWords()});
  for (const char* size : {" 0", " 1"}) {
    Choose("cboContextSize", size);
    EXPECT_EQ(Control("chkShowLineBreaks").isEnabled(), size == std::string(" 1"));
  }
}

TEST_F(Options, OfTheOutputAreFollowed) {
  const std::string input = OpenText("a.txt");
  Click("chkDisable");
  EXPECT_EQ(Text("cmdListWords"), "List words (no file)");
  Click("cmdListWords", {Tells("Quorvel", "Output to file is disabled.", Icon::information)});
  ExpectListed();
  EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), "");
  Drop(input);
  EXPECT_EQ(Which("checked", {"chkDisable"}), "");
  const std::string output = folder_.Write("a.qvl.conc.txt", "old");
  for (const char* box : {"chkWarnOnOverwrite", "chkSaveStateOnQuit", "chkCreateIndexFile"}) {
    ExpectFocusAfter([&] { Click(box); });
  }
  const std::string question =
      "A concordance file \n" + output + "\nalready exists.  Do you wish to overwrite it?";
  Click("cmdListWords", {Asks("File exists", question, "Yes", "No")});
  EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), "old");
}

TEST_F(Options, AreThoseOfTheMode) {
  const Names names = {"txbFile_0",
                       "cmdFile_1",
                       "cmdClearFile_1",
                       "txbFile_1",
                       "cmdFile_2",
                       "cmdClearFile_2",
                       "txbFile_2",
                       "cmdFile_3",
                       "cmdClearFile_3",
                       "txbFile_3",
                       "lblExtraKeywords",
                       "txbExtraKeywords",
                       "cmdClearExtraKeywords",
                       "chkDisable",
                       "chkCreateIndexFile"};
  const std::string create =
      "txbFile_0 cmdFile_3 cmdClearFile_3 txbFile_3 chkDisable chkCreateIndexFile ";
  Open();
  Click("optSearch", {Tells("Quorvel", "Input file not specified.")});
  EXPECT_EQ(Which("checked", {"optCreate", "optSearch"}), "optCreate ");
  OpenText("a.txt");
  EXPECT_EQ(Which("enabled", names), create);
  Search();
  EXPECT_EQ(Text("cmdListWords"), "Search");
  EXPECT_TRUE(Shown("lblSearchResultsFileSize"));
  EXPECT_EQ(Which("enabled", names),
            "txbFile_0 cmdFile_1 cmdClearFile_1 txbFile_1 cmdFile_2 cmdClearFile_2 txbFile_2 "
            "lblExtraKeywords txbExtraKeywords ");
  Type("txbExtraKeywords", " Harbour's  SHIP ");
  EXPECT_EQ(Text("txbExtraKeywords"), "harbour  ship");
  Click("cmdClearExtraKeywords");
  EXPECT_FALSE(Control("cmdClearExtraKeywords").isEnabled());
  Click("cmdListWords", {WantsKeywords()});
  Click("optCreate");
  EXPECT_EQ(Text("cmdListWords"), "List words");
  EXPECT_FALSE(Shown("lblSearchResultsFileSize"));
  EXPECT_EQ(Which("enabled", names), create);
}

TEST_F(Keywords, AreReadFromAFile) {
  const std::string two = folder_.Write("two.txt", "silent colou?r\r\n/* no */\r\nHarbours\r\n");
  const std::string missing = folder_.Path("missing.txt");
  const std::string loaded = "Two keywords loaded from " + two + "\n\n";
  OpenText("a.txt");
  Search();
  ExpectFocusAfter([&] {
    Click("cmdFile_2", {AsksForFile("Specify keywords file", two), OffersKeywords("Yes")});
  });
  EXPECT_EQ(Texts({"txbOutput", "lblNumberOfWords"}), loaded + " harbour silentTwo keywords");
  Click("optCreate");
  Click("optSearch", {OffersKeywords("Escape")});
  Click("cmdClearFile_1");  // which they are not of
  EXPECT_EQ(Text("txbOutput"), loaded);
  Click("cmdListWords");
  Click("cmdClearFile_2");
  ExpectListed("[harbour 2]");
  Click("cmdListWords", {WantsKeywords()});
  Type("txbFile_2", two, {OffersKeywords("No")});
  Click("cmdClearFile_2");
  EXPECT_EQ(Texts({"txbFile_2", "txbOutput"}), "");
  Type("txbFile_2", two, {OffersKeywords("No")});
  Type("txbFile_2", missing, {Tells("Search words", "Keywords file not found:\n" + missing)});
  EXPECT_EQ(Text("txbFile_2"), "");
  Click("cmdListWords", {WantsKeywords()});
}

TEST_F(Keywords, AreSoughtAndTheResultsWritten) {
  OpenText("a.txt");
  Search();
  const std::string results = folder_.Path("found.txt");
  Click("cmdFile_1", {AsksForFile("Specify output file", results)});
  EXPECT_FALSE(Control("cmdViewFile").isEnabled());
  Type("txbExtraKeywords", "old s*+now", {}, Qt::Key_Return);
  Click("cmdListWords");
  EXPECT_TRUE(Text("txbOutput").ends_with("\n\n[silent 2]\n"));
  EXPECT_EQ(Texts({"lblNumberOfWords", "lblKeywordsFound", "lblSearchResultsFileSize"}),
            "Number of words: 2Search results filesize: " +
                std::to_string(folder_.Read("found.txt").size()) + " bytes");
  Click("chkWarnOnOverwrite");
  Box asks =
      Asks("File exists",
           "A search results file \n" + results + "\nalready exists.  Do you wish to overwrite it?",
           "Yes", "No");
  asks.answer = [this, answer = asks.answer](QWidget& box) {
    EXPECT_EQ(Text("lblSearchResultsFileSize"), "");
    answer(box);
  };
  Click("cmdListWords", {asks});
  EXPECT_EQ(Text("lblSearchResultsFileSize"), "");
  Click("cmdViewFile");
  EXPECT_EQ(Control("txbText1").window()->windowTitle().toStdString(), results);
}

TEST_F(Keywords, ThatAreTypedWithAFaultAreToldOnce) {
  const Box refused =
      Tells("Invalid input", "The extra keywords textbox contains an inadmissable character: %");
  OpenText("a.txt");
  Search();
  for (const QKeyCombination key : {QKeyCombination(Qt::Key_F5), Qt::ALT | Qt::Key_S}) {
    TypeInto("txbExtraKeywords", "a%");
    Press(key, {refused});
    // What stays there is told by every run that it keeps from beginning.
    Click("cmdListWords", {refused});
    EXPECT_EQ(Texts({"txbExtraKeywords", "txbOutput"}), "a%");
  }
  Type("txbExtraKeywords", "OLD%", {refused}, Qt::Key_Return);
  for (int times = 0; times < 2; ++times) {
    EXPECT_EQ(Text("txbExtraKeywords"), "old%");
    ExpectSoon([this] { return Control("txbExtraKeywords").hasFocus(); });
    if (times == 0) Press(Qt::Key_Enter, {refused});
  }
  Press(Qt::Key_Backspace);
  Press(Qt::Key_Enter);
  ExpectSoon([this] { return Control("cmdListWords").hasFocus(); });
  Press(Qt::Key_Enter);
  ExpectListed("[old 2]\n");
}

}  // namespace
}  // namespace quorvel
