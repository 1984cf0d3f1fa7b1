// The small window in which the user chooses the language of the stop words.
#pragma once

class QWidget;

namespace quorvel {

// Asks for a language and waits for the answer. The window is modal. Returns the 0-based index of
// the language in LANGUAGES, LANGUAGES.size() for all languages, or -1 on Cancel. `inUse` is the
// index that is selected at first. `parent` may be null.
[[nodiscard]] int ChooseLanguage(QWidget* parent, int inUse);

}  // namespace quorvel
