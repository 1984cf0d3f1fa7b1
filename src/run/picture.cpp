#include "run/picture.h"

#include "lines/strips.h"
#include "util/visible_text.h"

namespace quorvel {

std::optional<Fault> WritePicture(const Listing& listing, const std::string& path,
                                  const std::string& title, const FilesToKeep& kept,
                                  Conversation& ui) {
  ui.BeginPhase("Drawing words");
  OutputFile file(path, kept);
  DrawStrips(
      VisibleName(title), LinesOfListing(listing), EntriesInOrder(listing),
      [&file](std::string_view piece) { return file.Write(piece); }, ui);
  ui.YieldAtOnce();
  if (file.Commit()) return std::nullopt;
  return file.Why();
}

}  // namespace quorvel
