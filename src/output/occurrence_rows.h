// The occurrences behind a listing as a table that other programs read, one row each:
// tab-separated values or a JSON array, in UTF-8.
//
// The rows stand in the order of the listing, with contexts cut as there; nothing is merged
// or marked, and in a search an occurrence that several keywords find is one row. With a
// context size of 0, where the listing is a bare word list, each row is a word. They are
// written as they are made: never is more than a piece of the table in memory.
#pragma once

#include "output/listing.h"
#include "util/progress.h"

namespace quorvel {

enum class RowFormat { tsv, json };

// Composes the table of a listing's occurrences and hands it on, front to back. After a stop
// request it ends with the word that was under way, and as a table that is whole.
void ComposeRows(const Listing& listing, RowFormat format, const PieceSink& take,
                 Progress& progress);

}  // namespace quorvel
