// The form in which a text leaves the program: its encoding, and what ends its lines.
//
// A listing is composed in one form and may be wanted in another, by a terminal, say. It is brought
// into that while it is written, piece by piece. Nothing here knows what the text is about.
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

enum class Coding { windows1252, utf8 };

struct TextForm {
  Coding coding = Coding::windows1252;
  bool endsInCrLf = true;  // each line; else in LF

  bool operator==(const TextForm&) const = default;
};

// Brings a text, whose lines end in CR LF, into another form. A character that Windows-1252 does
// not have becomes "?" there, and a byte that is not UTF-8 where it ought to be passes for
// Windows-1252. A CR that no LF follows stays.
class FormChanger {
 public:
  FormChanger(Coding from, const TextForm& to) : from_(from), to_(to) {}

  // The next piece in the new form. What its end leaves open, between CR and LF or within a
  // character, is kept for the piece after it.
  [[nodiscard]] std::string Next(std::string piece);

  // What was kept, when there is no further piece.
  [[nodiscard]] std::string End();

 private:
  [[nodiscard]] std::string Changed(std::string text) const;
  [[nodiscard]] std::size_t OpenEnd(std::string_view text) const;

  Coding from_;
  TextForm to_;
  std::string kept_;
};

// A whole text in another form.
[[nodiscard]] std::string InForm(std::string text, Coding from, const TextForm& to);

}  // namespace quorvel
