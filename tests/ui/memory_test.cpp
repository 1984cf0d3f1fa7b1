#include <filesystem>

#include "support/made_texts.h"
#include "support/memory_limit.h"
#include "ui/window_test.h"

namespace quorvel {
namespace {

class ShortOfMemory : public WindowTest {
 protected:
  void SetUp() override {
    if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "memory cannot be limited here";
  }

  // Megabytes for Qt's own boxes and lists, and for what is taken before the piece that is too
  // much.
  static constexpr std::uint64_t LEFT = 80;

  static Box Tells(const std::string& path) {
    return quorvel::Tells("Quorvel", "There is not enough memory for\n" + path + ".");
  }

  // A file of zeros that is larger than that, but takes no place on the disk.
  [[nodiscard]] std::string WriteLarge(const char* name) const {
    constexpr std::uintmax_t LENGTH = std::uintmax_t{400} << 20U;
    std::string path = folder_.Write(name, "");
    std::filesystem::resize_file(path, LENGTH);
    return path;
  }
};

TEST_F(ShortOfMemory, ListsAgainWhenThereIsMore) {
  // A word has its contexts listed for each keyword that it matches.
  std::string text;
  for (int i = 10000; i < 40000; ++i) {
    text += "harbour " + Repeated("................... ", 8) + "........" + std::to_string(i) + " ";
  }
  const std::string input = OpenText("a.txt", text);
  Choose("cboContextSize", " 0");
  Search();
  Type("txbFile_1", folder_.Path("found.txt"));
  Type("txbExtraKeywords", "harbour h*r ha*r har*r harb*r harbo*r h*ur h*our");
  Click("cmdListWords");
  const auto files = folder_.Files();
  {
    const MemoryLimit limit(LEFT);
    Choose("cboContextSize", " 9", {Tells(input)});
  }
  EXPECT_TRUE(folder_.Files() == files);
  EXPECT_EQ(Text("txbOutput") + Counts(), "");
  Choose("cboContextSize", " 0");
  EXPECT_EQ(Text("txbOutput"), "");
  Click("cmdListWords");
  EXPECT_EQ(Text("txbOutput"), "harbour 30000\n");
}

TEST_F(ShortOfMemory, TakesTheNextFileWhenOneIsTooLarge) {
  const std::string input = OpenText("a.txt");
  const std::string large = WriteLarge("large.txt");
  {
    const MemoryLimit limit(LEFT);
    Drop(large, {Tells(large)});
    EXPECT_EQ(Text("txbOutput") + Counts(), "");
    Drop(folder_.Write("b.txt", HARBOUR));
  }
  List();
  EXPECT_TRUE(Text("txbOutput").starts_with(HARBOUR_ENTRY)) << Text("txbOutput");
  Search();
  {
    const MemoryLimit limit(LEFT);
    Type("txbFile_2", large, {Tells(large)});
    Drop(large, {Tells(large)});
  }
  Click("cmdClearFile_2");
  Drop(input);
  Click("optCreate");
  Click("cmdSetParameters");
  Type("txbStopWordsFile", large);
  {
    const MemoryLimit limit(LEFT);
    Click("cmdListStopWords", {Tells(large)});
    Click("cmdListWords", {Tells(large)});
  }
}

}  // namespace
}  // namespace quorvel
