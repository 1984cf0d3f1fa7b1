// The window "About Quorvel" with the version and the libraries in use; and the program's icon.
#pragma once

#include <QIcon>

class QWidget;

namespace quorvel {

// Shows the window and waits until it is closed. The window is modal. `parent` may be null.
void ShowProductInformation(QWidget* parent);

// The icon of the desktop theme for the program, or the built-in icon if the theme has none.
[[nodiscard]] QIcon ProgramIcon();

}  // namespace quorvel
