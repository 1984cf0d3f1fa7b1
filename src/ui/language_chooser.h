// The small window in which the user picks the languages whose stop words count.
#pragma once

class QWidget;

namespace quorvel {

// Asks for a language and waits for the answer; the window is modal, and opens on `inUse`. Gives
// the 0-based index of the language in LANGUAGES, LANGUAGES.size() for all of them, -1 on Cancel;
// `inUse` is such an index, too. `parent` may be null.
[[nodiscard]] int ChooseLanguage(QWidget* parent, int inUse);

}  // namespace quorvel
