// The language of the window's own texts.
//
// A translation is a file quorvel_LANGUAGE.qm in the data folder of the program, for example
// quorvel_de.qm. Texts without a translation are English.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace quorvel {

// Chooses a translation, such as "de_AT" or "de", for a user who prefers these languages, such as
// "de-AT", in this order. A language that has no translation for its country can use one without.
// Returns an empty text for English if English comes first or there is no translation.
[[nodiscard]] QString ChooseTranslation(const QStringList& languages,
                                        const std::function<bool(const QString&)>& exists);

// Loads the translation for the user's language, and Qt's own texts in that language, if they are
// installed. Call it once, after the application object is made and before the first window.
void LoadTranslation();

}  // namespace quorvel
