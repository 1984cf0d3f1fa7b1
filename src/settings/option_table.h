// The table of all options: each is described once, in one row. The command line, its help, the
// settings file, the completions and the manual page's list of options follow from it.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "settings/settings.h"

namespace quorvel {

// What an option takes. `field` is where its value is stored; null if the command line stores the
// value itself.

struct Flag {
  bool ConcordanceSettings::*field = nullptr;
  bool isPair = false;  // "--no-NAME" turns it off
};

// From `least` to `most`, both inclusive. The settings file stores the distance from `least`.
struct Number {
  int least = 0;
  int most = 0;
  int ConcordanceSettings::*field = nullptr;
  std::string_view argument = "N";  // in the help
  bool mustBeSelected = true;       // reading a settings file without a selection is an error
};

// One of some words, separated by blanks. Their order is that of the values of the enumeration.
struct Word {
  std::string_view words = {};
  WordOrder ConcordanceSettings::*field = nullptr;
  bool areSortedInErrors = true;
};

struct Text {
  std::string ConcordanceSettings::*field = nullptr;
};

struct File {
  std::string ConcordanceSettings::*field = nullptr;
  std::string_view extension = {};  // that completions offer; empty for any
  bool isRead = false;              // it cannot be a folder
  bool mustExist = false;           // a name in a settings file is dropped if there is no such file
};

// The two lines of the settings file for create and search.
struct ModeLines {
  Mode ConcordanceSettings::*field = nullptr;
};

// The program shows something and ends.
struct Shown {};

using OptionKind = std::variant<Flag, Number, Word, Text, File, ModeLines, Shown>;

// When InitializeVariables keeps the value.
enum class Kept { never, unlessReinitialized, always };

struct Option {
  // On the command line, such as "-o,--output"; empty for an option that only the window has.
  std::string_view names = {};
  std::string_view group = {};  // in the help and in the manual page
  OptionKind kind = {};
  std::string_view help = {};  // begins in lower case, has no full stop at its end
  int line = 0;                // its (first) line in a settings file, from 1; 0 if it has none
  Kept kept = Kept::never;
  std::string_view more = {};   // only for the manual page, whole sentences
  std::string_view brief = {};  // for completions, if the beginning of `help` is too long for them
  std::string_view excludes = {};    // an earlier option that cannot be combined with this one
  std::string_view replacedBy = {};  // an option with which this one has no effect
};

// All options, in the order of the help.
[[nodiscard]] std::span<const Option> AllOptions();

// The long name, such as "--output".
[[nodiscard]] std::string_view LongName(const Option& option);

// The option on a line of the settings file, from 1; null for the second line of the mode.
[[nodiscard]] const Option* OptionOnLine(int line);

inline constexpr int SETTINGS_LINES = 22;

}  // namespace quorvel
