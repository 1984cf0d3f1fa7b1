#include <sys/stat.h>

#include "ui/window_test.h"

namespace quorvel {
namespace {

using Index = WindowTest;

TEST_F(Index, IsWrittenAndOfferedWithTheInput) {
  const std::string input = OpenText("a.txt");
  EXPECT_EQ(Text("lblIndexFile"), "Index file:");
  Click("chkCreateIndexFile");
  List();
  const std::string size = std::to_string(folder_.Read("a.qvl.ndx").size());
  EXPECT_EQ(Text("lblIndexFile"), "Index file: " + folder_.Path("a.qvl.ndx"));
  EXPECT_EQ(Text("lblIndexFileSize"), "Index filesize: " + size + " bytes");
  for (const char* button : {"Yes", "No"}) {
    SCOPED_TRACE(button);
    Type("txbFile_0", " " + input + " ", {OffersIndex(folder_.Read("a.qvl.ndx"), button)},
         Qt::Key_Return);
    EXPECT_EQ(Text("txbFile_0"), input);
    phases_.clear();
    List();
    EXPECT_TRUE(Text("txbOutput").starts_with(HARBOUR_ENTRY)) << Text("txbOutput");
    EXPECT_EQ(phases_.find("Sorting") == std::string::npos, button == std::string("Yes"));
  }
}

TEST_F(Index, ThatDoesNotFitIsTriedBeforeAnythingIsShown) {
  const std::string input =
      OpenText("a.html", "<!DOCTYPE html><head></head><body>old <ul><li>ship</ul> harbour.");
  Click("chkCreateIndexFile");
  List();
  Click("cmdSetParameters");
  Click("chkIgnoreLists");
  Type("txbFile_0", input, {OffersIndex(folder_.Read("a.qvl.ndx"), "Yes")});
  phases_.clear();
  Click("cmdListWords", {Tells("Bad index file",
                               "The index file was not made from this input file as it is now,\n"
                               "so the input file will be scanned.",
                               Icon::information),
                         WritesConcordance()});
  EXPECT_TRUE(
      phases_.ends_with("Processing file, Sorting, Applying filters, Counting words, "
                        "Ordering by frequency, Creating concordance, "))
      << phases_;
  EXPECT_EQ(phases_.find("Applying"), phases_.rfind("Applying")) << phases_;
  EXPECT_TRUE(Text("txbOutput").starts_with("[harbour 1]")) << Text("txbOutput");
}

TEST_F(Index, ThatIsAPipeIsNone) {
  ASSERT_EQ(::mkfifo(folder_.Path("a.qvl.ndx").c_str(), 0600), 0);
  (void)OpenText("a.txt");
  EXPECT_EQ(Text("lblIndexFile") + Text("lblIndexFileSize"), "Index file:");
  Click("chkCreateIndexFile");
  List();
  EXPECT_TRUE(Text("txbOutput").starts_with(HARBOUR_ENTRY)) << Text("txbOutput");
}

TEST_F(Index, OfMoreEntriesThanItSaysGivesAsManyAsItSays) {
  const std::string input = OpenText("a.txt");
  Click("chkCreateIndexFile");
  List();
  std::string index = folder_.Read("a.qvl.ndx");
  const std::size_t count = index.find("\r\n 7 \r\n");
  ASSERT_NE(count, std::string::npos) << index;
  index.replace(count, 5, "\r\n 6 ");
  (void)folder_.Write("a.qvl.ndx", index);
  Type("txbFile_0", input, {OffersIndex(index, "Yes")});
  Click("chkCreateIndexFile");
  phases_.clear();
  List();
  EXPECT_EQ(phases_.find("Sorting"), std::string::npos) << phases_;
  EXPECT_EQ(Text("lblKeywordsFound"), "Number of keywords found: 6");
}

}  // namespace
}  // namespace quorvel
