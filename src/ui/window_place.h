// Where the main window stands on the screen, and how large: kept when it is closed, and taken up
// when the program starts again.
#pragma once

#include <QSize>

class QWidget;

namespace quorvel {

// Gives a window that is not shown yet the place and size, or the whole of the screen, that it was
// kept with. Where nothing is kept, or that screen is gone or is another now, it becomes as large
// as `firstSize`, in logical pixels, or as the screen has room for, and the desktop finds it a
// place.
void RestorePlace(QWidget& window, QSize firstSize);

void KeepPlace(const QWidget& window);

}  // namespace quorvel
