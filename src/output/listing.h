// Lists a finished word table: on the screen and into the output file.
//
// Called at the end of each run, and again whenever the user changes what only
// the listing depends on; the text is not scanned anew for that.
#pragma once

#include <string>
#include <string_view>

#include "engine/run_state.h"
#include "util/user_interface.h"

namespace quorvel {

// The output box never receives more characters of a listing than this.
inline constexpr std::size_t TEXTBOX_LIMIT = 65000;

enum class ListingOutcome {
  listed,   // and written, unless the settings or the user want no file
  nothing,  // no word is included, or none was listed before the stop
  stopped,  // by the user: what was composed is shown and written
  failed,   // the file could not be written, or a word occurs too often to be listed
};

// Composes the listing into state.outputText in the order that the settings ask
// for, shows it and writes the output file.
ListingOutcome ListWords(RunState& state, UserInterface& ui);

// Removes the characters with codes up to 32 from the front of `text`.
void TrimLeadingControlChars(std::string& text);

// The part of a listing, one byte a character, that the output box shows: all of it when it is
// shorter than TEXTBOX_LIMIT, else as much of its beginning as ends in a blank.
[[nodiscard]] std::string_view TextboxPart(std::string_view text);

}  // namespace quorvel
