#include "ui/window_test.h"

namespace quorvel {
namespace {

using SearchMode = WindowTest;

TEST_F(SearchMode, IsLeftAgainWithoutAnInput) {
  Open();
  Click("optSearch", {Tells("Quorvel", "Input file not specified.")});
  EXPECT_EQ(Which("checked", {"optCreate", "optSearch"}), "optCreate ");
  EXPECT_EQ(Which("enabled", {"txbExtraKeywords"}), "");
}

TEST_F(SearchMode, HasControlsOfItsOwn) {
  const Names names = {"cmdFile_1",          "txbFile_1",
                       "cmdClearFile_1",     "cmdFile_2",
                       "txbFile_2",          "lblExtraKeywords",
                       "txbExtraKeywords",   "cmdFile_3",
                       "txbFile_3",          "cmdClearFile_3",
                       "chkCreateIndexFile", "cmdClearFile_2",
                       "chkDisable",         "cmdClearExtraKeywords"};
  const std::string forCreating =
      "cmdFile_3 txbFile_3 cmdClearFile_3 chkCreateIndexFile chkDisable ";
  OpenText("a.txt");
  Click("chkDisable");
  EXPECT_EQ(Which("enabled", names), forCreating);
  Search();
  EXPECT_EQ(Text("cmdListWords"), "Search");
  EXPECT_EQ(Which("enabled", names),
            "cmdFile_1 txbFile_1 cmdClearFile_1 cmdFile_2 txbFile_2 lblExtraKeywords "
            "txbExtraKeywords cmdClearFile_2 ");
  Type("txbExtraKeywords", "ship");
  Click("cmdClearExtraKeywords");
  EXPECT_EQ(Text("txbExtraKeywords"), "");
  ExpectSoon([this] { return Which("enabled", {"cmdClearExtraKeywords"}).empty(); });
  Click("optCreate");
  EXPECT_EQ(Text("cmdListWords"), "List words (no file)");
  EXPECT_EQ(Which("enabled", names), forCreating);
}

TEST_F(SearchMode, ReadsAKeywordsFile) {
  const std::string two = folder_.Write("two.txt", "silent colou?r\r\n/* no */\r\nHarbours\r\n");
  const std::string one = folder_.Write("one.txt", "ship\r\n");
  const std::string missing = folder_.Path("missing.txt");
  OpenText("a.txt");
  Search();
  Click("cmdFile_2", {AsksForFile("Specify keywords file", two), OffersKeywords("Yes")});
  const std::string loaded = "Two keywords loaded from " + two + "\n\n";
  EXPECT_EQ(Text("txbOutput"), loaded + " harbour silent");
  EXPECT_EQ(Text("lblNumberOfWords"), "Two keywords");
  Click("optCreate");
  Click("optSearch", {OffersKeywords("Escape")});
  EXPECT_EQ(Text("txbOutput"), loaded);
  Click("cmdClearFile_2");
  EXPECT_EQ(Text("txbFile_2") + Text("txbOutput"), "");
  Click("cmdListWords", {WantsKeywords("Search")});
  Type("txbFile_2", missing, {Tells("Search words", "Keywords file not found:\n" + missing)});
  EXPECT_EQ(Text("txbFile_2"), "");
  Type("txbFile_2", one, {OffersKeywords("No")}, Qt::Key_Return);
  Click("cmdClearFile_2");
  EXPECT_EQ(Text("txbOutput"), "One keyword word loaded from " + one + "\n\n");
}

TEST_F(SearchMode, ChecksExtraKeywords) {
  OpenText("a.txt");
  Search();
  const Box twoPlus =
      Tells("Invalid Input", "A keyword cannot contain more then one '+'.", Icon::information);
  const Box comma =
      Tells("Invalid input", "The extra keywords textbox contains an inadmissable character: ,");
  for (const Qt::Key end : {Qt::Key_Return, Qt::Key_Tab}) {
    Type("txbExtraKeywords", " Harbour's  SHIP ", {}, end);
    EXPECT_EQ(Text("txbExtraKeywords"), "harbour  ship");
    Type("txbExtraKeywords", "ship,boat", {comma}, end);
    Type("txbExtraKeywords", "a+b+c", {twoPlus}, end);
    EXPECT_EQ(Text("txbExtraKeywords"), "a+b+c");
  }
  Click("cmdListWords", {twoPlus});
}

TEST_F(SearchMode, ListsAndWritesWhatIsFound) {
  OpenText("a.txt");
  Click("chkDisable");
  Search();
  const std::string results = folder_.Path("found.txt");
  Click("cmdFile_1", {AsksForFile("Specify output file", results)});
  EXPECT_EQ(Which("enabled", {"cmdViewFile"}), "");
  Type("txbExtraKeywords", "old s*+now", {}, Qt::Key_Return);
  Click("cmdListWords");
  EXPECT_TRUE(phases_.ends_with("Ordering by frequency, Getting search results, ")) << phases_;
  const std::string listing =
      "[old 2]\n"
      "... «old» harbour was silent now. The «old» harbour was silent \n"
      "... harbour was silent now. The «old» harbour was silent \n"
      "\n[silent 2]\n";
  EXPECT_EQ(Text("txbOutput"), listing);
  EXPECT_EQ(Text("lblNumberOfWords") + Text("lblKeywordsFound"), "Number of words: 2");
  const std::string file = folder_.Read("found.txt");
  EXPECT_TRUE(file.starts_with("Input file: " + Text("txbFile_0") + "\r\nSearch results file "));
  EXPECT_EQ(Text("lblSearchResultsFileSize"),
            "Search results filesize: " + std::to_string(file.size()) + " bytes");
  EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), "");
  Click("cmdViewFile");
  EXPECT_EQ(Control("txbText1").window()->windowTitle().toStdString(), results);
  Click("cmdClose");
  // Nowhere to write it is no fault here.
  Click("cmdClearFile_1");
  Click("cmdListWords");
  EXPECT_EQ(Text("txbOutput") + Text("lblSearchResultsFileSize"), listing);
  Type("txbExtraKeywords", "zebra");
  Click("cmdListWords");
  EXPECT_EQ(Text("txbOutput"), "No words satisfying the conditions were found.");
}

}  // namespace
}  // namespace quorvel
