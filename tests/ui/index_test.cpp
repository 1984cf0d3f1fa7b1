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
    constexpr std::size_t DATE_LINE = 34;
    const std::string date = folder_.Read("a.qvl.ndx").substr(DATE_LINE, 16);
    Type("txbFile_0", " " + input + " ",
         {Asks("Index file found",
               "An index file for this input file exists, created,\nnamely, " + date +
                   ".\n\nDo you wish to use it?",
               "Yes", button)},
         Qt::Key_Return);
    EXPECT_EQ(Text("txbFile_0"), input);
    phases_.clear();
    List();
    EXPECT_TRUE(Text("txbOutput").starts_with(HARBOUR_ENTRY)) << Text("txbOutput");
    EXPECT_EQ(phases_.find("Sorting") == std::string::npos, button == std::string("Yes"));
  }
}

}  // namespace
}  // namespace quorvel
