// Acts on a window like other programs, through the X server: a file manager and the window
// manager.
#pragma once

#include <QWidget>
#include <string>

namespace quorvel {

// Drags a file to a place of the window, and drops it if the window accepts it. Returns when the
// window has taken or refused the file.
void DragFileTo(const QWidget& window, QPoint place, const std::string& path);

// Presses the close button of the window's frame, and returns when the window has received it.
void CloseByFrame(const QWidget& window);

}  // namespace quorvel
