// What the window keeps for its user from one start to the next, beside the settings of the runs: a
// file of its own in the user's configuration folder, in INI form. What is not in it, or is wrong
// there, is as at a first start.
#pragma once

#include <QByteArray>
#include <string>
#include <vector>

#include "util/alphabet.h"

namespace quorvel {

// How texts are read.
[[nodiscard]] Reading KeptReading();
void KeepReading(Reading reading);

// Whether the files and options are folded away.
[[nodiscard]] bool KeptFolding();
void KeepFolding(bool folded);

// The documents that were inputs, newest first: at most eight, none twice, each from the root of
// the file system. Keeping one puts it first; forgetting leaves none.
[[nodiscard]] std::vector<std::string> KeptInputs();
void KeepInput(const std::string& path);
void ForgetInputs();

// What the widgets give as bytes to be kept, under a name of its own; empty where nothing is kept.
// Whoever takes it up checks it.
inline constexpr const char* WINDOW_PLACE = "window/place";
inline constexpr const char* WINDOW_SCREEN = "window/screen";
inline constexpr const char* RESULT_TAB = "results/tab";
inline constexpr const char* RESULT_PARTS = "results/parts";
[[nodiscard]] QByteArray KeptState(const char* name);
void KeepState(const char* name, const QByteArray& state);

}  // namespace quorvel
