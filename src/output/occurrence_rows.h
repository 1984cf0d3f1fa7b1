// The occurrences behind a listing as a table that other programs read, one row each:
// tab-separated values or a JSON array, in UTF-8.
//
// The rows stand in the order of the listing, with contexts cut as there; nothing is merged
// or marked, and in a search an occurrence that several keywords find is one row. With a
// context size of 0, where the listing is a bare word list, each row is a word. They are
// written as they are made: never is more than a piece of the table in memory.
#pragma once

#include "engine/run_state.h"
#include "output/listing.h"
#include "util/user_interface.h"

namespace quorvel {

// Writes the rows of a finished word table, in the state's output format, where a listing
// would be written; the user is told of a file that could not be. After a stop the table ends
// with the word that was under way.
ListingOutcome ListOccurrences(RunState& state, UserInterface& ui);

}  // namespace quorvel
