// Changes a text box that the user also types in.
#pragma once

class QLineEdit;
class QString;

namespace quorvel {

// Replaces the text of the box. The new text does not count as typed by the user. Ctrl+Z in the box
// restores the old text, which then counts as typed.
void ReplaceText(QLineEdit& box, const QString& text);

}  // namespace quorvel
