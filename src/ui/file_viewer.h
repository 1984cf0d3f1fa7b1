// The window in which a file, or the help text, can be read beside the main window.
//
// It shows the beginning of a large file only: whoever wants all of it has editors for
// that. One such window serves a main window: the next text takes the place of the last. It is read
// anew when the user comes back to a file that has changed.
#pragma once

#include <QString>
#include <cstddef>
#include <string>
#include <string_view>

#include "run/conversation.h"

class QWidget;

namespace quorvel {

// A text of so many characters (code units) or more is cut.
inline constexpr std::size_t VIEWER_LIMIT = 65530;

// How many bytes from the start of a file decide what is shown: a character has three
// bytes at most, or four where it counts as two; a byte-order mark comes before.
inline constexpr std::size_t VIEWER_BYTES = 3 * (VIEWER_LIMIT + 1);

// The characters to show for a file of which `bytes` is the start, VIEWER_BYTES of it or
// the whole: the text itself or, where that is too long, its beginning between two notes.
// UTF-8 is taken as such, without its byte-order mark; all else as Windows-1252.
[[nodiscard]] std::u16string ViewerText(std::string_view bytes);

// Shows the file at `path` in the viewer of `window`, captioned `caption`, and returns at
// once. Where it cannot be read the user is told.
void ViewFile(QWidget& window, const std::string& path, const QString& caption, Conversation& ui);

// The same for the help text.
void ViewHelp(QWidget& window, Conversation& ui);

}  // namespace quorvel
