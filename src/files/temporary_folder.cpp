#include "files/temporary_folder.h"

#include <exception>
#include <utility>

#include "files/file_system.h"

namespace quorvel {
namespace {

bool Delete(const std::string& path, const std::string& complaint, UserInterface& ui) {
  if (RemoveFileOrFolder(path)) return true;
  ui.Tell(complaint, "Error");
  return false;
}

// Here the path comes first, and a blank ends the text: so meant.
bool DeleteFolder(const std::string& path, UserInterface& ui) {
  return Delete(path, path + " when attempting to delete folder ", ui);
}

}  // namespace

// Whether a name is free is told by making the folder: between a test and the
// making, another program could take it.
std::string CreateTemporaryFolder(const std::string& base, std::string_view tag) {
  constexpr int LAST_NUMBER = 999;
  constexpr std::size_t DIGITS = 3;
  if (base.empty()) return {};
  for (int n = 1; n <= LAST_NUMBER; ++n) {
    const std::string number = std::to_string(n);
    std::string name(tag);
    name.append(DIGITS - number.size(), '0').append(number);
    std::string path = JoinPath(base, name);
    switch (MakeFolder(path)) {
      case FolderMaking::made:
        return path;
      case FolderMaking::exists:
        break;
      case FolderMaking::failed:
        return {};
    }
  }
  return {};
}

void RemoveTemporaryFolder(const std::string& folder, const std::string& entry, UserInterface& ui) {
  const std::string file = JoinPath(folder, entry);
  if (!Delete(file, "Error when attempting to delete " + file, ui)) return;
  for (std::size_t end = entry.rfind('/'); end != std::string::npos && end > 0;
       end = entry.rfind('/', end - 1)) {
    if (!DeleteFolder(JoinPath(folder, entry.substr(0, end)), ui)) return;
  }
  DeleteFolder(folder, ui);
}

TemporaryFolder::TemporaryFolder(std::string_view tag, std::string entry, UserInterface& ui)
    : entry_(std::move(entry)), ui_(ui), path_(CreateTemporaryFolder(TemporaryBase(), tag)) {}

TemporaryFolder::~TemporaryFolder() {
  if (path_.empty()) return;
  try {
    RemoveTemporaryFolder(path_, entry_, ui_);
  } catch (const std::exception&) {
    // Nothing may leave from here, and there is nobody left to tell.
    return;
  }
}

}  // namespace quorvel
