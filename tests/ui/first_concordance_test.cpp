#include <QPushButton>
#include <QTest>
#include <QWindow>
#include <utility>

#include "ui/window_test.h"

namespace quorvel {
namespace {

using FirstConcordance = WindowTest;

std::string OverwriteQuestion(const std::string& path) {
  return "A concordance file \n" + path + "\nalready exists.  Do you wish to overwrite it?";
}

TEST_F(FirstConcordance, FromTheFileDialogToTheViewer) {
  const std::string input = folder_.Write("a.txt", HARBOUR);
  const std::string output = folder_.Path("a.qvl.conc.txt");
  Open();
  EXPECT_EQ(Which("enabled", {"cmdListWords", "cmdViewFile"}), "cmdListWords ");
  Click("cmdFile_3", {Tells("Quorvel", "An input file must be specified before a concordance file.",
                            Icon::information)});
  Click("cmdFile_0", {AsksForFile("Specify input file", "")});
  EXPECT_EQ(Text("txbFile_0"), "");
  Click("cmdFile_0", {AsksForFile("Specify input file", input), LoadsStopWords()});
  EXPECT_EQ(std::exchange(phases_, ""), "Checking file, ");
  EXPECT_EQ(Text("txbFile_0"), input);
  EXPECT_EQ(Text("txbFile_3"), output);
  EXPECT_EQ(Text("lblInputFileSize") + Text("lblConcordanceFileSize"), "Input filesize: 66 bytes");
  ExpectSoon([this] { return Control("cmdListWords").hasFocus(); });
  List();
  EXPECT_EQ(phases_,
            "Reading file, Compacting spaces, Processing file, Sorting, Applying filters, "
            "Counting words, Ordering by frequency, Creating concordance, ");
  EXPECT_EQ(Text("txbOutput"), HARBOUR_LISTING);
  EXPECT_EQ(Text("lblNumberOfWords"), "Number of words: 3");
  EXPECT_EQ(Text("lblNumOccurrences"), "Number of occurrences: 6");
  EXPECT_EQ(Text("lblKeywordsFound"), "Number of keywords found: 7");
  const std::string size = std::to_string(folder_.Read("a.qvl.conc.txt").size());
  EXPECT_EQ(Text("lblConcordanceFileSize"), "Concordance filesize: " + size + " bytes");
  EXPECT_EQ(Text("lblTimeElapsed") + Text("lblTotalNumOccurrences") + Text("lblTwirler"), " ");
  Click("cmdViewFile");
  EXPECT_EQ(Control("txbText1").window()->windowTitle().toStdString(), output);
  EXPECT_TRUE(Text("txbText1").starts_with("Input file: " + input + "\nMD5 message digest"));
  EXPECT_TRUE(Text("txbText1").ends_with(HARBOUR_LISTING + std::string("\n")));
  // It is read anew when the user comes back to it.
  Activate(*window_);
  (void)folder_.Write("a.qvl.conc.txt", "ship");
  Activate(*Control("txbText1").window());
  ExpectSoon([this] { return Text("txbText1") == "ship"; });
  Click("cmdClose");
  EXPECT_FALSE(Shown("txbText1"));
}

TEST_F(FirstConcordance, TakesAnInputHoweverItComes) {
  const std::string input = folder_.Write("my text.htm", "<p>Old harbour, <b>old</b> ship</p>");
  const BoxList boxes = {LoadsStopWords()};
  const std::pair<const char*, std::function<void()>> ways[] = {
      {"typed and left", [&] { Type("txbFile_0", input, boxes); }},
      {"typed, Enter", [&] { Type("txbFile_0", " " + input + " ", boxes, Qt::Key_Return); }},
      {"dropped on the listing", [&] { Drop(input, boxes); }},
      {"dropped on its box", [&] { Drop(input, boxes, "txbFile_0"); }},
      {"dropped on another box", [&] { Drop(input, boxes, "txbFile_3"); }},
      {"named at the start", [&] { Open(input, boxes); }},
  };
  for (const auto& [name, takeInput] : ways) {
    SCOPED_TRACE(name);
    Open();
    takeInput();
    EXPECT_EQ(Text("txbFile_0"), input);
    EXPECT_EQ(Text("txbFile_3"), folder_.Path("my text.qvl.conc.txt"));
    List();
    EXPECT_TRUE(Text("txbOutput").starts_with("[harbour 1]\n")) << Text("txbOutput");
  }
}

// The key does not take the focus from the box as a click on the button does.
TEST_F(FirstConcordance, OfAPathThatWasTypedBeforeTheKeyForTheList) {
  OpenText("a.txt");
  List();
  const std::string first = folder_.Read("a.qvl.conc.txt");
  const std::string input = folder_.Write("b.txt", "ship ahoy\r\n");
  const std::string output = folder_.Write("b.qvl.conc.txt", "");
  Click("chkWarnOnOverwrite");
  Click("txbFile_0");
  Press(Qt::CTRL | Qt::Key_A);
  TypeText(*window_, input);
  Box inTheRun = Asks("File exists", OverwriteQuestion(output), "Yes", "Yes");
  std::string enabled;
  inTheRun.ready = [this, &enabled] {
    enabled = Which("enabled", {"optCreate", "txbFile_0", "cboWordOrder", "cmdListWords"});
    return true;
  };
  Press(Qt::Key_F5, {inTheRun, WritesConcordance()});
  EXPECT_EQ(enabled, "cmdListWords ");
  EXPECT_EQ(Text("txbFile_3"), output);
  EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), first);
  EXPECT_NE(folder_.Read("b.qvl.conc.txt"), "");
}

// A user lets go of the mouse when a box comes up, and the button below it never hears of that.
TEST_F(FirstConcordance, OfAPathThatWasTypedBeforeTheClickForTheList) {
  Open();
  Click("txbFile_0");
  TypeText(*window_, folder_.Write("a.txt", HARBOUR));
  auto& button = dynamic_cast<QPushButton&>(Control("cmdListWords"));
  const QPoint place = button.mapTo(window_.get(), button.rect().center());
  bool released = false;
  const auto release = [this, place, &released] {
    if (std::exchange(released, true)) return true;
    QTest::mouseRelease(window_->windowHandle(), Qt::LeftButton, {}, place);
    return true;
  };
  Box box = LoadsStopWords();
  box.ready = release;
  Do("press and release", {box, WritesConcordance()}, [this, place, &release] {
    QTest::mousePress(window_->windowHandle(), Qt::LeftButton, {}, place);
    release();
  });
  EXPECT_FALSE(button.isDown());
  EXPECT_EQ(Text("txbOutput"), HARBOUR_LISTING);
}

TEST_F(FirstConcordance, AsksWhenTheEncodingBoxWasChanged) {
  const std::string bytes = "\xEF\xBB\xBF\x63\x61\x66\xC3\xA9 one\r\n";
  Open(folder_.Write("a.txt", bytes), {LoadsStopWords()});
  Click("chkUTF8_0");
  EXPECT_EQ(Which("checked", {"chkUTF8_0"}), "");
  const auto asks = [](const char* button) {
    return Asks("UTF-8 or ANSI file?",
                "This file seems to be UTF-8 encoded.\n"
                "Click 'Yes' to scan it as UTF-8 encoded or 'No' to scan it as ANSI.",
                "No", button, "Cancel,Yes,No");
  };
  Click("cmdListWords", {asks("Escape")});
  EXPECT_EQ(Which("checked", {"chkUTF8_0"}) + Text("txbOutput"), "");
  Click("cmdListWords", {asks("Yes"), WritesConcordance()});
  EXPECT_EQ(Which("checked", {"chkUTF8_0"}), "chkUTF8_0 ");
  EXPECT_TRUE(Text("txbOutput").starts_with("[café 1]\n")) << Text("txbOutput");
}

TEST_F(FirstConcordance, IsWrittenOnlyWhereTheUserWantsIt) {
  const std::string input = OpenText("a.txt");
  const std::string other = folder_.Write("o.txt", "old");
  const char* const title = "Specify concordance (output) file";
  Click("cmdFile_3", {AsksForFile(title, other)});
  EXPECT_EQ(Text("txbFile_3"), other);
  Click("cmdFile_3", {{title, [](QWidget& dialog) {
                         const auto* name = dialog.findChild<QWidget*>("fileNameEdit");
                         EXPECT_EQ(name->property("text").toString(), "a.qvl.conc.txt");
                         dialog.close();
                       }}});
  Click("chkDisable");
  EXPECT_EQ(Text("cmdListWords"), "List words (no file)");
  Click("cmdListWords", {Tells("Quorvel", "Output to file is disabled.", Icon::information)});
  EXPECT_EQ(Text("txbOutput"), HARBOUR_LISTING);
  Click("chkDisable");
  Click("chkWarnOnOverwrite");
  const std::string question = OverwriteQuestion(other);
  Click("cmdListWords", {Asks("File exists", question, "Yes", "No")});
  EXPECT_EQ(folder_.Read("o.txt"), "old");
  Click("cmdListWords", {Asks("File exists", question, "Yes", "Yes"), WritesConcordance()});
  EXPECT_NE(folder_.Read("o.txt"), "old");
  Click("chkDisable");
  Drop(input);
  EXPECT_EQ(Which("checked", {"chkDisable"}), "");
  EXPECT_EQ(Text("txbFile_3"), folder_.Path("a.qvl.conc.txt"));
}

// What the listing has and the box cannot hold is in the file alone.
TEST_F(FirstConcordance, ShowsTheBeginningOfALongListing) {
  std::string text;
  for (int i = 0; i < 700; ++i) {
    for (int number = i; number > 0; number /= 26) text += static_cast<char>('a' + number % 26);
    text += "long ship\r\n";
  }
  OpenText("a.txt", text);
  List();
  const std::string shown = Text("txbOutput");
  const QString characters = QString::fromStdString(shown);
  EXPECT_TRUE(shown.ends_with(' '));
  EXPECT_LE(characters.size() + characters.count('\n'), 65000);  // CR LF in the listing
  EXPECT_GT(folder_.Read("a.qvl.conc.txt").size(), 65000U);
  Click("cmdClearFile_3");
  Click("cmdListWords",
        {Tells("The concordance is too large for the textbox.",
               "To get the entire concordance, specify a concordance (output) file.",
               Icon::information)});
  EXPECT_EQ(Text("txbOutput"), shown);
}

}  // namespace
}  // namespace quorvel
