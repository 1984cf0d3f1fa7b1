// The window that says what Quorvel is, its version, and what it stands on; and the
// program's icon.
#pragma once

#include <QIcon>

class QWidget;

namespace quorvel {

// Shows it, modal, and waits until it is closed. `parent` may be null.
void ShowProductInformation(QWidget* parent);

// The desktop's own icon for the program, where its theme has one; else the one that
// is built in.
[[nodiscard]] QIcon ProgramIcon();

}  // namespace quorvel
