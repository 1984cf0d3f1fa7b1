// The small window in which the user picks the languages whose stop words count.
#pragma once

class QWidget;

namespace quorvel {

// Asks for a language and waits for the answer; the window is modal. Gives the 0-based
// index of the language in LANGUAGES, LANGUAGES.size() for all of them, -1 on Cancel.
// `parent` may be null.
[[nodiscard]] int ChooseLanguage(QWidget* parent);

}  // namespace quorvel
