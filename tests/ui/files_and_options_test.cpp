#include "ui/files_and_options.h"

#include "ui/window_test.h"

namespace quorvel {
namespace {

class FilesAndOptionsTest : public WindowTest {
 protected:
  void ExpectListed(const std::string& begins = HARBOUR_ENTRY) const {
    EXPECT_EQ(Text("txbOutput").substr(0, begins.size()), begins);
  }

  // Acts, and expects that the List button has the focus afterwards.
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
  const Names shown = {"txbFile_0", "txbFile_3", "lblInputFileSize", "lblConcordanceFileSize"};
  Open();
  Click("cmdFile_3", {Tells("Quorvel", "An input file must be specified before a concordance file.",
                            Icon::information)});
  ExpectFocusAfter([&] {
    Click("cmdFile_0", {AsksForFile("Specify input file", input), LoadsStopWords()});
  });
  EXPECT_EQ(Texts(shown), input + folder_.Path("a.qvl.conc.txt") + "Input filesize: 66 bytes");
  ExpectFocusAfter([&] { Click("cmdFile_3", {AsksForFile(title, output)}); });
  EXPECT_EQ(Texts(shown), input + output + "Input filesize: 66 bytesConcordance filesize: 3 bytes");
  EXPECT_TRUE(Control("cmdViewFile").isEnabled());
  Click("cmdClearFile_3");
  EXPECT_EQ(Texts(shown), input + "Input filesize: 66 bytes");
  EXPECT_FALSE(Control("cmdViewFile").isEnabled());
}

TEST_F(Files, AreReadAsUnicodeWhereThatIsTicked) {
  const std::string input = OpenText("a.txt", "Łódź tonie.\r\nŁódź płynie.\r\n");
  List();
  EXPECT_EQ(Text("lblLost"), "7 characters are not in Windows-1252");
  Click("cmdReadUnicode", {WritesConcordance()});
  ExpectListed("[płynie 1]\n...  tonie. Łódź ");
  EXPECT_FALSE(Shown("lossBar"));
  EXPECT_EQ(Which("checked", {"chkUnicode"}), "chkUnicode ");
  EXPECT_EQ(Which("enabled", {"chkUnicode", "chkUTF8_0"}), "chkUnicode ");
  EXPECT_NE(folder_.Read("a.qvl.conc.txt").find("[Łódź 2]\r\n"), std::string::npos);
  Open(input, {LoadsStopWords()});  // the choice stays
  List();
  ExpectListed("[płynie 1]\n...  tonie. Łódź ");
  Click("chkUnicode");
  EXPECT_EQ(Which("enabled", {"chkUnicode", "chkUTF8_0"}), "chkUnicode chkUTF8_0 ");
  List();
  EXPECT_TRUE(Shown("lossBar"));
}

// Unlike a click on a button, a key does not take the focus from the box.
TEST_F(Files, AreTakenAsTheyWereTypedBeforeTheNextAct) {
  const std::string other = folder_.Write("b.txt", "ship ahoy\r\n");
  const std::function<void()> acts[] = {
      [this] { Press(Qt::Key_F5, {WritesConcordance()}); },
      [this] { Click("chkFrequencies"); },  // after that there is nothing to list again
  };
  for (const auto& act : acts) {
    OpenText("a.txt");
    List();
    const std::string listed = folder_.Read("a.qvl.conc.txt");
    TypeInto("txbFile_0", " " + other + " ");
    act();
    EXPECT_EQ(Text("txbFile_0") + Text("txbFile_3"), other + folder_.Path("b.qvl.conc.txt"));
    EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), listed);
  }
}

TEST_F(Files, ThatAreRefusedLeaveNothing) {
  const std::string missing = folder_.Path("missing.txt");
  const std::string good = OpenText("good.txt");
  const std::string shown = good + "Input filesize: 66 bytes";
  const Box gone = Tells("Fatal error", "File " + missing + " not found.", Icon::information);
  const std::pair<std::function<void()>, std::string> rows[] = {
      {[&] { Type("txbFile_0", missing, {gone}); }, "Checking file ...\n"},
      {[&] { Type("txbFile_0", good); }, shown + "Checking file ...\n"},
      {[&] { Click("cmdClearFile_0"); }, ""},
  };
  for (const auto& [act, left] : rows) {
    Drop(good);
    List();
    act();
    EXPECT_EQ(Texts({"txbFile_0", "lblInputFileSize", "txbOutput", "lblKeywordsFound"}), left);
  }
  Click("txbFile_0");
  Press(Qt::CTRL | Qt::Key_Z);
  Press(Qt::Key_Tab);
  EXPECT_EQ(Texts({"txbFile_0", "lblInputFileSize"}), shown);
}

// The input file is removed, so the listing can come only from memory.
TEST_F(Options, ListAgainWithoutReadingTheInput) {
  const BoxList written = {WritesConcordance()};
  const std::pair<std::function<void()>, const char*> rows[] = {
      {[&] { Choose("cboWordOrder", "by frequency", written); }, "[harbour 2]\n...  old"},
      {[&] { Click("chkShowLineBreaks", written); }, "now. / The «old» harbour"},
      {[&] { Choose("cboContextSize", " 1", written); }, "«harbour» was (x2)\n\n[old 2]\n"},
      {[&] { Click("chkFrequencies", written); }, "[harbour]\n... old «harbour» was\n\n[old]\n"},
      {[&] { Choose("cboContextSize", " 0", written); }, "harbour\nold\nsilent\n"},
  };
  const std::string input = OpenText("a.txt");
  Click("chkFrequencies");  // before a run there is nothing to list
  Click("chkFrequencies");
  Click("chkCreateIndexFile");
  List();
  EXPECT_EQ(Texts({"lblIndexFile", "lblIndexFileSize"}),
            "Index file: " + folder_.Path("a.qvl.ndx") + "Index filesize: 182 bytes");
  ASSERT_TRUE(std::filesystem::remove(input));
  for (const auto& [change, part] : rows) {
    ExpectFocusAfter(change);
    EXPECT_NE(Text("txbOutput").find(part), std::string::npos) << part;
  }
}

TEST_F(Options, AllowLineBreaksWhereTheInputHasThem) {
  OpenText("first.txt");
  for (const std::string name : {"a.docx", "a.HTML", "a.xml", "a.txt"}) {
    TypeInto("txbFile_0", folder_.Path(name));
    ExpectSoon([&] { return Control("chkShowLineBreaks").isEnabled() == (name == "a.txt"); });
  }
  Drop(folder_.Write("a.txt", HARBOUR));
  for (const char* size : {" 0", " 1"}) {
    Choose("cboContextSize", size);
    EXPECT_EQ(Control("chkShowLineBreaks").isEnabled(), size == std::string(" 1"));
  }
}

TEST_F(Options, OfTheOutputAreFollowed) {
  OpenText("a.txt");
  Click("chkDisable");
  EXPECT_EQ(Text("cmdListWords"), "List words (no file)");
  Click("cmdListWords", {Tells("Quorvel", "Output to file is disabled.", Icon::information)});
  ExpectListed();
  EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), "");
  Drop(folder_.Path("a.txt"));
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
  const Names names = {
      "cmdFile_1",  "cmdClearFile_1",       "txbFile_2", "txbFile_3", "txbExtraKeywords",
      "chkDisable", "cmdClearExtraKeywords"};
  Open();
  Click("optSearch", {Tells("Quorvel", "Input file not specified.")});
  EXPECT_EQ(Which("checked", {"optCreate", "optSearch"}), "optCreate ");
  OpenText("a.txt");
  EXPECT_EQ(Which("enabled", names), "txbFile_3 chkDisable ");
  Search();
  EXPECT_EQ(Text("cmdListWords"), "Search");
  EXPECT_EQ(Which("enabled", names), "cmdFile_1 cmdClearFile_1 txbFile_2 txbExtraKeywords ");
  Type("txbExtraKeywords", " Harbour's  SHIP ");
  EXPECT_EQ(Text("txbExtraKeywords"), "harbour  ship");
  Click("cmdClearExtraKeywords");
  EXPECT_FALSE(Control("cmdClearExtraKeywords").isEnabled());
  Click("cmdListWords", {WantsKeywords()});
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
  Click("cmdClearFile_1");  // the keywords do not come from this file
  EXPECT_EQ(Text("txbOutput"), loaded);
  Click("cmdFile_1", {AsksForFile("Specify output file", folder_.Path("found.txt"))});
  Click("cmdListWords");
  const std::string size = std::to_string(folder_.Read("found.txt").size());
  EXPECT_EQ(Text("lblSearchResultsFileSize"), "Search results filesize: " + size + " bytes");
  Click("cmdClearFile_2");
  ExpectListed("[harbour 2]");
  Click("cmdListWords", {WantsKeywords()});
  Type("txbFile_2", missing, {Tells("Search words", "Keywords file not found:\n" + missing)});
  EXPECT_EQ(Text("txbFile_2"), "");
}

TEST_F(Keywords, ThatAreTypedWithAFaultAreToldOnce) {
  const Box refused =
      Tells("Invalid input", "The extra keywords textbox contains an inadmissable character: %");
  OpenText("a.txt");
  Search();
  TypeInto("txbExtraKeywords", "a%");
  Press(Qt::Key_F5, {refused});
  // While the fault stays in the box, every attempt to run reports it.
  Click("cmdListWords", {refused});
  EXPECT_EQ(Texts({"txbExtraKeywords", "txbOutput"}), "a%");
  Type("txbExtraKeywords", "OLD%", {refused}, Qt::Key_Return);
  Press(Qt::Key_Backspace);
  Press(Qt::Key_Enter);
  ExpectSoon([this] { return Control("cmdListWords").hasFocus(); });
}

}  // namespace
}  // namespace quorvel
