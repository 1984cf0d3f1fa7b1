#include <QApplication>
#include <QTest>
#include <QWindow>

#include "ui/window_test.h"

namespace quorvel {
namespace {

class Typing : public WindowTest {
 protected:
  static Box Refuses() {
    return Tells("Invalid input",
                 "The extra keywords textbox contains an inadmissable character: %");
  }

  // Types into a text box, and stays in it.
  void TypeInto(const std::string& control, const std::string& text) {
    Click(control);
    Press(Qt::CTRL | Qt::Key_A);
    TypeText(*Control(control).window(), text);
  }
};

TEST_F(Typing, OfAFaultIsToldOnce) {
  OpenText("a.txt");
  Search();
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"click", [this] { Click("cmdListWords", {Refuses()}); }},
      {"F5", [this] { Press(Qt::Key_F5, {Refuses()}); }},
      {"Alt+S", [this] { Press(Qt::ALT | Qt::Key_S, {Refuses()}); }},
  };
  for (const auto& [name, list] : rows) {
    SCOPED_TRACE(name);
    TypeInto("txbExtraKeywords", "a%");
    list();
    // What stays there is told by every run that it keeps from beginning.
    Click("cmdListWords", {Refuses()});
    EXPECT_EQ(Text("txbExtraKeywords") + Text("txbOutput"), "a%");
  }
}

TEST_F(Typing, OfExtraKeywordsEndsWithEnter) {
  OpenText("a.txt");
  Search();
  Type("txbExtraKeywords", "OLD%", {Refuses()}, Qt::Key_Return);
  EXPECT_EQ(Text("txbExtraKeywords"), "old%");
  ExpectSoon([this] { return Control("txbExtraKeywords").hasFocus(); });
  Press(Qt::Key_Enter, {Refuses()});
  ExpectSoon([this] { return Control("txbExtraKeywords").hasFocus(); });
  Press(Qt::Key_Backspace);
  Press(Qt::Key_Enter);
  ExpectSoon([this] { return Control("cmdListWords").hasFocus(); });
  Press(Qt::Key_Enter);
  EXPECT_EQ(Text("txbOutput").substr(0, 8), "[old 2]\n");
}

TEST_F(Typing, ComesBackAfterClear) {
  const std::string input = OpenText("a.txt");
  const std::string output = folder_.Path("out.txt");
  const std::string keywords = folder_.Write("k.txt", "ship\r\nold\r\n");
  const std::string own = folder_.Write("own.txt", "silent now\r\n");
  const auto bringBack = [this](const std::string& box, const BoxList& boxes) {
    EXPECT_EQ(Text(box), "");
    Click(box);
    Press(Qt::CTRL | Qt::Key_Z);
    Do(box, boxes,
       [] { QTest::keyClick(QApplication::activeWindow()->windowHandle(), Qt::Key_Tab); });
  };
  Click("cmdClearFile_0");
  EXPECT_EQ(Text("lblInputFileSize"), "");
  bringBack("txbFile_0", {});
  EXPECT_EQ(Text("txbFile_0"), input);
  EXPECT_EQ(Text("lblInputFileSize"), "Input filesize: 66 bytes");
  Type("txbFile_3", output);
  Click("cmdClearFile_3");
  bringBack("txbFile_3", {});
  List();
  EXPECT_NE(folder_.Read("out.txt"), "");
  Search();
  Type("txbFile_2", keywords, {OffersKeywords("No")});
  Click("cmdClearFile_2");
  bringBack("txbFile_2", {OffersKeywords("No")});
  EXPECT_EQ(Text("txbFile_2"), keywords);
  Click("cmdClearFile_2");
  Type("txbExtraKeywords", "silent");
  Click("cmdClearExtraKeywords");
  Click("cmdListWords", {WantsKeywords()});
  bringBack("txbExtraKeywords", {});
  Click("cmdListWords");
  EXPECT_EQ(Text("txbOutput").substr(0, 9), "[silent 2");
  Click("cmdSetParameters");
  Type("txbStopWordsFile", own);
  Click("cmdClearStopWordsFile");
  bringBack("txbStopWordsFile", {});
  Click("cmdListStopWords",
        {Tells("Stop words", "There are 2 stop words.\n\nnow\nsilent\n", Icon::none)});
}

}  // namespace
}  // namespace quorvel
