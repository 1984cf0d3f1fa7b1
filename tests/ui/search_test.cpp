#include "ui/window_test.h"

namespace quorvel {
namespace {

using SearchMode = WindowTest;

TEST_F(SearchMode, IsLeftAgainWithoutAnInput) {
  Open();
  Click("optSearch", {Tells("Quorvel", "Input file not specified.")});
  EXPECT_EQ(Which("checked", {"optCreate", "optSearch"}), "optCreate ");
}

TEST_F(SearchMode, HasControlsOfItsOwn) {
  const Names names = {"txbFile_1", "txbFile_2",          "txbExtraKeywords",
                       "txbFile_3", "chkCreateIndexFile", "cmdClearExtraKeywords"};
  OpenText("a.txt");
  Search();
  EXPECT_EQ(Text("cmdListWords"), "Search");
  EXPECT_EQ(Which("enabled", names), "txbFile_1 txbFile_2 txbExtraKeywords ");
  Type("txbExtraKeywords", " Harbour's  SHIP ");
  EXPECT_EQ(Text("txbExtraKeywords"), "harbour  ship");
  Click("cmdClearExtraKeywords");
  EXPECT_EQ(Text("txbExtraKeywords"), "");
  ExpectSoon([this] { return Which("enabled", {"cmdClearExtraKeywords"}).empty(); });
  Click("optCreate");
  EXPECT_EQ(Text("cmdListWords"), "List words");
  EXPECT_EQ(Which("enabled", names), "txbFile_3 chkCreateIndexFile ");
}

TEST_F(SearchMode, ReadsAKeywordsFile) {
  const std::string two = folder_.Write("two.txt", "silent colou?r\r\n/* no */\r\nHarbours\r\n");
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
  Click("cmdListWords", {WantsKeywords()});
  Type("txbFile_2", missing, {Tells("Search words", "Keywords file not found:\n" + missing)});
  EXPECT_EQ(Text("txbFile_2"), "");
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
  EXPECT_TRUE(Text("txbOutput").ends_with("\n\n[silent 2]\n")) << Text("txbOutput");
  EXPECT_EQ(Text("lblNumberOfWords") + Text("lblKeywordsFound"), "Number of words: 2");
  EXPECT_EQ(
      Text("lblSearchResultsFileSize"),
      "Search results filesize: " + std::to_string(folder_.Read("found.txt").size()) + " bytes");
  EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), "");
  Click("chkWarnOnOverwrite");
  Choose("cboContextSize", " 4",
         {Asks("File exists",
               "A search results file \n" + results +
                   "\nalready exists.  Do you wish to overwrite it?",
               "Yes", "No")});
  EXPECT_EQ(Text("lblSearchResultsFileSize"), "");
  Click("cmdViewFile");
  EXPECT_EQ(Control("txbText1").window()->windowTitle().toStdString(), results);
}

}  // namespace
}  // namespace quorvel
