// Copies the permissions of an existing file to the file that will replace it. For use in this
// folder only.
#pragma once

#include <filesystem>

namespace quorvel {

// Gives an open file the owner, group, mode and access list of `target`, as far as the system
// supports and permits it. The file must be accessible to its owner alone. Where the rights of
// others cannot be read or set, it stays so. Only the writer, who becomes the owner when the old
// one cannot be kept, gains rights.
void CopyAttributesFrom(int handle, const std::filesystem::path& target);

}  // namespace quorvel
