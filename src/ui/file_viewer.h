// A window that shows a file or the help text beside the main window.
//
// It shows only the beginning of a large file. A main window has one viewer, and the next file
// replaces the current one. A file that has changed is read again when the user returns to the
// viewer.
#pragma once

#include <QString>
#include <cstddef>
#include <string>
#include <string_view>

#include "run/conversation.h"

class QWidget;

namespace quorvel {

// A text with this many code units or more is cut.
inline constexpr std::size_t VIEWER_LIMIT = 65530;

// How many bytes of a file are read, at most. A code unit takes at most three bytes in UTF-8, and a
// byte-order mark takes three more.
inline constexpr std::size_t VIEWER_BYTES = 3 * (VIEWER_LIMIT + 1);

// Returns the text to show for a file that starts with `bytes`, which are its first VIEWER_BYTES
// bytes or the whole file. If the text is too long, its beginning is returned between two notes.
// Bytes that are not valid UTF-8 are read as Windows-1252. A byte-order mark is removed.
[[nodiscard]] std::u16string ViewerText(std::string_view bytes);

// Shows the file at `path` in the viewer of `window`, with `caption` as its title, and returns at
// once. Tells the user if the file cannot be read.
void ViewFile(QWidget& window, const std::string& path, const QString& caption, Conversation& ui);

// Shows the help text in the same way.
void ViewHelp(QWidget& window, Conversation& ui);

}  // namespace quorvel
