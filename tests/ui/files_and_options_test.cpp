#include "ui/files_and_options.h"

#include <QFileDialog>
#include <QLabel>
#include <QTest>
#include <utility>

#include "support/made_texts.h"
#include "ui/window_test.h"

namespace quorvel {
namespace {

class FilesAndOptionsTest : public WindowTest {
 protected:
  static Box RefusesKeyword() {
    return Tells("Invalid input",
                 "The extra keywords textbox contains an inadmissable character: %");
  }

  static Box NotFound(const std::string& path) {
    return Tells("Fatal error", "File " + path + " not found.", Icon::information);
  }

  static Box IsDisabled() {
    return Tells("Quorvel", "Output to file is disabled.", Icon::information);
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
  void ExpectFocusAfter(const char* name, const std::function<void()>& act) {
    Control("txbOutput").setFocus();
    act();
    SCOPED_TRACE(name);
    ExpectSoon([this] { return Control("cmdListWords").hasFocus(); });
  }
};

using Files = FilesAndOptionsTest;
using Options = FilesAndOptionsTest;
using Keywords = FilesAndOptionsTest;

TEST_F(Files, AreChosenInDialogs) {
  const std::string input = folder_.Write("a.txt", HARBOUR);
  const std::string output = folder_.Write("o.txt", "old");
  Open();
  Click("cmdFile_3", {Tells("Quorvel", "An input file must be specified before a concordance file.",
                            Icon::information)});
  Click("cmdFile_0", {AsksForFile("Specify input file", "")});
  EXPECT_EQ(Text("txbFile_0"), "");
  ExpectFocusAfter("input", [&] {
    Click("cmdFile_0", {AsksForFile("Specify input file", input), LoadsStopWords()});
  });
  EXPECT_EQ(std::exchange(phases_, ""), "Checking file, ");
  EXPECT_EQ(Text("txbFile_0"), input);
  EXPECT_EQ(Text("txbFile_3"), folder_.Path("a.qvl.conc.txt"));
  EXPECT_EQ(Text("lblInputFileSize") + Text("lblConcordanceFileSize"), "Input filesize: 66 bytes");
  const char* const title = "Specify concordance (output) file";
  Click("cmdFile_3", {{title, [](QWidget& dialog) {
                         const auto* name = dialog.findChild<QWidget*>("fileNameEdit");
                         EXPECT_EQ(name->property("text").toString(), "a.qvl.conc.txt");
                         dialog.close();
                       }}});
  ExpectFocusAfter("output", [&] { Click("cmdFile_3", {AsksForFile(title, output)}); });
  EXPECT_EQ(Text("txbFile_3") + Text("lblConcordanceFileSize"),
            output + "Concordance filesize: 3 bytes");
  EXPECT_TRUE(Control("cmdViewFile").isEnabled());
  List();
  EXPECT_EQ(phases_,
            "Reading file, Compacting spaces, Processing file, Sorting, Applying filters, "
            "Counting words, Ordering by frequency, Creating concordance, ");
  ExpectListed();
  EXPECT_EQ(Counts(), "Number of words: 3Number of occurrences: 6Number of keywords found: 7");
  EXPECT_EQ(Text("lblTimeElapsed") + Text("lblTotalNumOccurrences") + Text("lblTwirler"), " ");
  EXPECT_NE(folder_.Read("o.txt"), "old");
  Click("cmdClearFile_3");
  EXPECT_EQ(Text("txbFile_3") + Text("lblConcordanceFileSize"), "");
  EXPECT_FALSE(Control("cmdViewFile").isEnabled());
}

// The key does not take the focus from the box as a click on a button does.
TEST_F(Files, AreTakenAsTheyWereTypedBeforeTheNextAct) {
  const std::string other = folder_.Write("b.txt", "ship ahoy\r\n");
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"F5", [this] { Press(Qt::Key_F5, {WritesConcordance()}); }},
      {"click", [this] { Click("cmdListWords", {WritesConcordance()}); }},
      {"option, which finds nothing to list again", [this] { Click("chkFrequencies"); }},
      {"dialog",
       [this] { Click("cmdFile_3", {AsksForFile("Specify concordance (output) file", "")}); }},
      {"settings", [this] { Click("cmdSetParameters"); }},
  };
  for (const auto& [name, act] : rows) {
    SCOPED_TRACE(name);
    OpenText("a.txt");
    List();
    const std::string listed = folder_.Read("a.qvl.conc.txt");
    TypeInto("txbFile_0", " " + other + " ");
    act();
    EXPECT_EQ(Text("txbFile_0"), other);
    EXPECT_EQ(Text("txbFile_3"), folder_.Path("b.qvl.conc.txt"));
    EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), listed);
  }
}

// A user lets go of the mouse when a box comes up, and the button below it never hears of that.
TEST_F(Files, AreTakenWhenTheMouseIsLetGo) {
  Open();
  TypeInto("txbFile_0", folder_.Write("a.txt", HARBOUR));
  auto& button = dynamic_cast<QPushButton&>(Control("cmdListWords"));
  const QPoint place = button.mapTo(window_.get(), button.rect().center());
  bool released = false;
  const auto release = [this, place, &released] {
    if (std::exchange(released, true)) return true;
    QTest::mouseRelease(window_->windowHandle(), Qt::LeftButton, {}, place);
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
  const std::string cleared = "Checking file ...\n";
  const struct {
    const char* name;
    std::function<void()> act;
    std::string left;  // the input, its size, the output
  } rows[] = {
      {"listing",
       [&] {
         Type("txbFile_0", listing, {Tells("Invalid input", "This is an QVL concordance file.")});
       },
       ""},
      {"missing", [&] { Type("txbFile_0", missing, {NotFound(missing)}); }, cleared},
      {"another", [&] { Drop(folder_.Write("b.txt", "ship ahoy")); },
       folder_.Path("b.txt") + "Input filesize: 9 bytes" + cleared},
      {"the same", [&] { Type("txbFile_0", good); }, good + "Input filesize: 66 bytes" + cleared},
      {"none", [&] { Click("cmdClearFile_0"); }, ""},
      {"typed empty", [&] { Type("txbFile_0", ""); }, ""},
      {"gone before a run",
       [&] {
         ASSERT_TRUE(std::filesystem::remove(good));
         Click("cmdListWords", {NotFound(good)});
       },
       good},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Drop(good);
    List();
    row.act();
    EXPECT_EQ(Text("txbFile_0") + Text("lblInputFileSize") + Text("txbOutput") + Counts(),
              row.left);
  }
}

TEST_F(Files, ComeBackAfterClear) {
  const std::string input = OpenText("a.txt");
  const std::string keywords = folder_.Write("k.txt", "ship\r\nold\r\n");
  const auto bringBack = [this](const std::string& box, const BoxList& boxes) {
    EXPECT_EQ(Text(box), "");
    Click(box);
    Press(Qt::CTRL | Qt::Key_Z);
    Press(Qt::Key_Tab, boxes);
  };
  Click("cmdClearFile_0");
  EXPECT_EQ(Text("lblInputFileSize"), "");
  bringBack("txbFile_0", {});
  EXPECT_EQ(Text("txbFile_0") + Text("lblInputFileSize"), input + "Input filesize: 66 bytes");
  Search();
  Type("txbFile_2", keywords, {OffersKeywords("No")});
  Click("cmdClearFile_2");
  bringBack("txbFile_2", {OffersKeywords("No")});
  EXPECT_EQ(Text("txbFile_2"), keywords);
  Type("txbFile_2", "");
  Type("txbExtraKeywords", "silent");
  Click("cmdClearExtraKeywords");
  EXPECT_FALSE(Control("cmdClearExtraKeywords").isEnabled());
  Click("cmdListWords", {WantsKeywords()});
  bringBack("txbExtraKeywords", {});
  Click("cmdListWords");
  ExpectListed("[silent 2");
}

TEST_F(Files, AskForTheEncodingWhereItsBoxWasChanged) {
  OpenText("a.txt", "\xEF\xBB\xBF\x63\x61\x66\xC3\xA9 one\r\n");
  Click("chkUTF8_0");
  const auto asks = [](const char* button) {
    return Asks("UTF-8 or ANSI file?",
                "This file seems to be UTF-8 encoded.\n"
                "Click 'Yes' to scan it as UTF-8 encoded or 'No' to scan it as ANSI.",
                "No", button, "Cancel,Yes,No");
  };
  Click("cmdListWords", {asks("Escape")});
  EXPECT_EQ(Which("checked", {"chkUTF8_0"}) + Text("txbOutput"), "");
  Click("cmdListWords", {asks("Yes"), WritesConcordance()});
  EXPECT_EQ(Which("checked", {"chkUTF8_0"}), "chkUTF8_0 ");
}

TEST_F(Files, OfAnIndexAreWrittenAndOffered) {
  const std::string input = OpenText("a.txt");
  EXPECT_EQ(Text("lblIndexFile") + Text("lblIndexFileSize"), "Index file:");
  Click("chkCreateIndexFile");
  List();
  const std::string index = folder_.Read("a.qvl.ndx");
  EXPECT_EQ(Text("lblIndexFile"), "Index file: " + folder_.Path("a.qvl.ndx"));
  EXPECT_EQ(Control("lblIndexFile").toolTip().toStdString(), Text("lblIndexFile"));
  EXPECT_EQ(Text("lblIndexFileSize"), "Index filesize: " + std::to_string(index.size()) + " bytes");
  for (const char* button : {"Yes", "No"}) {
    SCOPED_TRACE(button);
    Type("txbFile_0", input, {OffersIndex(index, button)}, Qt::Key_Return);
    phases_.clear();
    List();
    ExpectListed();
    EXPECT_EQ(phases_.find("Sorting") == std::string::npos, button == std::string("Yes"));
  }
}

// The input is gone meanwhile, so what is listed can only come from memory.
TEST_F(Options, ListAgainWithoutReadingTheInput) {
  const BoxList written = {WritesConcordance()};
  const struct {
    const char* name;
    std::function<void()> change;
    const char* part;
  } rows[] = {
      {"order", [&] { Choose("cboWordOrder", "by frequency", written); }, "[harbour 2]\n...  old"},
      {"line breaks", [&] { Click("chkShowLineBreaks", written); }, "now. / The «old» harbour"},
      {"size", [&] { Choose("cboContextSize", " 1", written); },
       "[harbour 2]\n... old «harbour» was (x2)\n\n[old 2]\n"},
      {"frequencies", [&] { Click("chkFrequencies", written); },
       "[harbour]\n... old «harbour» was\n\n[old]\n"},
      {"order again", [&] { Choose("cboWordOrder", "alphabetical", written); }, "[harbour]\n..."},
      {"no context", [&] { Choose("cboContextSize", " 0", written); }, "harbour\nold\nsilent\n"},
  };
  const std::string input = OpenText("a.txt");
  Click("chkFrequencies");  // before a run there is nothing to list
  Click("chkFrequencies");
  EXPECT_EQ(Text("txbOutput"), "");
  List();
  ASSERT_TRUE(std::filesystem::remove(input));
  for (const auto& row : rows) {
    phases_.clear();
    ExpectFocusAfter(row.name, row.change);
    EXPECT_NE(Text("txbOutput").find(row.part), std::string::npos) << row.name;
    EXPECT_EQ(phases_, "Creating concordance, ") << row.name;
  }
  // In the other mode the words are others.
  Search();
  Click("chkFrequencies");
  ExpectListed("harbour\nold\nsilent\n");
}

TEST_F(Options, AllowLineBreaksWhereTheInputHasThem) {
  const struct {
    const char* name;
    const char* size;
    bool allowed;
  } rows[] = {{"a.txt", " 0", false},
              {"a.txt", " 1", true},
              {"a.HTML", " 1", false},
              {"a.xml", " 1", false}};
  OpenText("first.txt");
  for (const auto& [name, size, allowed] : rows) {
    Drop(folder_.Write(name, "<p>ship ahoy</p>\r\n"));
    Choose("cboContextSize", size);
    EXPECT_EQ(Control("chkShowLineBreaks").isEnabled(), allowed) << name << size;
  }
  const std::string document = folder_.Path("a.docx");
  std::filesystem::copy_file(QUORVEL_TEST_DATA "/docx/harbour_log.docx", document);
  Drop(document, {LoadsStopWords(LANGUAGES.back())});
  EXPECT_FALSE(Control("chkShowLineBreaks").isEnabled());
}

TEST_F(Options, OfTheOutputAreFollowed) {
  const std::string input = OpenText("a.txt");
  const std::string output = folder_.Path("a.qvl.conc.txt");
  Click("chkDisable");
  EXPECT_EQ(Text("cmdListWords"), "List words (no file)");
  Click("cmdListWords", {IsDisabled()});
  ExpectListed();
  EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), "");
  Drop(input);
  EXPECT_EQ(Which("checked", {"chkDisable"}), "");
  (void)folder_.Write("a.qvl.conc.txt", "old");
  for (const char* box : {"chkWarnOnOverwrite", "chkSaveStateOnQuit", "chkCreateIndexFile"}) {
    ExpectFocusAfter(box, [&] { Click(box); });
  }
  Click("cmdListWords",
        {Asks("File exists",
              "A concordance file \n" + output + "\nalready exists.  Do you wish to overwrite it?",
              "Yes", "No")});
  EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), "old");
}

TEST_F(Options, AreThoseOfTheMode) {
  const Names names = {"txbFile_1",          "cmdFile_1",        "cmdClearFile_1",
                       "txbFile_2",          "cmdFile_2",        "cmdClearFile_2",
                       "txbFile_3",          "cmdFile_3",        "cmdClearFile_3",
                       "lblExtraKeywords",   "chkDisable",       "cmdClearExtraKeywords",
                       "chkCreateIndexFile", "txbExtraKeywords", "txbFile_0"};
  const std::string create =
      "txbFile_3 cmdFile_3 cmdClearFile_3 chkDisable chkCreateIndexFile txbFile_0 ";
  Open();
  EXPECT_EQ(Which("enabled", names), create);
  Click("optSearch", {Tells("Quorvel", "Input file not specified.")});
  EXPECT_EQ(Which("checked", {"optCreate", "optSearch"}), "optCreate ");
  OpenText("a.txt");
  Search();
  EXPECT_EQ(Text("cmdListWords"), "Search");
  EXPECT_TRUE(Shown("lblSearchResultsFileSize"));
  EXPECT_EQ(Which("enabled", names),
            "txbFile_1 cmdFile_1 cmdClearFile_1 txbFile_2 cmdFile_2 cmdClearFile_2 "
            "lblExtraKeywords txbExtraKeywords txbFile_0 ");
  Type("txbExtraKeywords", " Harbour's  SHIP ");
  EXPECT_EQ(Text("txbExtraKeywords"), "harbour  ship");
  EXPECT_TRUE(Control("cmdClearExtraKeywords").isEnabled());
  Click("optCreate");
  EXPECT_EQ(Text("cmdListWords"), "List words");
  EXPECT_FALSE(Shown("lblSearchResultsFileSize"));
  EXPECT_EQ(Which("enabled", names), create);
}

TEST_F(Keywords, AreReadFromAFile) {
  const std::string two = folder_.Write("two.txt", "silent colou?r\r\n/* no */\r\nHarbours\r\n");
  const std::string missing = folder_.Path("missing.txt");
  OpenText("a.txt");
  Search();
  ExpectFocusAfter("keywords", [&] {
    Click("cmdFile_2", {AsksForFile("Specify keywords file", two), OffersKeywords("Yes")});
  });
  const std::string loaded = "Two keywords loaded from " + two + "\n\n";
  EXPECT_EQ(Text("txbOutput"), loaded + " harbour silent");
  EXPECT_EQ(Text("lblNumberOfWords"), "Two keywords");
  Click("optCreate");
  Click("optSearch", {OffersKeywords("Escape")});
  EXPECT_EQ(Text("txbOutput"), loaded);
  Click("cmdListWords");
  ExpectListed("[harbour 2]");
  Click("cmdClearFile_2");
  ExpectListed("[harbour 2]");
  Click("cmdListWords", {WantsKeywords()});
  Type("txbFile_2", two, {OffersKeywords("No")});
  Click("cmdClearFile_2");
  EXPECT_EQ(Text("txbFile_2") + Text("txbOutput"), "");
  Type("txbFile_2", two, {OffersKeywords("No")});
  Type("txbFile_2", missing, {Tells("Search words", "Keywords file not found:\n" + missing)});
  EXPECT_EQ(Text("txbFile_2"), "");
  Click("cmdListWords", {WantsKeywords()});
  Click("optCreate");
}

TEST_F(Keywords, AreSoughtAndTheResultsWritten) {
  OpenText("a.txt");
  Search();
  const std::string results = folder_.Path("found.txt");
  Click("cmdFile_1", {AsksForFile("Specify output file", results)});
  EXPECT_EQ(Which("enabled", {"cmdViewFile"}), "");
  Type("txbExtraKeywords", "old s*+now", {}, Qt::Key_Return);
  Click("cmdListWords");
  EXPECT_TRUE(Text("txbOutput").ends_with("\n\n[silent 2]\n"));
  EXPECT_EQ(Text("lblNumberOfWords") + Text("lblKeywordsFound"), "Number of words: 2");
  EXPECT_EQ(
      Text("lblSearchResultsFileSize"),
      "Search results filesize: " + std::to_string(folder_.Read("found.txt").size()) + " bytes");
  EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), "");
  Click("chkWarnOnOverwrite");
  const std::string question =
      "A search results file \n" + results + "\nalready exists.  Do you wish to overwrite it?";
  Box asks = Asks("File exists", question, "Yes", "No");
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
  OpenText("a.txt");
  Search();
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"click", [this] { Click("cmdListWords", {RefusesKeyword()}); }},
      {"F5", [this] { Press(Qt::Key_F5, {RefusesKeyword()}); }},
      {"Alt+S", [this] { Press(Qt::ALT | Qt::Key_S, {RefusesKeyword()}); }},
  };
  for (const auto& [name, list] : rows) {
    SCOPED_TRACE(name);
    TypeInto("txbExtraKeywords", "a%");
    list();
    // What stays there is told by every run that it keeps from beginning.
    Click("cmdListWords", {RefusesKeyword()});
    EXPECT_EQ(Text("txbExtraKeywords") + Text("txbOutput"), "a%");
  }
  Type("txbExtraKeywords", "OLD%", {RefusesKeyword()}, Qt::Key_Return);
  EXPECT_EQ(Text("txbExtraKeywords"), "old%");
  ExpectSoon([this] { return Control("txbExtraKeywords").hasFocus(); });
  Press(Qt::Key_Enter, {RefusesKeyword()});
  ExpectSoon([this] { return Control("txbExtraKeywords").hasFocus(); });
  Press(Qt::Key_Backspace);
  Press(Qt::Key_Enter);
  ExpectSoon([this] { return Control("cmdListWords").hasFocus(); });
  Press(Qt::Key_Enter);
  ExpectListed("[old 2]\n");
}

}  // namespace
}  // namespace quorvel
