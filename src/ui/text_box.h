// The program's own changes of a box that the user types in.
#pragma once

class QLineEdit;
class QString;

namespace quorvel {

// Puts a text in the place of what the box shows. It does not count as typed, but Ctrl+Z in the
// box brings back what was there, and that does.
void ReplaceText(QLineEdit& box, const QString& text);

}  // namespace quorvel
