// The output form of a text: its encoding and its line ends.
//
// A listing is composed in one form and may be needed in another, for example on a terminal. It is
// converted piece by piece while it is written.
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// The line end of every file that the program writes.
inline constexpr std::string_view LINE_END = "\r\n";

enum class Coding { windows1252, utf8 };

struct TextForm {
  Coding coding = Coding::windows1252;
  bool endsInCrLf = true;  // line ends are CR LF; otherwise LF

  bool operator==(const TextForm&) const = default;
};

// Converts a text with CR LF line ends to another form. A character that Windows-1252 lacks becomes
// "?". A byte that is not valid UTF-8 is taken as Windows-1252. A CR without LF stays.
class FormConverter {
 public:
  FormConverter(Coding from, const TextForm& to) : from_(from), to_(to) {}

  // Converts the next piece. An incomplete end (a CR, or part of a character) is kept and converted
  // with the next piece.
  [[nodiscard]] std::string Next(std::string piece);

  // Converts what was kept. Call it after the last piece.
  [[nodiscard]] std::string End();

 private:
  [[nodiscard]] std::string Changed(std::string text) const;
  [[nodiscard]] std::size_t OpenEnd(std::string_view text) const;

  Coding from_;
  TextForm to_;
  std::string kept_;
};

// Converts a whole text.
[[nodiscard]] std::string InForm(std::string text, Coding from, const TextForm& to);

}  // namespace quorvel
