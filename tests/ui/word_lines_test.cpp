#include "ui/word_lines.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QImage>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTextBlock>
#include <QWindow>
#include <set>

#include "support/made_texts.h"
#include "ui/window_test.h"

namespace quorvel {
namespace {

class WordsAndLines : public WindowTest {
 protected:
  // Lists a text and clicks on the tab, so that typed text goes to the box for finding a word.
  void OpenTab(const std::string& text = HARBOUR) {
    OpenText("a.txt", text);
    List();
    auto& tabs = dynamic_cast<QTabWidget&>(Control("tabResults"));
    const QPoint tab = tabs.tabBar()->mapTo(window_.get(), tabs.tabBar()->tabRect(1).center());
    QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, tab);
    QCoreApplication::processEvents();
  }

  QTableView& Table(const char* name) { return dynamic_cast<QTableView&>(Control(name)); }

  // The rows of a table, or its selected rows, with "|" between the columns. Of a context only the
  // characters next to the match are returned.
  std::string Rows(const char* name, bool chosenOnly = false) {
    QTableView& table = Table(name);
    std::string rows;
    for (int row = 0; row < table.model()->rowCount(); ++row) {
      if (chosenOnly && !table.selectionModel()->isRowSelected(row)) continue;
      QString shown;
      for (int column = 0; column < table.model()->columnCount(); ++column) {
        if (table.isColumnHidden(column)) continue;
        const QString text = table.model()->index(row, column).data().toString();
        const bool isLines = std::string_view(name) == "tblLines";
        shown += isLines && column == 0   ? text.right(8) + "|"
                 : isLines && column == 2 ? text.left(8) + "|"
                                          : text + "|";
      }
      rows += shown.toStdString() + "\n";
    }
    return rows;
  }

  void ClickRow(const char* name, int row, Qt::KeyboardModifiers keys = {},
                Qt::MouseButton button = Qt::LeftButton) {
    QCoreApplication::processEvents();  // the layout of the window is updated
    QTableView& table = Table(name);
    const QRect cell = table.visualRect(table.model()->index(row, 1));
    const QPoint place = table.viewport()->mapTo(window_.get(), cell.center());
    Do(name, {}, [&] { QTest::mouseClick(window_->windowHandle(), button, keys, place); });
  }

  // Acts, which opens a menu, and chooses the entry with this text by keys.
  void ChooseFromMenu(const QString& entry, const BoxList& boxes,
                      const std::function<void()>& act) {
    QTimer::singleShot(0, window_.get(), [this, entry] { PressEntry(entry); });
    Do(entry.toStdString(), boxes, act);
  }

  void PressEntry(const QString& entry) {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) {
      return QTimer::singleShot(10, window_.get(), [this, entry] { PressEntry(entry); });
    }
    for (QAction* action : menu->actions()) {
      QTest::keyClick(menu, Qt::Key_Down);
      if (action->text().remove('&') == entry) {
        QTest::keyClick(menu, Qt::Key_Return);
        return;
      }
    }
    ADD_FAILURE() << "no entry " << entry.toStdString();
    menu->close();
  }

  // Acts once, while lines are being made.
  void WhileMakingLines(const std::function<void()>& act) {
    QTimer::singleShot(0, window_.get(), [this, act] {
      if (Text("lblLineCount") != "...") return WhileMakingLines(act);
      ++acted_;
      act();
    });
  }

  int acted_ = 0;

  // The line of the document with the mark, which is put in brackets.
  std::string Marked() {
    const auto& pane = dynamic_cast<QPlainTextEdit&>(Control("txbDocument"));
    if (pane.extraSelections().isEmpty()) return "";
    const QTextCursor mark = pane.extraSelections().front().cursor;
    QString line = mark.block().text();
    line.insert(mark.selectionEnd() - mark.block().position(), ']');
    line.insert(mark.selectionStart() - mark.block().position(), '[');
    return line.toStdString();
  }
};

constexpr const char* SEAS =
    "The sea, the ship and the old harbour.\r\nShips on the Sea; the sea is wide.\r\n"
    "Over all seas the ships go home.\r\n";

TEST_F(WordsAndLines, ShowsWhatIsChosen) {
  OpenTab(SEAS);
  EXPECT_EQ(Rows("tblWords"),
            "harbour|1||\nhome|1||\nold|1||\nSea|1||\nsea|2||\nseas|1||\nShip|1||\n"
            "ship|2||\nwide|1||\n");
  EXPECT_EQ(Rows("tblWords", true), "harbour|1||\n");
  EXPECT_EQ(Marked(), "The sea, the ship and the old [harbour].");
  // The lines of two words, in the order of their places. Each line marks its place in the
  // document.
  TypeText(*window_, "sEa");
  EXPECT_EQ(Rows("tblWords", true), "Sea|1||\nsea|2||\n");
  Press(Qt::Key_Return);
  Press(Qt::Key_Down);
  EXPECT_EQ(Rows("tblWords", true), "sea|2||\n");
  Press(Qt::Key_Up);
  Press(Qt::SHIFT | Qt::Key_Down);
  EXPECT_EQ(Rows("tblLines", true), " on the |Sea|; the se|\n");
  EXPECT_EQ(Rows("tblLines"),
            "The |sea|, the sh|\n on the |Sea|; the se|\nea; the |sea| is wide|\n");
  EXPECT_EQ(Text("lblLineCount"), "3 lines");
  EXPECT_EQ(Marked(), "Ships on the [Sea]; the sea is wide.");
  Press(Qt::CTRL | Qt::Key_Down);
  Press(Qt::CTRL | Qt::Key_Down);
  EXPECT_EQ(Marked(), "Ships on the Sea; the [sea] is wide.");
  Press(Qt::CTRL | Qt::Key_Up);
  EXPECT_EQ(Rows("tblLines", true), " on the |Sea|; the se|\n");
  // Chosen by a pattern.
  Type("txbFindWord", "s*s");
  EXPECT_EQ(Rows("tblWords"), "seas|1||\n");
  Type("txbFindWord", "");
  EXPECT_EQ(Rows("tblWords", true), "seas|1||\n");
  // A double-click in the document shows the lines of the word.
  auto& pane = dynamic_cast<QPlainTextEdit&>(Control("txbDocument"));
  const int word = static_cast<int>(pane.toPlainText().indexOf("wide")) + 1;
  QTextCursor cursor(pane.document());
  cursor.setPosition(word);
  const QPoint place = pane.viewport()->mapTo(window_.get(), pane.cursorRect(cursor).center());
  QTest::mouseDClick(window_->windowHandle(), Qt::LeftButton, {}, place);
  EXPECT_EQ(Rows("tblWords", true), "wide|1||\n");
  EXPECT_EQ(Marked(), "Ships on the Sea; the sea is [wide].");
}

TEST_F(WordsAndLines, OrdersWordsByAnyColumn) {
  OpenTab("Ship on the sea: sea of us, harbour at the sea.\r\nShip, old ship\r\n");
  ClickRow("tblWords", 2);
  const std::pair<int, const char*> rows[] = {{0, "harbour old sea Ship ship "},
                                              {0, "ship Ship sea old harbour "},
                                              {1, "harbour old ship Ship sea "},
                                              {1, "sea Ship harbour old ship "},
                                              {2, "Ship sea harbour old ship "}};
  for (const auto& [column, words] : rows) {
    QTableView& table = Table("tblWords");
    QHeaderView& header = *table.horizontalHeader();
    const QPoint cell(header.sectionViewportPosition(column) + 15, header.height() / 2);
    QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {},
                      header.viewport()->mapTo(window_.get(), cell));
    std::string shown;
    for (int row = 0; row < table.model()->rowCount(); ++row) {
      shown += table.model()->index(row, 0).data().toString().toStdString() + " ";
    }
    EXPECT_EQ(shown, words) << column;
    EXPECT_EQ(Rows("tblWords", true), "sea|3||\n") << column;
  }
}

TEST_F(WordsAndLines, AreTablesToAScreenReader) {
  OpenTab(SEAS);
  Type("txbFindWord", "ship");
  const std::tuple<const char*, std::string, std::string> rows[] = {
      {"tblWords", "Word|Number|Where|", "harbour|1|at 27 % of the document|"},
      {"tblLines", "Left|Match|Right|", "The sea, the |ship| and the old harbour. Ships on|"}};
  for (const auto& [name, headers, first] : rows) {
    QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&Table(name));
    EXPECT_EQ(spoken.role(), QAccessible::Table) << name;
    QAccessibleTableInterface& table = *spoken.tableInterface();
    EXPECT_EQ(table.rowCount(), Table(name).model()->rowCount()) << name;
    std::string columns;
    std::string cells;
    for (int column = 0; column < 3; ++column) {
      columns += table.columnDescription(column).toStdString() + "|";
      cells += table.cellAt(0, column)->text(QAccessible::Name).left(30).toStdString() + "|";
    }
    EXPECT_EQ(columns, headers) << name;
    EXPECT_EQ(cells, first) << name;
  }
}

TEST_F(WordsAndLines, GoToPlacesFromTheStrips) {
  OpenTab(SEAS);
  Type("txbFindWord", "s?a");
  QWidget& strips = Control("stripsView");
  const auto click = [&](int x, int row, Qt::MouseButton button = Qt::LeftButton) {
    const int y = (2 * row + 1) * strips.height() / 4;
    QTest::mouseClick(window_->windowHandle(), button, {},
                      strips.mapTo(window_.get(), QPoint(x, y)));
    return Marked();
  };
  const char* const first = "The [sea], the ship and the old harbour.";
  const char* const second = "Ships on the [Sea]; the sea is wide.";
  const char* const third = "Ships on the Sea; the [sea] is wide.";
  EXPECT_EQ(click(strips.width() - 9, 1), third);
  EXPECT_EQ(click(5, 1), first);
  EXPECT_EQ(click(strips.width() / 2, 0), second);
  EXPECT_EQ(strips.accessibleDescription(), "Sea: 1 place");
  const std::pair<Qt::Key, const char*> keys[] = {{Qt::Key_Left, second}, {Qt::Key_Down, second},
                                                  {Qt::Key_Right, third}, {Qt::Key_Right, third},
                                                  {Qt::Key_Left, first},  {Qt::Key_Down, first},
                                                  {Qt::Key_Up, first},    {Qt::Key_Right, second}};
  for (const auto& [key, marked] : keys) {
    Press(key);
    EXPECT_EQ(Marked(), marked) << QKeySequence(key).toString().toStdString();
  }
  const auto save = [&](const std::string& name) {
    ChooseFromMenu("Save picture ...", {AsksForFile("Save picture", folder_.Path(name))},
                   [&] { (void)click(5, 0, Qt::RightButton); });
    return QImage(QString::fromStdString(folder_.Path(name)));
  };
  (void)save("a.svg");
  EXPECT_NE(folder_.Read("a.svg").find(">sea</text>"), std::string::npos);
  const QImage picture = save("a.png");
  EXPECT_EQ(picture.width(), strips.width() - 2);
  EXPECT_GT(picture.height(), strips.height());
  std::set<QRgb> colours;
  for (int x = 0; x < picture.width(); ++x) colours.insert(picture.pixel(x, picture.height() - 15));
  EXPECT_GE(colours.size(), 3U);
  EXPECT_TRUE(colours.contains(strips.palette().color(QPalette::Highlight).rgb()));
}

// Making the lines takes a while. Events run meanwhile, and a new request is done at once.
TEST_F(WordsAndLines, EndsWhatIsNoLongerWanted) {
  std::string text;
  constexpr const char* WORDS[] = {"harbour ", "ship ", "bell ", "lamp ", "light ", "old\r\n"};
  for (int i = 0; i < 180000; ++i) text += WORDS[i % 6];
  OpenTab(text);
  const auto press = [this](Qt::Key key) { QTest::keyClick(window_->windowHandle(), key); };
  Choose("cboLineOrder", "Right 2");
  Table("tblWords").setFocus();
  WhileMakingLines([&] { press(Qt::Key_Down); });
  Press(Qt::CTRL | Qt::Key_A);
  EXPECT_EQ(Text("lblLineCount"), "30,000 lines");
  EXPECT_EQ(Rows("tblWords", true), "harbour|30,000||\n");
  // A run releases the listing that the lines are made of.
  WhileMakingLines([&] { press(Qt::Key_F5); });
  Press(Qt::CTRL | Qt::Key_A, {WritesConcordance()});
  EXPECT_EQ(Text("lblLineCount"), "180,000 lines");
  EXPECT_EQ(Rows("tblWords", true), Rows("tblWords"));
  EXPECT_EQ(acted_, 2);
  // Finding works in steps too.
  Press(Qt::CTRL | Qt::Key_F);
  TypeText(*window_, "bell lamp");
  EXPECT_EQ(Text("lblFindCount"), "30000 found");
  Press(Qt::Key_Return);
  EXPECT_EQ(Text("lblFindCount"), "1 of 30000");
  Press(Qt::SHIFT | Qt::Key_Return);
  EXPECT_EQ(Text("lblFindCount"), "30000 of 30000");
}

TEST_F(WordsAndLines, OrdersAndFiltersLines) {
  OpenTab(
      "it is as it is and it is as it is and it is: it / is sea of us, sea at it. Is sea of us "
      "and so the Sea at us\r\n");
  Type("txbFindWord", "s?a", {}, Qt::Key_Return);
  Press(Qt::CTRL | Qt::Key_A);
  EXPECT_EQ(Text("lblLineCount"), "4 lines");
  Choose("cboLineOrder", "Right 1");
  EXPECT_EQ(Rows("tblLines"),
            " so the |Sea| at us|\n of us, |sea| at it. |\n it. Is |sea| of us a|\n"
            ": it is |sea| of us, |\n");
  Choose("cboLineOrder", "Left 2");
  Click("chkDescending");
  EXPECT_EQ(Rows("tblLines"),
            " so the |Sea| at us|\n of us, |sea| at it. |\n: it is |sea| of us, |\n it. Is |sea| "
            "of us a|\n");
  Type("txbLineFilter", "so th?");
  EXPECT_EQ(Text("lblLineCount"), "2 lines");
  Type("txbLineFilter", "none");
  EXPECT_EQ(Text("lblLineCount"), "0 lines");
  EXPECT_FALSE(Control("cmdSaveLines").isEnabled());
}

TEST_F(WordsAndLines, CopiesAndSavesWhatItShows) {
  OpenTab(
      "it is as it is and it is as it is and it is as the sea is: at / the sea is: at the sea "
      "is: of\r\n");
  Click("chkEqualOnce");
  Choose("cboContextSize", " 1", {WritesConcordance()});
  EXPECT_EQ(Rows("tblLines"), " as the |sea| is: at |3|\n");
  Table("tblLines").setFocus();
  // All places are visited even if equal lines are shown once.
  Press(Qt::CTRL | Qt::Key_Down);
  Press(Qt::CTRL | Qt::Key_Down);
  EXPECT_TRUE(Marked().ends_with("at the [sea] is: of")) << Marked();
  Press(Qt::CTRL | Qt::Key_A);
  Press(Qt::CTRL | Qt::Key_C);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "the \tsea\t is:\t3");
  Table("tblWords").setFocus();
  Press(Qt::CTRL | Qt::Key_C);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "sea");
  // The menus do the same.
  const auto choose = [this](const char* entry, const char* table, const BoxList& boxes = {}) {
    ChooseFromMenu(entry, boxes, [&] { ClickRow(table, 0, {}, Qt::RightButton); });
    return QGuiApplication::clipboard()->text();
  };
  EXPECT_EQ(choose("Copy", "tblLines"), "the \tsea\t is:\t3");
  EXPECT_EQ(choose("Copy", "tblWords"), "sea");
  const std::string menuFile = folder_.Path("menu.txt");
  EXPECT_EQ(choose("Save lines ...", "tblLines", {AsksForFile("Save lines", menuFile)}), "sea");
  EXPECT_EQ(folder_.Read("menu.txt"), "the sea is: (x3)\n");
  const auto save = [this](const std::string& name, BoxList boxes = {}) {
    boxes.insert(boxes.begin(), AsksForFile("Save lines", folder_.Path(name)));
    Click("cmdSaveLines", boxes);
    return folder_.Read(name);
  };
  EXPECT_EQ(save("l.txt"), "the sea is: (x3)\n");
  EXPECT_EQ(save("l.tsv"),
            "word\tkey\tcount\tleft\tmatch\tright\tposition\ttimes\n"
            "sea\tsea\t3\tthe \tsea\t is:\t52\t3\n");
  EXPECT_TRUE(save("l.json").ends_with("\"position\":52,\"times\":3}\n]\n"));
  // A file that the program reads is never replaced. Any other file is replaced if the user agrees.
  const std::string text = folder_.Read("a.txt");
  EXPECT_EQ(save("a.txt", {Tells("Quorvel", "This file cannot be the same as the input file.")}),
            text);
  const std::string path = folder_.Write("old.txt", "old");
  const std::string exists = "A file \n" + path + "\nalready exists.  Do you wish to overwrite it?";
  EXPECT_EQ(save("old.txt", {Asks("File exists", exists, "Yes", "No")}), "old");
  EXPECT_EQ(save("old.txt", {Asks("File exists", exists, "Yes", "Enter")}), "the sea is: (x3)\n");
}

TEST_F(WordsAndLines, LeavesWordsOutAndComesBackAfterARun) {
  OpenTab(SEAS);
  ClickRow("tblWords", 2);
  ClickRow("tblWords", 4, Qt::ControlModifier);
  ChooseFromMenu("Leave out", {WritesConcordance()},
                 [this] { ClickRow("tblWords", 4, {}, Qt::RightButton); });
  EXPECT_TRUE(Shown("tblWords"));
  EXPECT_EQ(Rows("tblWords"), "harbour|1||\nhome|1||\nseas|1||\nShip|1||\nship|2||\nwide|1||\n");
  // Words that were chosen before a run are still chosen after it.
  ClickRow("tblWords", 2);
  Choose("cboWordOrder", "by frequency", {WritesConcordance()});
  EXPECT_EQ(Rows("tblWords", true), "seas|1||\n");
  EXPECT_TRUE(Rows("tblWords").starts_with("ship|2||\n"));
  EXPECT_EQ(Text("lblLineCount"), "1 line");
  // A search has no stop words.
  Search();
  Type("txbExtraKeywords", "s*");
  Click("cmdListWords");
  EXPECT_TRUE(Rows("tblWords").starts_with("sea|2||\n")) << Rows("tblWords");
  EXPECT_EQ(Rows("tblWords", true), "seas|1||\n");
}

TEST_F(WordsAndLines, IsThereAgainAtTheNextStart) {
  OpenTab();
  const int wide = Control("tblWords").width();
  Press(Qt::CTRL | Qt::Key_Q);
  Open(folder_.Path("a.txt"), {LoadsStopWords()});
  EXPECT_TRUE(Shown("tblWords"));
  EXPECT_EQ(Control("tblWords").width(), wide);
  Click("cmdListWords", {WritesConcordance()});
  EXPECT_EQ(Rows("tblWords"), "harbour|2||\nold|2||\nsilent|2||\n");
}

TEST_F(WordsAndLines, GoesThroughALongDocument) {
  std::string text;
  for (int i = 0; i < 6000; ++i) {
    text += i == 3000 ? "sea\r\n" : "line " + std::to_string(i) + " is as it is\r\n";
  }
  OpenTab(text + "the Sea");
  auto& pane = dynamic_cast<QPlainTextEdit&>(Control("txbDocument"));
  pane.setFocus();
  EXPECT_LT(pane.toPlainText().size(), 20000);
  EXPECT_TRUE(pane.toPlainText().startsWith("line 0 is"));
  Press(Qt::CTRL | Qt::Key_End);
  EXPECT_TRUE(pane.toPlainText().endsWith("line 5999 is as it is\nthe Sea"));
  // Page by page to the beginning, without skipping a line.
  std::set<QString> seen;
  for (int page = 0; page < 2000 && !seen.contains("line 0 is as it is"); ++page) {
    Press(Qt::Key_PageUp);
    for (const QString& line : pane.toPlainText().split('\n')) seen.insert(line);
  }
  EXPECT_EQ(seen.size(), 6001U);
  // Finds text in the whole document.
  Press(Qt::CTRL | Qt::Key_F);
  TypeText(*window_, "SEA");
  Press(Qt::Key_Return);
  EXPECT_EQ(Text("lblFindCount"), "1 of 2");
  EXPECT_EQ(pane.textCursor().selectedText(), "sea");
  Press(Qt::Key_F3);
  EXPECT_EQ(pane.textCursor().selectedText(), "Sea");
  Press(Qt::Key_F3);
  EXPECT_EQ(Text("lblFindCount"), "1 of 2");
  ExpectNames(*window_);
}

}  // namespace
}  // namespace quorvel
