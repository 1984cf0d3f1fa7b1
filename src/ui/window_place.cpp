#include "ui/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

#include "ui/preferences.h"

namespace quorvel {
namespace {

// Identifies a screen with its position, size and scale. Positions are in logical pixels, so one
// that was saved for another screen or scale may be outside this one.
QByteArray Description(const QScreen& screen) {
  const QRect area = screen.geometry();
  return QString("%1 %2x%3+%4+%5 @%6")
      .arg(screen.name())
      .arg(area.width())
      .arg(area.height())
      .arg(area.x())
      .arg(area.y())
      .arg(screen.devicePixelRatio())
      .toUtf8();
}

bool IsThereStill(const QByteArray& description) {
  const QList<QScreen*> screens = QGuiApplication::screens();
  return std::any_of(screens.begin(), screens.end(), [&description](const QScreen* screen) {
    return Description(*screen) == description;
  });
}

}  // namespace

void RestorePlace(QWidget& window, QSize firstSize) {
  const bool isThere = IsThereStill(KeptState(WINDOW_SCREEN));
  if (isThere && window.restoreGeometry(KeptState(WINDOW_PLACE))) return;
  window.resize(firstSize.boundedTo(window.screen()->availableSize() * 9 / 10));
}

void KeepPlace(const QWidget& window) {
  KeepState(WINDOW_PLACE, window.saveGeometry());
  KeepState(WINDOW_SCREEN, Description(*window.screen()));
}

}  // namespace quorvel
