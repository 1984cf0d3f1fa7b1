#include "settings/settings_file.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <variant>

#include "files/file_system.h"
#include "files/read_file.h"
#include "settings/option_table.h"
#include "util/ansi.h"
#include "util/ascii.h"
#include "util/text_form.h"
#include "util/utf8.h"

// Texts are written between double quotes without escapes. A text with a double quote is still read
// back correctly, because it ends with its line.

namespace quorvel {
namespace {

// Typed words are stored as Windows-1252. Paths are stored as the file system's own bytes, so that
// each can be read back; on Windows they are converted to Windows-1252.
std::string AnsiBytes(std::string_view utf8) { return EncodeAnsi(DecodeUtf8(utf8)); }

std::string Utf8OfAnsi(std::string_view bytes) { return EncodeUtf8(DecodeAnsi(bytes)); }

#ifdef _WIN32
std::string PathBytes(std::string_view path) { return AnsiBytes(path); }
std::string PathOfBytes(std::string_view bytes) { return Utf8OfAnsi(bytes); }
#else
std::string PathBytes(std::string_view path) { return std::string(path); }
std::string PathOfBytes(std::string_view bytes) { return std::string(bytes); }
#endif

std::string TextLine(const std::string& bytes) {
  return "\"" + bytes + "\"" + std::string(LINE_END);
}

std::string NumberLine(int number) { return std::to_string(number) + std::string(LINE_END); }

// The line of an option, or both lines of the mode.
struct OptionWriter {
  const ConcordanceSettings& settings;

  std::string operator()(const Flag& flag) const {
    return NumberLine(settings.*flag.field ? 1 : 0);
  }
  std::string operator()(const Number& number) const {
    return NumberLine(settings.*number.field - number.least);
  }
  std::string operator()(const Word& word) const {
    return NumberLine(static_cast<int>(settings.*word.field));
  }
  std::string operator()(const Text& text) const {
    return TextLine(AnsiBytes(settings.*text.field));
  }
  std::string operator()(const File& file) const {
    return TextLine(PathBytes(settings.*file.field));
  }
  std::string operator()(const ModeLines& mode) const {
    const bool create = settings.*mode.field == Mode::create;
    return NumberLine(create ? 1 : 0) + NumberLine(create ? 0 : 1);
  }
  std::string operator()(const Shown& /*kind*/) const { return {}; }
};

std::string FileBytes(const ConcordanceSettings& settings) {
  std::string bytes;
  for (int line = 1; line <= SETTINGS_LINES; ++line) {
    const Option* const option = OptionOnLine(line);
    if (option != nullptr) bytes += std::visit(OptionWriter{settings}, option->kind);
  }
  return bytes;
}

std::size_t CountLines(std::string_view bytes) {
  std::size_t lines = 0;
  for (std::size_t end = bytes.find(LINE_END); end != std::string_view::npos;
       end = bytes.find(LINE_END, end + LINE_END.size())) {
    ++lines;
  }
  return lines;
}

// The list index for no selection.
constexpr int NO_SELECTION = -1;

// Reads the values of a file in order. After the first fault, all further values are left
// unchanged.
class ValueReader {
 public:
  explicit ValueReader(std::string_view bytes) : rest_(bytes) {}

  [[nodiscard]] const std::string& Wrong() const { return fault_; }

  void Path(std::string& path) {
    if (const auto text = NextText()) path = PathOfBytes(*text);
  }

  void Words(std::string& words) {
    if (const auto text = NextText()) words = Utf8OfAnsi(*text);
  }

  // Reads a check box: a text whose leading digits are its value.
  void Box(bool& ticked) {
    const auto text = NextText();
    if (!text) return;
    const std::string_view digits =
        text->substr(std::min(text->find_first_not_of(' '), text->size()));
    const std::size_t length = std::min(digits.find_first_not_of("0123456789"), digits.size());
    const std::size_t zeros = std::min(digits.find_first_not_of('0'), length);
    ticked = digits.substr(zeros, length - zeros) == "1";
  }

  std::optional<int> Number() {
    const auto line = NextLine();
    if (!line) return std::nullopt;
    const std::string_view digits = TrimBlanks(*line);
    int number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [behind, error] = std::from_chars(digits.data(), end, number);
    if (error == std::errc() && behind == end) return number;
    return Fail("line " + std::to_string(lines_) + " is not a number.");
  }

  // Reads an index into a list of `count` choices, or NO_SELECTION.
  std::optional<int> Place(int count) {
    const std::optional<int> place = Number();
    if (!place || (*place >= NO_SELECTION && *place < count)) return place;
    return Fail("line " + std::to_string(lines_) + " is out of range.");
  }

 private:
  std::nullopt_t Fail(std::string fault) {
    fault_ = std::move(fault);
    return std::nullopt;
  }

  std::optional<std::string_view> NextLine() {
    if (!fault_.empty()) return std::nullopt;
    if (rest_.empty()) {
      return Fail("the file ends after line " + std::to_string(lines_) + ".");
    }
    ++lines_;
    const std::size_t length = std::min(rest_.find(LINE_END), rest_.size());
    const std::string_view line = rest_.substr(0, length);
    rest_.remove_prefix(std::min(length + LINE_END.size(), rest_.size()));
    return line;
  }

  // The text on the next line, without its quotes.
  std::optional<std::string_view> NextText() {
    auto line = NextLine();
    if (!line || !line->starts_with('"')) return line;
    line->remove_prefix(1);
    if (line->ends_with('"')) line->remove_suffix(1);
    return line;
  }

  std::string_view rest_;
  int lines_ = 0;
  std::string fault_;
};

// Reads the line of an option, or both lines of the mode.
struct OptionReader {
  ValueReader& values;
  ConcordanceSettings& settings;
  bool starting = false;
  bool& modeSelected;
  bool& placesSelected;  // becomes false when a list has no selection

  void operator()(const Flag& flag) const { values.Box(settings.*flag.field); }
  void operator()(const Number& number) const {
    if (const auto place = Place(number.most - number.least + 1, number.mustBeSelected)) {
      settings.*number.field = *place + number.least;
    }
  }
  void operator()(const Word& word) const {
    const auto blanks = std::ranges::count(word.words, ' ');
    if (const auto place = Place(static_cast<int>(blanks) + 1, true)) {
      settings.*word.field = static_cast<WordOrder>(*place);
    }
  }
  void operator()(const Text& text) const { values.Words(settings.*text.field); }
  void operator()(const File& file) const { values.Path(settings.*file.field); }
  void operator()(const ModeLines& mode) const {
    const std::optional<int> create = values.Number();
    const std::optional<int> search = values.Number();
    if (!create || !search) return;
    if (starting || create == 1) settings.*mode.field = Mode::create;
    if (!starting && search == 1) settings.*mode.field = Mode::search;
    modeSelected = starting || create == 1 || search == 1;
  }
  void operator()(const Shown& /*kind*/) const {}

  [[nodiscard]] std::optional<int> Place(int count, bool mustBeSelected) const {
    const std::optional<int> place = values.Place(count);
    if (place != NO_SELECTION) return place;
    if (mustBeSelected) placesSelected = false;
    return std::nullopt;
  }
};

// Clears a path whose file does not exist any more.
void KeepExisting(std::string& path) {
  path = TrimBlanks(path);
  if (!FileExists(path)) path.clear();
}

}  // namespace

std::string StateFilePath() {
  return JoinPath(JoinPath(UserConfigurationFolder(), "Quorvel"), "qvl.usr");
}

std::string SaveState(const ConcordanceSettings& settings, const std::string& path,
                      const FilesToKeep& kept) {
  const std::string target = path.empty() ? StateFilePath() : path;
  if (path.empty()) MakeFoldersFor(target);
  const std::string prefix = "Error when attempting to save settings: ";
  const std::string bytes = FileBytes(settings);
  if (CountLines(bytes) != SETTINGS_LINES)
    return prefix + "A file name or a text contains a line break";
  if (settings.reading == Reading::unicode) {
    for (const std::string& words : {settings.extraKeywords, settings.extraStopWords}) {
      if (Utf8OfAnsi(AnsiBytes(words)) == words) continue;
      return (prefix + '"').append(words).append("\" has characters that are not in Windows-1252");
    }
  }
  OutputFile file(target, kept, Targets::ordinaryFiles);
  file.Write(bytes);
  if (file.Commit()) return {};
  if (file.Error()->kind == FaultKind::wouldReplace) {
    return "The settings file cannot be the same as the " + file.Error()->reason + ".";
  }
  return prefix + file.Error()->reason;
}

RestoredState RestoreSavedState(ConcordanceSettings& settings, const std::string& path,
                                bool starting) {
  const std::string prefix = "Error when attempting to restore settings: ";
  constexpr std::uint64_t LONGEST_FILE = 1U << 20U;  // bytes
  const Result<std::string> bytes =
      ReadFileBytes(path.empty() ? StateFilePath() : path, LONGEST_FILE);
  if (!bytes) return {prefix + bytes.Error().reason};
  RestoredState result;
  ValueReader values(*bytes);
  bool placesSelected = true;
  const OptionReader reader{values, settings, starting, result.modeSelected, placesSelected};
  for (int line = 1; line <= SETTINGS_LINES; ++line) {
    if (const Option* const option = OptionOnLine(line)) std::visit(reader, option->kind);
  }
  if (!values.Wrong().empty()) {
    result.errorText = prefix + values.Wrong();
    return result;
  }
  // Reported last, because a missing selection does not stop the other values from being read.
  if (!placesSelected) result.errorText = "Invalid combo box index";
  for (const Option& option : AllOptions()) {
    const File* const file = std::get_if<File>(&option.kind);
    if (file != nullptr && file->mustExist) KeepExisting(settings.*file->field);
  }
  return result;
}

}  // namespace quorvel
