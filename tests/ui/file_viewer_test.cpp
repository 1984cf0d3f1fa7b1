#include "ui/file_viewer.h"

#include <gtest/gtest.h>

#include "support/made_texts.h"

namespace quorvel {
namespace {

TEST(FileViewer, CutsALongText) {
  const struct {
    const char* name;
    const char* character;
    int count;
    std::size_t shown;
  } rows[] = {
      {"just short enough", "a", 65529, 65529},
      {"just too long", "a", 65530, 65534},
      {"two bytes, too long", "\xC3\xA9", 200000, 65534},
  };
  for (const auto& row : rows) {
    const std::string bytes = Repeated(row.character, row.count).substr(0, VIEWER_BYTES);
    const std::u16string text = ViewerText(bytes);
    const bool cut = row.shown > 65529;
    EXPECT_EQ(text.size(), row.shown) << row.name;
    EXPECT_EQ(text.starts_with(u"NOTE: This file is too large to display entirely in this "
                               u"textbox.\r\nTo view the entire contents of the file load it "
                               u"into NotePad,\r\nWordPad or some other text editor.\r\n\r\n"),
              cut)
        << row.name;
    EXPECT_EQ(text.ends_with(u"\r\n\r\nNOTE: Entire contents of file have not been displayed.\r\n"),
              cut)
        << row.name;
  }
}

}  // namespace
}  // namespace quorvel
