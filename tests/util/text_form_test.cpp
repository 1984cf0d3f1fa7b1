#include "util/text_form.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

constexpr TextForm ANSI_FILE = {Coding::windows1252, true};
constexpr TextForm UTF8_FILE = {Coding::utf8, true};
constexpr TextForm UTF8_LINES = {Coding::utf8, false};

// The pieces can end anywhere.
TEST(TextForm, ChangesATextInPieces) {
  const struct {
    const char* name;
    std::string text;
    Coding from;
    TextForm to;
    std::string changed;
  } rows[] = {
      {"to a terminal", "\x80 caf\xE9\r\n\r\nx", Coding::windows1252, UTF8_LINES,
       "\u20ac caf\u00e9\n\nx"},
      {"to a file", "\xE9\r\n", Coding::windows1252, UTF8_FILE, "\u00e9\r\n"},
      {"line ends alone", "\u00e9\r\n\u20ac\r\n", Coding::utf8, UTF8_LINES, "\u00e9\n\u20ac\n"},
      {"lone CR and LF", "\ra\r\r\n\nb\r", Coding::windows1252, UTF8_LINES, "\ra\r\n\nb\r"},
      {"as it is", "\xE9\xC3\r\n", Coding::windows1252, ANSI_FILE, "\xE9\xC3\r\n"},
      {"two, three and four bytes", "\u00e9\u2013\u20ac\U0001F600\u0416.", Coding::utf8, ANSI_FILE,
       "\xE9\x96\x80??."},
      {"no UTF-8", "\xC3(\xE2\x82\xF0\xFF\xE2\x82", Coding::utf8, ANSI_FILE,
       "\xC3(\xE2\x82\xF0\xFF\xE2\x82"}};
  for (const auto& [name, text, from, to, changed] : rows) {
    EXPECT_EQ(InForm(text, from, to), changed) << name;
    for (std::size_t first = 0; first <= text.size(); ++first) {
      for (std::size_t second = 0; second <= text.size() - first; ++second) {
        FormConverter changer(from, to);
        std::string found = changer.Next(text.substr(0, first));
        found += changer.Next(text.substr(first, second));
        found += changer.Next(text.substr(first + second));
        EXPECT_EQ(found + changer.End(), changed) << name << ' ' << first << ' ' << second;
      }
    }
  }
}

}  // namespace
}  // namespace quorvel
