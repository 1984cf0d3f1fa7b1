// A listing on its way to the screen and to its file.
//
// Composes it once and hands each piece on to both: the beginning to the output box, all of it to a
// new file beside the target. That takes the target's place at the end, if the listing is whole and
// the user wants it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "files/output_file.h"
#include "output/listing.h"
#include "output/occurrence_rows.h"
#include "run/conversation.h"
#include "util/fault.h"
#include "util/text_form.h"

namespace quorvel {

// The output box never receives more characters of a listing than this.
inline constexpr std::size_t TEXTBOX_LIMIT = 65000;

// What a run writes: the listing, or the occurrences behind it as rows.
enum class OutputFormat { text, tsv, json };

// That of one that is not text.
[[nodiscard]] RowFormat RowFormatOf(OutputFormat format);

// Takes bytes; false when it could not, and needs no more of them.
using ByteSink = std::function<bool(std::string_view)>;

// Where a listing goes beside the screen.
struct ListingTarget {
  OutputFormat format = OutputFormat::text;
  LineOrder rowOrder = {};  // of rows
  std::string path;         // of its file; empty where none is wanted
  bool isDisabled = false;  // the user is told that there is none
  bool isSilent = false;    // of a file that is written, or cannot be, nothing is said
  bool asksBeforeReplacing = false;
  FilesToKeep kept;
  Targets targets = Targets::all;
  ByteSink sink;                         // where set, the bytes go here and no file is written
  Coding coding = Coding::windows1252;   // of the pieces of the listing, whose lines end in CR LF
  TextForm form;                         // in which it is written; rows have their own
  std::optional<std::string> inputName;  // in the header, where not the path of the input
  // Where set, the rows go into a table of several documents: the name of this one in it.
  std::optional<std::string> nameInTable;
};

enum class ListingOutcome {
  listed,   // and written, unless the settings or the user want no file
  stopped,  // by the user: what was composed is shown and written
  failed,   // the file could not be written, or a word occurs too often to be listed
};

struct ListingReport {
  ListingOutcome outcome = ListingOutcome::listed;
  bool written = false;            // it has gone to its file or sink
  std::optional<Fault> fileFault;  // why it has not
  bool wordsTooFrequent = false;   // the outcome is for that
};

// Composes a listing that has words, shows it and writes it; says what there is to say.
ListingReport ListWords(const Listing& listing, const ListingTarget& target, Conversation& ui);

// The question before an existing file, a target or one of this name, is replaced; of a target only
// where the settings ask for it. False when it is to stay.
[[nodiscard]] bool MayReplace(Mode mode, const ListingTarget& target, Conversation& ui);
[[nodiscard]] bool MayReplace(const std::string& name, const std::string& path, Conversation& ui);

// What is said when a mode's file could not be written.
[[nodiscard]] std::string WritingFailed(Mode mode);

// The part of a listing that the output box shows: all of it when it is
// shorter than TEXTBOX_LIMIT, else as much of its beginning as ends in a blank. The first
// TEXTBOX_LIMIT code units of it will do.
[[nodiscard]] std::u16string_view TextboxPart(std::u16string_view text);

}  // namespace quorvel
