// Shows a listing and writes it to its file.
//
// The listing is composed once. Its beginning goes to the output box, and all of it to a new file
// beside the target. That file replaces the target at the end, if the listing is complete and the
// user agrees.
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

// The maximum number of characters of a listing that the output box receives.
inline constexpr std::size_t TEXTBOX_LIMIT = 65000;

// The output of a run: the listing as text, or its occurrences as rows.
enum class OutputFormat { text, tsv, json };

// The row format of an output format other than text.
[[nodiscard]] RowFormat RowFormatOf(OutputFormat format);

// Receives bytes. Returns false on failure; it is then not called again.
using ByteSink = std::function<bool(std::string_view)>;

// Where a listing is written.
struct ListingTarget {
  OutputFormat format = OutputFormat::text;
  LineOrder rowOrder = {};  // used for rows
  std::string path;         // of the file; empty for none
  bool isDisabled = false;  // the user is told that no file is written
  bool isSilent = false;    // no message about the file, whether or not it could be written
  bool asksBeforeReplacing = false;
  FilesToKeep kept;
  Targets targets = Targets::all;
  ByteSink sink;                         // if set, receives the bytes; no file is written
  Coding coding = Coding::windows1252;   // of the composed pieces, whose lines end in CR LF
  TextForm form;                         // of the written text; rows have their own form
  std::optional<std::string> inputName;  // the input's name in the header, if not its path
  // If set, the rows are part of a table of several documents, and this is the document's name in
  // it.
  std::optional<std::string> nameInTable;
};

enum class ListingOutcome {
  listed,   // and written, unless the settings or the user want no file
  stopped,  // by the user; the composed part is shown and written
  failed,   // the file could not be written, or a word occurs too often to be listed
};

struct ListingReport {
  ListingOutcome outcome = ListingOutcome::listed;
  bool written = false;            // to its file or sink
  std::optional<Fault> fileFault;  // why it was not written
  bool wordsTooFrequent = false;   // the reason of the outcome
};

// Composes a listing, which must contain words, shows it and writes it, with all messages.
ListingReport ListWords(const Listing& listing, const ListingTarget& target, Conversation& ui);

// Asks before an existing file is replaced: the target's file, only if the settings require it, or
// the file at `path`. Returns false when it must not be replaced.
[[nodiscard]] bool MayReplace(Mode mode, const ListingTarget& target, Conversation& ui);
[[nodiscard]] bool MayReplace(const std::string& name, const std::string& path, Conversation& ui);

// The message for a mode's file that could not be written.
[[nodiscard]] std::string WritingFailed(Mode mode);

// Returns the part of a listing that the output box shows: all of a listing shorter than
// TEXTBOX_LIMIT, otherwise as much of its beginning as ends in a blank. The first TEXTBOX_LIMIT
// code units of the listing are sufficient as `text`.
[[nodiscard]] std::u16string_view TextboxPart(std::u16string_view text);

}  // namespace quorvel
