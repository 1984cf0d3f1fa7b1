#include <QPushButton>
#include <QTest>
#include <QWindow>
#include <utility>

#include "ui/window_test.h"

namespace quorvel {
namespace {

using FirstConcordance = WindowTest;

TEST_F(FirstConcordance, FromTheFileDialogToTheViewer) {
  const std::string input = folder_.Write("a.txt", HARBOUR);
  const std::string output = folder_.Path("a.qvl.conc.txt");
  Open();
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
  EXPECT_TRUE(Text("txbOutput").starts_with(HARBOUR_ENTRY)) << Text("txbOutput");
  EXPECT_EQ(Text("lblNumberOfWords"), "Number of words: 3");
  EXPECT_EQ(Text("lblNumOccurrences"), "Number of occurrences: 6");
  EXPECT_EQ(Text("lblKeywordsFound"), "Number of keywords found: 7");
  EXPECT_EQ(Text("lblTimeElapsed") + Text("lblTotalNumOccurrences") + Text("lblTwirler"), " ");
  Click("cmdViewFile");
  EXPECT_EQ(Control("txbText1").window()->windowTitle().toStdString(), output);
  EXPECT_NE(Text("txbText1").find(HARBOUR_ENTRY), std::string::npos);
  // It is read anew when the user comes back to it.
  Activate(*window_);
  (void)folder_.Write("a.qvl.conc.txt", "ship");
  Activate(*Control("txbText1").window());
  ExpectSoon([this] { return Text("txbText1") == "ship"; });
}

// The key does not take the focus from the box as a click on the button does.
TEST_F(FirstConcordance, OfAPathThatWasTypedBeforeTheKeyForTheList) {
  OpenText("a.txt");
  Click("txbFile_0");
  Press(Qt::CTRL | Qt::Key_A);
  TypeText(*window_, folder_.Write("b.txt", "ship ahoy\r\n"));
  Press(Qt::Key_F5, {WritesConcordance()});
  EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), "");
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
  EXPECT_TRUE(Text("txbOutput").starts_with(HARBOUR_ENTRY)) << Text("txbOutput");
}

TEST_F(FirstConcordance, AsksWhenTheEncodingBoxWasChanged) {
  const std::string bytes = "\xEF\xBB\xBF\x63\x61\x66\xC3\xA9 one\r\n";
  OpenText("a.txt", bytes);
  Click("chkUTF8_0");
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
}

TEST_F(FirstConcordance, IsWrittenOnlyWhereTheUserWantsIt) {
  const std::string input = OpenText("a.txt");
  const std::string other = folder_.Write("o.txt", "old");
  const char* const title = "Specify concordance (output) file";
  Click("cmdFile_3", {AsksForFile(title, other)});
  Click("cmdFile_3", {{title, [](QWidget& dialog) {
                         const auto* name = dialog.findChild<QWidget*>("fileNameEdit");
                         EXPECT_EQ(name->property("text").toString(), "a.qvl.conc.txt");
                         dialog.close();
                       }}});
  Click("chkDisable");
  EXPECT_EQ(Text("cmdListWords"), "List words (no file)");
  Click("cmdListWords", {Tells("Quorvel", "Output to file is disabled.", Icon::information)});
  EXPECT_TRUE(Text("txbOutput").starts_with(HARBOUR_ENTRY)) << Text("txbOutput");
  Click("chkDisable");
  Click("chkWarnOnOverwrite");
  const std::string question =
      "A concordance file \n" + other + "\nalready exists.  Do you wish to overwrite it?";
  Click("cmdListWords", {Asks("File exists", question, "Yes", "No")});
  EXPECT_EQ(folder_.Read("o.txt"), "old");
  Click("chkDisable");
  Drop(input, {}, "txbFile_0");
  EXPECT_EQ(Which("checked", {"chkDisable"}), "");
}

}  // namespace
}  // namespace quorvel
