// What a new file takes over from the one whose place it is to take: who may do what with it. For
// the other files of this folder alone.
#pragma once

#include <filesystem>

namespace quorvel {

// Gives an open file the owner, the group, the mode and the access list of `target`, as far as the
// system has such and allows it. The file must be one that its owner alone can use, and it stays
// one wherever the rights of the others cannot be told or given: nobody but the writer, who becomes
// the owner where the old one cannot be kept, gets a right that they did not have.
void TakeAttributesOf(int handle, const std::filesystem::path& target);

}  // namespace quorvel
