// What the window remembers between sessions in addition to the settings of a run. It is kept in an
// INI file in the user's configuration folder. A missing or invalid entry has the value of a first
// start.
#pragma once

#include <QByteArray>
#include <string>
#include <vector>

#include "util/alphabet.h"

namespace quorvel {

// How documents are read: as Windows-1252 or as Unicode.
[[nodiscard]] Reading KeptReading();
void KeepReading(Reading reading);

// Whether the files and options are hidden.
[[nodiscard]] bool KeptFolding();
void KeepFolding(bool folded);

// The recent documents, newest first: at most eight absolute paths, all different. KeepInput puts a
// path first. ForgetInputs clears the list.
[[nodiscard]] std::vector<std::string> KeptInputs();
void KeepInput(const std::string& path);
void ForgetInputs();

// The state of widgets, as bytes under a name. Empty if nothing was saved. The caller must check
// the bytes.
inline constexpr const char* WINDOW_PLACE = "window/place";
inline constexpr const char* WINDOW_SCREEN = "window/screen";
inline constexpr const char* RESULT_TAB = "results/tab";
inline constexpr const char* RESULT_PARTS = "results/parts";
[[nodiscard]] QByteArray KeptState(const char* name);
void KeepState(const char* name, const QByteArray& state);

}  // namespace quorvel
