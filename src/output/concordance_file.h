// The concordance file and the search-results file: a short header that names the
// input, then the entries, as Windows-1252 text with CR LF line ends.
#pragma once

#include <ctime>
#include <functional>
#include <string>
#include <string_view>

#include "settings/settings.h"
#include "util/user_interface.h"

namespace quorvel {

// What a mode's file is called in messages: "Concordance file" or "Search results file".
[[nodiscard]] std::string OutputName(Mode mode);

// What is said when that file could not be written.
[[nodiscard]] std::string WritingFailed(Mode mode);

// The program's version as headers show it: "21.36".
[[nodiscard]] std::string VersionText();

// A local date and time as "2024-05-17 14:03".
[[nodiscard]] std::string DateAndTimeText(std::time_t time);

// The name of the file that a run in the settings' mode writes; may be empty.
[[nodiscard]] const std::string& OutputFileOf(const ConcordanceSettings& settings);

// The header of the file that a run with these settings writes at `time`, as
// Windows-1252 bytes. `digest` is that of the input file; the header of a search has none.
[[nodiscard]] std::string FileHeader(const ConcordanceSettings& settings, std::string_view digest,
                                     std::time_t time);

// Takes bytes; false when it could not, and needs no more of them.
using ByteSink = std::function<bool(std::string_view)>;

// Hands the file's bytes to `write`, front to back; stops and gives false as soon
// as that gives false.
[[nodiscard]] bool WriteFileBytes(const ConcordanceSettings& settings, std::string_view digest,
                                  std::string_view outputText, std::time_t time,
                                  const ByteSink& write);

enum class FileOutcome { written, notWanted, failed };

struct FileWriting {
  FileOutcome outcome = FileOutcome::notWanted;
  std::string fault;  // the file and the system's description, where it failed
};

// Writes the file that the settings name with the bytes that `produce` hands on, asking
// first, if the settings say so, before an existing file is replaced. Not wanted: no name
// is set, or the user said no. After a failure, which is also where `produce` gives false,
// an existing file is as it was.
[[nodiscard]] FileWriting WriteOutputFile(const ConcordanceSettings& settings, UserInterface& ui,
                                          const std::function<bool(const ByteSink&)>& produce);

// The same with the bytes of the current listing's file.
[[nodiscard]] FileWriting WriteConcordanceFile(const ConcordanceSettings& settings,
                                               std::string_view digest, std::string_view outputText,
                                               UserInterface& ui);

}  // namespace quorvel
