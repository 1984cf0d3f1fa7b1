// The place and size of the main window. They are saved when it is closed and restored at the next
// start.
#pragma once

#include <QSize>

class QWidget;

namespace quorvel {

// Restores the saved place and size of a window that is not shown yet. If nothing was saved, or the
// screen has changed, the window gets `firstSize`, in logical pixels, or less on a small screen,
// and the desktop chooses its place.
void RestorePlace(QWidget& window, QSize firstSize);

void KeepPlace(const QWidget& window);

}  // namespace quorvel
