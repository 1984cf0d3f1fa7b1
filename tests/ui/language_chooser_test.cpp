#include "ui/language_chooser.h"

#include <QComboBox>
#include <QTest>

#include "ui/window_test.h"

namespace quorvel {
namespace {

class LanguageChooser : public WindowTest {};

TEST_F(LanguageChooser, OffersEachLanguageAndAll) {
  constexpr const char* ONE = "Load stop words file for this language";
  constexpr const char* ALL = "Load stop words file for these languages";
  const struct {
    int inUse;
    Qt::Key key;
    const char* caption;
    const char* end;
    int chosen;
  } rows[] = {{0, Qt::Key_Home, ONE, ONE, 0},       {0, Qt::Key_End, ALL, ALL, 6},
              {6, Qt::Key_End, ALL, "Enter", 6},    {6, Qt::Key_Up, ONE, "Enter", 5},
              {1, Qt::Key_Down, ONE, "Cancel", -1}, {1, Qt::Key_Down, ONE, "Escape", -1}};
  Open();
  for (const auto& row : rows) {
    SCOPED_TRACE(std::to_string(row.inUse) + row.end);
    int chosen = -2;
    const Box box = {"Stop words", [&row](QWidget& chooser) {
                       auto& list = *chooser.findChild<QComboBox*>("cboCommonWordsFiles");
                       QString all;
                       for (int i = 0; i < list.count(); ++i) all += list.itemText(i) + ",";
                       EXPECT_EQ(all,
                                 "English,German,Spanish,Portuguese,Italian,French,"
                                 "All six languages,");
                       EXPECT_EQ(list.currentIndex(), row.inUse);
                       const int width = chooser.findChild<QWidget*>("cmdAccept")->minimumWidth();
                       QTest::keyClick(&list, row.key);
                       const auto& accept = *chooser.findChild<QPushButton*>("cmdAccept");
                       EXPECT_EQ(accept.text().remove('&'), row.caption);
                       EXPECT_GE(width, accept.sizeHint().width());
                       PressButton(chooser, row.end);
                     }};
    Do("choose", {box}, [&] { chosen = ChooseLanguage(window_.get(), row.inUse); });
    EXPECT_EQ(chosen, row.chosen);
  }
}

}  // namespace
}  // namespace quorvel
