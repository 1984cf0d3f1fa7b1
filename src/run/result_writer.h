// The way of a result to its file or sink, piece by piece.
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

// Nothing is handed on before there is something to hand on, so that an empty result leaves no
// trace where nothing can be taken back.
class ResultWriter {
 public:
  // To the target's sink or, where it has none, its file; of the target these, the files to keep
  // and what may be written to count. `begin` stands before the first piece; behind `end`, a last
  // one, nothing follows. `form` changes the pieces, but not the beginning.
  ResultWriter(const ListingTarget& target, std::string begin, std::string_view end,
               std::optional<FormChanger> form = std::nullopt);

  // False once anything has failed.
  bool Add(std::string_view piece);

  // Writes what is left and puts the file in its place. False when anything failed.
  bool Commit(Conversation& ui);

  // Why the file has failed, if it has.
  [[nodiscard]] std::optional<Fault> Why() const;

 private:
  bool HandOn(bool isLast);

  ByteSink sink_;
  std::optional<OutputFile> file_;
  std::string begin_;  // not handed on yet
  std::string bytes_;  // behind it
  std::string_view end_;
  std::optional<FormChanger> form_;
  bool taken_ = true;
};

}  // namespace quorvel
