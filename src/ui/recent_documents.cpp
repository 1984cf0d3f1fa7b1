#include "ui/recent_documents.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QMenu>
#include <QToolButton>
#include <utility>

#include "files/file_system.h"
#include "ui/preferences.h"
#include "ui/text.h"
#include "util/visible_text.h"

namespace quorvel {
namespace {

// The path, shortened to fit in a menu, after a digit that chooses it.
QString Entry(const QMenu& menu, std::size_t number, const std::string& path) {
  constexpr int LONGEST = 70;  // average characters
  const QFontMetrics metrics = menu.fontMetrics();
  const QString shown = metrics.elidedText(ShownText(VisibleName(path)), Qt::ElideMiddle,
                                           LONGEST * metrics.averageCharWidth());
  return QString("&%1  %2").arg(number).arg(QString(shown).replace('&', "&&"));
}

void Fill(QMenu& menu, const std::function<void(const std::string&)>& choose) {
  menu.clear();
  const std::vector<std::string> paths = KeptInputs();
  for (std::size_t i = 0; i < paths.size(); ++i) {
    const std::string& path = paths[i];
    QAction* entry = menu.addAction(Entry(menu, i + 1, path));
    entry->setToolTip(ShownText(VisibleName(path)));
    entry->setEnabled(FileExists(path));
    // Queued, so that the menu is closed before a question about the document appears.
    QObject::connect(
        entry, &QAction::triggered, &menu, [choose, path] { choose(path); }, Qt::QueuedConnection);
  }
  menu.addSeparator();
  const QString caption = QCoreApplication::translate("RecentDocuments", "&Clear this list");
  QAction* clear = menu.addAction(caption, [] { ForgetInputs(); });
  clear->setEnabled(!paths.empty());
}

}  // namespace

void OfferRecentDocuments(QToolButton& button, std::function<void(const std::string&)> choose) {
  auto* menu = new QMenu(&button);
  menu->setObjectName("mnuRecent");
  menu->setToolTipsVisible(true);
  // A click on the button closes the menu and does not open it again.
  menu->setAttribute(Qt::WA_NoMouseReplay);
  QObject::connect(&button, &QToolButton::clicked, menu,
                   [&button, menu, choose = std::move(choose)] {
                     Fill(*menu, choose);
                     menu->popup(button.mapToGlobal(button.rect().bottomLeft()));
                   });
}

}  // namespace quorvel
