#include "ui/file_viewer.h"

#include <sys/stat.h>

#include <QPlainTextEdit>

#include "support/made_texts.h"
#include "support/scripted_conversation.h"
#include "ui/window_test.h"

namespace quorvel {

using FileViewer = WindowTest;

TEST(ViewerTexts, AreUtf8OrElseWindows1252AndCutWhereLong) {
  constexpr std::u16string_view BEFORE =
      u"NOTE: This file is too large to display entirely in this textbox.\r\nTo view the entire "
      u"contents of the file load it into NotePad,\r\nWordPad or some other text editor.\r\n\r\n";
  constexpr std::u16string_view BEHIND =
      u"\r\n\r\nNOTE: Entire contents of file have not been displayed.\r\n";
  const std::string smiles = Repeated("\xF0\x9F\x98\x80", 70000);
  const std::string middle = Repeated("a", VIEWER_BYTES - 6);
  const std::tuple<const char*, std::string, std::u16string_view, std::size_t> rows[] = {
      {"bytes", "\xE9\xC3\xA9", u"\u00E9\u00C3\u00A9", 3},
      {"just short enough", Repeated("a", 65529), u"a", 65529},
      {"just too long", Repeated("a", 65530), u"a", 65534},
      {"four bytes each, cut in two", "a" + smiles, u"a\U0001F600", 65533},
      {"three of the four cut", "aa" + smiles, u"aa\U0001F600", 65534},
      {"more than one has", "\xC3\xA9" + middle + "\xE9\xE9\xE9\xE9", u"\u00C3\u00A9", 65534},
  };
  for (const auto& [name, bytes, begins, shown] : rows) {
    std::u16string text = ViewerText(bytes.substr(0, VIEWER_BYTES));
    EXPECT_EQ(text.size(), shown) << name;
    if (shown > 65529) {
      EXPECT_TRUE(text.starts_with(BEFORE) && text.ends_with(BEHIND)) << name;
      text.erase(0, BEFORE.size());
    }
    EXPECT_TRUE(text.starts_with(begins)) << name;
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
  EXPECT_GE(text.viewport()->width(), 80 * text.fontMetrics().horizontalAdvance('W'));
  EXPECT_EQ(viewer.windowTitle(), "Caption");
  Activate(*window_);
  (void)folder_.Write("a.txt", "ship");
  Activate(viewer);
  ExpectSoon([this] { return Text("txbText1") == "ship"; });
  Click("cmdClose");
  EXPECT_FALSE(viewer.isVisible());
  EXPECT_EQ(view(folder_.Write("b.txt", "ahoy")), "ahoy");
  Activate(*window_);
  EXPECT_EQ(view(first), "ship");
  ExpectSoon([&viewer] { return HasTheKeys(viewer); });
  EXPECT_EQ(ui.Said(), "");
}

TEST_F(FileViewer, FindsInItsText) {
  Open();
  Press(Qt::Key_F1);
  QWidget& viewer = *Control("txbText1").window();
  ExpectSoon([&viewer] { return HasTheKeys(viewer); });
  Press(Qt::CTRL | Qt::Key_F);
  ExpectNames(viewer);
  TypeText(viewer, "1  your FIRST");
  EXPECT_EQ(Text("lblFindCount"), "2 found");
  Press(Qt::Key_Return);
  Press(Qt::Key_F3);
  EXPECT_EQ(Text("lblFindCount"), "2 of 2");
  Press(Qt::SHIFT | Qt::Key_Return);
  EXPECT_EQ(Text("lblFindCount"), "1 of 2");
  Press(Qt::Key_Escape);
  EXPECT_TRUE(viewer.isVisible() && Control("txbText1").hasFocus() && !Shown("lblFindCount"));
  ScriptedConversation ui;
  const std::string large = folder_.Write("a.txt", Repeated("line\r\n", 20000));
  Do("view", {}, [&] { ViewFile(*window_, large, "Caption", ui); });
  Press(Qt::Key_F3);
  Press(Qt::CTRL | Qt::Key_F);
  EXPECT_EQ(Text("lblFindCount"), "0 found in what is shown");
  for (const char* next : {"cmdFindNext", "cmdFindPrevious", "cmdFindClose", "cmdClose"}) {
    Press(Qt::Key_Tab);
    EXPECT_TRUE(Control(next).hasFocus()) << next;
  }
  Press(Qt::CTRL | Qt::Key_F);
  Press(Qt::Key_Escape);
  Press(Qt::Key_Escape);
  EXPECT_FALSE(viewer.isVisible());
}

TEST_F(FileViewer, TellsWhatCannotBeRead) {
  Open();
  ScriptedConversation ui;
  ASSERT_EQ(::mkfifo(folder_.Path("pipe").c_str(), 0600), 0);
  for (const char* name : {"pipe", "none"}) {
    ViewFile(*window_, folder_.Path(name), "Caption", ui);
  }
  EXPECT_EQ(ui.Said(folder_.Path("")),
            "Quorvel: File @pipe\nis a device or a pipe, not a file.\n"
            "Quorvel: File @none\ncannot be read: No such file or directory\n");
  EXPECT_FALSE(Shown("txbText1"));
  Press(Qt::Key_F1);
  EXPECT_EQ(Control("txbText1").window()->windowTitle(), "Help for Quorvel");
}

}  // namespace quorvel
