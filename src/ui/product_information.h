// The window that says what Quorvel is, its version, and what it stands on.
#pragma once

class QWidget;

namespace quorvel {

// Shows it, modal, and waits until it is closed. `parent` may be null.
void ShowProductInformation(QWidget* parent);

}  // namespace quorvel
