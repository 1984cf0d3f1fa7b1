#include <QMenu>
#include <QTest>

#include "ui/preferences.h"
#include "ui/window_test.h"

namespace quorvel {
namespace {

class RecentDocuments : public WindowTest {
 protected:
  // Returns its entries, with brackets around grey ones.
  [[nodiscard]] std::string OpenMenu() {
    Click("cmdRecent");
    ExpectSoon([] { return QApplication::activePopupWidget() != nullptr; });
    std::string entries;
    const std::string folder = folder_.Path("");
    for (const QAction* action : window_->findChild<QMenu*>("mnuRecent")->actions()) {
      std::string text = action->text().toStdString();
      if (const auto at = text.find(folder); at != std::string::npos) text.erase(at, folder.size());
      entries += (action->isEnabled() ? text : "[" + text + "]") + "\n";
    }
    return entries;
  }

  static void InMenu(Qt::Key key) { QTest::keyClick(QApplication::activePopupWidget(), key); }
};

TEST_F(RecentDocuments, AreChosenFromAMenu) {
  for (const char* name : {"0.txt", "1.txt", "gone.txt", "3.txt", "4.txt", "5.txt", "a&b.txt"}) {
    KeepInput(folder_.Write(name, HARBOUR));
  }
  (void)folder_.Write("\xE9.txt", HARBOUR);
  KeepInput(folder_.Path("./\xE9.txt"));
  (void)std::filesystem::remove(folder_.Path("gone.txt"));
  OpenText("new.txt");
  EXPECT_EQ(OpenMenu(),
            "&1  new.txt\n&2  \\xe9.txt\n&3  a&&b.txt\n&4  5.txt\n&5  4.txt\n&6  3.txt\n"
            "[&7  gone.txt]\n&8  1.txt\n\n&Clear this list\n");
  InMenu(Qt::Key_Escape);
  const std::tuple<std::vector<Qt::Key>, const char*> rows[] = {
      {{Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, "\xE9.txt"}, {{Qt::Key_3}, "a&b.txt"}};
  for (const auto& [keys, name] : rows) {
    Click("cmdClearFile_0");
    (void)OpenMenu();
    for (const Qt::Key key : keys) InMenu(key);
    ExpectSoon([this] { return Text("lblInputFileSize") == "Input filesize: 66 bytes"; });
    EXPECT_EQ(KeptInputs().front(), folder_.Path(name));
  }
  (void)OpenMenu();
  InMenu(Qt::Key_C);
  EXPECT_EQ(OpenMenu(), "\n[&Clear this list]\n");
  InMenu(Qt::Key_Escape);
}

}  // namespace
}  // namespace quorvel
