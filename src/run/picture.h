// A picture of where in the document the words of a listing occur, as a file.
#pragma once

#include <optional>
#include <string>

#include "files/output_file.h"
#include "output/listing.h"
#include "run/conversation.h"
#include "util/fault.h"

namespace quorvel {

// Draws the words listed, in the order of the listing and under the name of the input, into a file
// at `path`. Why that could not be done, if it could not.
[[nodiscard]] std::optional<Fault> WritePicture(const Listing& listing, const std::string& path,
                                                const std::string& title, const FilesToKeep& kept,
                                                Conversation& ui);

}  // namespace quorvel
