#include "ui/window_test.h"

namespace quorvel {
namespace {

class Index : public WindowTest {
 protected:
  // The question that comes when the input is set again.
  [[nodiscard]] Box OffersIndex(const char* button) const {
    constexpr std::size_t DATE_LINE = 34;
    const std::string date = folder_.Read("a.qvl.ndx").substr(DATE_LINE, 16);
    return Asks("Index file found",
                "An index file for this input file exists, created,\nnamely, " + date +
                    ".\n\nDo you wish to use it?",
                "Yes", button);
  }

  // Whether the words came from the index; the listing is the same.
  bool ListsFromIndex() {
    phases_.clear();
    List();
    EXPECT_EQ(Text("txbOutput"), HARBOUR_LISTING);
    return phases_.find("Sorting") == std::string::npos;
  }
};

TEST_F(Index, IsWrittenAndOfferedWithTheInput) {
  const std::string input = OpenText("a.txt");
  EXPECT_EQ(Text("lblIndexFile"), "Index file:");
  Click("chkCreateIndexFile");
  EXPECT_FALSE(ListsFromIndex());
  const std::string size = std::to_string(folder_.Read("a.qvl.ndx").size());
  EXPECT_EQ(Text("lblIndexFile"), "Index file: " + folder_.Path("a.qvl.ndx"));
  EXPECT_EQ(Text("lblIndexFileSize"), "Index filesize: " + size + " bytes");
  Type("txbFile_0", input, {OffersIndex("Yes")}, Qt::Key_Return);
  EXPECT_TRUE(ListsFromIndex());
  Choose("cboWordOrder", "by frequency", {WritesConcordance()});
  EXPECT_EQ(Text("txbOutput"), HARBOUR_LISTING);
  Open(input, {LoadsStopWords(), OffersIndex("No")});
  EXPECT_FALSE(ListsFromIndex());
}

TEST_F(Index, OfAnInputThatHasChangedIsNotUsed) {
  const Box bad = Tells("Bad index file",
                        "The index file was not made from this input file as it is now,\n"
                        "so the input file will be scanned.",
                        Icon::information);
  const std::string input = OpenText("a.txt");
  Click("chkCreateIndexFile");
  List();
  Type("txbFile_0", input, {OffersIndex("Yes")});
  (void)folder_.Write("a.txt", "ship ahoy\r\n");
  Click("cmdListWords", {bad, WritesConcordance()});
  EXPECT_TRUE(Text("txbOutput").starts_with("[ahoy 1]\n")) << Text("txbOutput");
  (void)folder_.Write("a.txt", HARBOUR);
  Type("txbFile_0", input, {bad});
  EXPECT_FALSE(ListsFromIndex());
}

}  // namespace
}  // namespace quorvel
