// Fills the option lists of the completions and of the manual page from the table of options.
//
//   option_lists TEMPLATE
//
// Prints the template. A line "@LIST@" becomes the list of that name, one of those in main().

#include <algorithm>
#include <fstream>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "settings/option_table.h"

namespace quorvel {
namespace {

constexpr int MOST_NUMBERS = 20;  // that a completion offers

std::string Replaced(std::string text, std::string_view old, std::string_view with) {
  for (auto at = text.find(old); at != std::string::npos; at = text.find(old, at + with.size())) {
    text.replace(at, old.size(), with);
  }
  return text;
}

// "-o" and "--output", or only the second.
std::vector<std::string> NamesOf(const Option& option) {
  const std::string names(option.names);
  const std::size_t comma = names.find(',');
  if (comma == std::string::npos) return {names};
  return {names.substr(0, comma), names.substr(comma + 1)};
}

std::string Joined(const std::vector<std::string>& parts, std::string_view between) {
  std::string result;
  for (const std::string& part : parts) result.append(result.empty() ? "" : between).append(part);
  return result;
}

bool IsPair(const Option& option) {
  const Flag* const flag = std::get_if<Flag>(&option.kind);
  return flag != nullptr && flag->isPair;
}

std::string OffName(const Option& option) { return "--no-" + std::string(option.names.substr(2)); }

bool TakesValue(const Option& option) {
  return !std::holds_alternative<Flag>(option.kind) && !std::holds_alternative<Shown>(option.kind);
}

// The values that a completion offers, separated by blanks.
std::string ValuesOf(const Option& option) {
  if (const Word* const word = std::get_if<Word>(&option.kind)) return std::string(word->words);
  const Number* const number = std::get_if<Number>(&option.kind);
  if (number == nullptr || number->most > MOST_NUMBERS) return {};
  std::vector<std::string> values;
  for (int value = number->least; value <= number->most; ++value) {
    values.push_back(std::to_string(value));
  }
  return Joined(values, " ");
}

// The beginning of the help text, for completions, whose scripts do not escape it.
std::string BriefOf(const Option& option) {
  if (option.brief.find_first_of("'[]\\") != std::string_view::npos ||
      option.help.find_first_of("'[]\\") != std::string_view::npos) {
    throw std::invalid_argument(std::string(option.help) + ": the completions cannot hold this");
  }
  if (!option.brief.empty()) return std::string(option.brief);
  std::size_t end = option.help.find_first_of(":;");
  end = std::min({end, option.help.find(". "), option.help.find(", such"), option.help.size()});
  return std::string(option.help.substr(0, end));
}

std::string BashCase(const Option& option) {
  const std::string names = "    " + Joined(NamesOf(option), " | ") + ") ";
  if (const File* const file = std::get_if<File>(&option.kind)) {
    const std::string extension = file->extension.empty() ? "" : " " + std::string(file->extension);
    return names + "_quorvel_cli_files \"$word\"" + extension + "; return ;;\n";
  }
  if (!TakesValue(option)) return {};
  const std::string values = ValuesOf(option);
  return names + (values.empty() ? "return" : "values='" + values + "'") + " ;;\n";
}

std::string BashOption(const Option& option) {
  const std::string off = IsPair(option) ? " " + OffName(option) : "";
  return "      " + Joined(NamesOf(option), " ") + off + "\n";
}

std::string FishLine(const std::string& name, const std::string& rest, const std::string& brief) {
  return "complete -c quorvel-cli " + name + rest + " -d '" + brief + "'\n";
}

std::string Fish(const Option& option) {
  const std::vector<std::string> names = NamesOf(option);
  const std::string name =
      (names.size() > 1 ? "-s " + names[0].substr(1) + " " : "") + "-l " + names.back().substr(2);
  const std::string values = ValuesOf(option);
  std::string takes;
  if (TakesValue(option)) takes = values.empty() ? " -x" : " -xa '" + values + "'";
  if (std::holds_alternative<File>(option.kind)) takes = " -rF";
  std::string lines = FishLine(name, takes, BriefOf(option));
  if (IsPair(option)) {
    lines += FishLine("-l " + OffName(option).substr(2), "", "do not " + BriefOf(option));
  }
  return lines;
}

// What zsh completes after an option: ":title:action".
std::string ZshValue(const Option& option) {
  if (!TakesValue(option)) return {};
  const std::string title = ":" + std::string(LongName(option).substr(2)) + ":";
  if (const File* const file = std::get_if<File>(&option.kind)) {
    const std::string extension(file->extension);
    return title + "_files" + (extension.empty() ? "" : " -g \"*.(#i)" + extension + "\"");
  }
  const std::string values = ValuesOf(option);
  return title + (values.empty() ? " " : "(" + values + ")");
}

// The names that zsh does not offer beside an option: its own, and those that go without it.
std::string ZshExcluded(const Option& option) {
  std::vector<std::string> names;
  const auto add = [&names](const Option& other) {
    for (const std::string& name : NamesOf(other)) names.push_back(name);
  };
  if (std::holds_alternative<Shown>(option.kind)) names = {"-", "*"};
  if (NamesOf(option).size() > 1 && names.empty()) add(option);
  for (const Option& other : AllOptions()) {
    const std::string_view name = LongName(other);
    if (name.empty()) continue;
    const bool goesWithout = name == option.excludes || name == option.replacedBy ||
                             other.excludes == LongName(option) ||
                             other.replacedBy == LongName(option);
    if (goesWithout) add(other);
  }
  return names.empty() ? "" : "(" + Joined(names, " ") + ")";
}

std::string Zsh(const Option& option) {
  const std::vector<std::string> names = NamesOf(option);
  const std::string sign = TakesValue(option) ? "=" : "";
  const std::string brief = "[" + BriefOf(option) + "]";
  if (IsPair(option)) {
    return "  '(" + OffName(option) + ")" + names[0] + brief + "' \\\n  '(" + names[0] + ")" +
           OffName(option) + "[do not " + BriefOf(option) + "]' \\\n";
  }
  const std::string excluded = ZshExcluded(option);
  const std::string value = brief + ZshValue(option) + "' \\\n";
  if (names.size() == 1) return "  '" + excluded + names[0] + sign + value;
  return "  '" + excluded + "'{" + names[0] + "," + names[1] + sign + "}'" + value;
}

// Text for the manual page: each sentence on a line of its own, and names of options in bold.
std::string Roff(std::string text) {
  text = Replaced(Replaced(std::move(text), "\\", "\\e"), "\"", "\\(dq");
  std::string result;
  bool isName = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const bool isPartOfName = c == '-' || (c >= 'a' && c <= 'z');
    if (isName && !isPartOfName) result += "\\fP";
    isName = isName && isPartOfName;
    if (c == '-' && (i == 0 || text[i - 1] == ' ')) {
      result += "\\fB";
      isName = true;
    }
    result += c == '-' ? std::string("\\-") : std::string(1, c);
  }
  if (isName) result += "\\fP";
  return Replaced(std::move(result), ". ", ".\n");
}

std::string ManualArgument(const Option& option) {
  if (const Word* const word = std::get_if<Word>(&option.kind)) {
    return " \\fB" + Replaced(Replaced(std::string(word->words), "-", "\\-"), " ", "\\fP | \\fB") +
           "\\fP";
  }
  if (const Number* const number = std::get_if<Number>(&option.kind)) {
    return " \\fI" + std::string(number->argument) + "\\fP";
  }
  if (!TakesValue(option)) return {};
  return std::holds_alternative<File>(option.kind) ? " \\fIFILE\\fP" : " \\fITEXT\\fP";
}

std::string ManualItem(const Option& option) {
  const auto bold = [](const std::string& name) {
    return "\\fB" + Replaced(name, "-", "\\-") + "\\fP";
  };
  std::vector<std::string> names;
  for (const std::string& name : NamesOf(option)) names.push_back(bold(name));
  std::string help = std::string(option.help) + ".";
  // A value of the option at the beginning, such as "text:", keeps its lower case.
  const bool beginsWithValue =
      ValuesOf(option).find(help.substr(0, help.find_first_of(" ,:"))) != std::string::npos;
  if (!beginsWithValue) help[0] = static_cast<char>(help[0] - 'a' + 'A');
  if (!option.more.empty()) help.append(" ").append(option.more);
  return ".TP\n" + Joined(names, ", ") + ManualArgument(option) + "\n" +
         (IsPair(option) ? ".TQ\n" + bold(OffName(option)) + "\n" : "") + Roff(help) + "\n";
}

std::string Manual(const Option& option) {
  const Option* const before = &option == AllOptions().data() ? nullptr : &option - 1;
  const bool isFirst = before == nullptr || before->group != option.group;
  return (isFirst ? ".SS " + std::string(option.group) + "\n" : "") + ManualItem(option);
}

std::string ListOf(std::string (*entry)(const Option&)) {
  std::string list;
  for (const Option& option : AllOptions()) {
    if (!option.names.empty()) list += entry(option);
  }
  return list;
}

void Fill(std::istream& page) {
  const std::map<std::string, std::string (*)(const Option&)> lists = {
      {"@BASH_CASES@", BashCase},
      {"@BASH_OPTIONS@", BashOption},
      {"@FISH@", Fish},
      {"@MANUAL@", Manual},
      {"@ZSH@", Zsh}};
  for (std::string line; std::getline(page, line);) {
    const auto list = lists.find(line);
    std::cout << (list == lists.end() ? line + "\n" : ListOf(list->second));
  }
}

}  // namespace
}  // namespace quorvel

int main(int argumentCount, char** arguments) {
  std::ifstream page(argumentCount == 2 ? arguments[1] : "");
  if (!page) {
    std::cerr << "usage: option_lists TEMPLATE\n";
    return 2;
  }
  quorvel::Fill(page);
  return std::cout.flush() ? 0 : 1;
}
