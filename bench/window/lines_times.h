// How soon the tab "Words and lines" shows what it is asked for, and what it takes of memory.
#pragma once

#include "ui/main_window.h"

namespace quorvel {

// Of a window that has listed a document; prints a table.
void MeasureWordsAndLines(MainWindow& window);

}  // namespace quorvel
