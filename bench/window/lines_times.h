// Measures how fast the tab "Words and lines" responds and how much memory it takes.
#pragma once

#include "ui/main_window.h"

namespace quorvel {

// `window` must have listed a document. Prints a table.
void MeasureWordsAndLines(MainWindow& window);

}  // namespace quorvel
