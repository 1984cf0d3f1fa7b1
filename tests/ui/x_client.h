// What other programs do to a window by the X server: a file manager, the window manager.
#pragma once

#include <QWidget>
#include <string>

namespace quorvel {

// Drags a file over a place of the screen where the window is, and lets go of it there if the
// window takes it. Returns when the window has it, or has refused it.
void DragFileTo(const QWidget& window, QPoint place, const std::string& path);

// Presses the button of the frame that closes the window, and returns when that has been heard.
void CloseByFrame(const QWidget& window);

}  // namespace quorvel
