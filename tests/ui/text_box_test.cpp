#include "ui/text_box.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <string>

#include "ui/text.h"

namespace quorvel {
namespace {

TEST(TextBox, BringsBackWhatWasReplaced) {
  QLineEdit box;
  box.insert("first");
  for (const char* text : {"second", "second", "", "third"}) {
    box.setModified(true);
    ReplaceText(box, text);
    EXPECT_EQ(box.text(), text);
    EXPECT_FALSE(box.isModified()) << text;
  }
  std::string undone;
  for (; box.isUndoAvailable(); box.undo()) undone += box.text().toStdString() + ", ";
  EXPECT_EQ(undone.substr(0, undone.find("first")), "third, second, ");
}

TEST(TextBox, KeepsTheBytesOfAPathThatItCannotShow) {
  const std::string name = "/tmp/caf\xE9.txt";
  std::string path = name;
  TakePath(ShownPath(name), path);
  EXPECT_EQ(path, name);
  TakePath("/tmp/b.txt", path);
  EXPECT_EQ(path, "/tmp/b.txt");
  EXPECT_EQ(ShownText("\xC3\xA9\r\nb"), QString::fromUtf16(u"\u00E9\nb"));
}

}  // namespace
}  // namespace quorvel
