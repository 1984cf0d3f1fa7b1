// Writes a result to its file or sink, piece by piece.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "files/output_file.h"
#include "run/conversation.h"
#include "run/listing_run.h"
#include "util/fault.h"
#include "util/text_form.h"

namespace quorvel {

// Writes nothing before there is something to write, so that an empty result leaves no trace in a
// sink or a device.
class ResultWriter {
 public:
  // Writes to the target's sink or, without a sink, to its file. Of `target` only these, `kept` and
  // `targets` are used. `begin` is written before the first piece, `end` after the last one. `form`
  // converts the pieces and `end`, but not `begin`.
  ResultWriter(const ListingTarget& target, std::string begin, std::string_view end,
               std::optional<FormConverter> form = std::nullopt);

  // Returns false after any failure.
  bool Add(std::string_view piece);

  // Writes the rest and commits the file. Returns false after any failure.
  bool Commit(Conversation& ui);

  // The fault of the file, if any.
  [[nodiscard]] std::optional<Fault> Error() const;

 private:
  bool HandOn(bool isLast);

  ByteSink sink_;
  std::optional<OutputFile> file_;
  std::string begin_;  // not yet written
  std::string bytes_;  // not yet written, after `begin_`
  std::string_view end_;
  std::optional<FormConverter> form_;
  bool taken_ = true;
};

}  // namespace quorvel
