#include "ui/file_viewer.h"

#include <sys/stat.h>

#include <QFontMetrics>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTest>

#include "support/made_texts.h"
#include "support/scripted_conversation.h"
#include "ui/window_test.h"

namespace quorvel {
namespace {

class FileViewer : public WindowTest {};

TEST(ViewerTexts, AreUtf8OrElseWindows1252) {
  const std::pair<std::string, std::u16string> rows[] = {
      {"", u""},
      {"\xEF\xBB\xBF\xC3\xA9\r\n", u"\u00E9\r\n"},
      {"\xE9\xC3\xA9", u"\u00E9\u00C3\u00A9"},
      {"a\xC3", u"a\u00C3"}};
  for (const auto& [bytes, text] : rows) EXPECT_TRUE(ViewerText(bytes) == text) << bytes;
}

TEST(ViewerTexts, AreCutWhereTheyAreLong) {
  constexpr std::u16string_view BEFORE =
      u"NOTE: This file is too large to display entirely in this textbox.\r\nTo view the entire "
      u"contents of the file load it into NotePad,\r\nWordPad or some other text editor.\r\n\r\n";
  constexpr std::u16string_view BEHIND =
      u"\r\n\r\nNOTE: Entire contents of file have not been displayed.\r\n";
  constexpr const char* SMILE = "\xF0\x9F\x98\x80";
  const auto start = [](const std::string& bytes) { return bytes.substr(0, VIEWER_BYTES); };
  const std::string middle = Repeated("a", VIEWER_BYTES - 6);
  const struct {
    const char* name;
    std::string bytes;
    std::u16string_view begins;
    std::size_t shown;
  } rows[] = {
      {"just short enough", Repeated("a", 65529), u"a", 65529},
      {"just too long", Repeated("a", 65530), u"a", 65534},
      {"two bytes each", start(Repeated("\xC3\xA9", 200000)), u"\u00E9", 65534},
      {"three, with a mark", start("\xEF\xBB\xBF" + Repeated("\xE2\x82\xAC", 65531)), u"\u20AC",
       65534},
      {"four", start(Repeated(SMILE, 70000)), u"\U0001F600", 65534},
      {"four, one further", start("a" + Repeated(SMILE, 70000)), u"a\U0001F600", 65533},
      {"four, three of them cut", start("aa" + Repeated(SMILE, 70000)), u"aa\U0001F600", 65534},
      {"a last character without an end", "\xC3\xA9" + middle + "a\xE2\x82\xAC", u"\u00E9", 65534},
      {"more than one has", "\xC3\xA9" + middle + "\xE9\xE9\xE9\xE9", u"\u00C3\u00A9", 65534},
  };
  for (const auto& row : rows) {
    std::u16string text = ViewerText(row.bytes);
    EXPECT_EQ(text.size(), row.shown) << row.name;
    EXPECT_TRUE(QString::fromStdU16String(text).isValidUtf16()) << row.name;
    if (row.shown > 65529) {
      EXPECT_TRUE(text.starts_with(BEFORE) && text.ends_with(BEHIND)) << row.name;
      text.erase(0, BEFORE.size());
    }
    EXPECT_TRUE(text.starts_with(row.begins)) << row.name;
  }
}

TEST_F(FileViewer, IsOneAndShowsTheFileAsItIs) {
  Open();
  ScriptedConversation ui;
  const auto view = [&](const std::string& path) {
    Do("view", {}, [&] { ViewFile(*window_, path, "Caption", ui); });
    return Text("txbText1").substr(0, 20);
  };
  const std::string first = folder_.Write("a.txt", Repeated("line\r\n", 1000));
  EXPECT_EQ(view(first), "line\nline\nline\nline\n");
  auto& text = dynamic_cast<QPlainTextEdit&>(Control("txbText1"));
  QWidget& viewer = *text.window();
  const QFontMetrics metrics(text.font());
  EXPECT_EQ(metrics.horizontalAdvance('i'), metrics.horizontalAdvance('W'));
  EXPECT_GE(text.viewport()->width(), 80 * metrics.horizontalAdvance('0'));
  EXPECT_LE(viewer.height(), viewer.screen()->availableSize().height() * 3 / 4);
  EXPECT_TRUE(text.isReadOnly());
  EXPECT_EQ(viewer.windowTitle(), "Caption");
  // A place in a file that has not changed is kept, a file that has changed is read anew.
  text.moveCursor(QTextCursor::End);
  const int end = text.textCursor().position();
  Activate(*window_);
  Activate(viewer);
  EXPECT_EQ(text.textCursor().position(), end);
  Activate(*window_);
  (void)folder_.Write("a.txt", "ship");
  EXPECT_EQ(Text("txbText1").size(), 5000U);
  Activate(viewer);
  ExpectSoon([this] { return Text("txbText1") == "ship"; });
  // The next file takes its place, and the keys with it.
  Click("cmdClose");
  EXPECT_FALSE(viewer.isVisible());
  EXPECT_EQ(view(folder_.Write("b.txt", "ahoy")), "ahoy");
  EXPECT_EQ(&viewer, Control("txbText1").window());
  EXPECT_EQ(viewer.focusWidget(), &text);
  Activate(*window_);
  EXPECT_EQ(view(first), "ship");
  ExpectSoon([&viewer] { return HasTheKeys(viewer); });
  EXPECT_EQ(ui.Said(), "");
}

TEST_F(FileViewer, TellsWhatCannotBeRead) {
  Open();
  ScriptedConversation ui;
  ASSERT_EQ(::mkfifo(folder_.Path("pipe").c_str(), 0600), 0);
  ViewFile(*window_, folder_.Path("pipe"), "Caption", ui);
  EXPECT_EQ(ui.Said(folder_.Path("pipe")),
            "Quorvel: File @\r\nis a device or a pipe, not a file.\n");
  ui.questions.clear();
  ViewFile(*window_, folder_.Path("none"), "Caption", ui);
  EXPECT_EQ(ui.Said(folder_.Path("none")),
            "Quorvel: File @\r\ncannot be read: No such file or directory\n");
  EXPECT_FALSE(Shown("txbText1"));
  Press(Qt::Key_F1);
  EXPECT_EQ(Control("txbText1").window()->windowTitle(), "Help for Quorvel");
  EXPECT_GT(Text("txbText1").size(), 1000U);
}

}  // namespace
}  // namespace quorvel
