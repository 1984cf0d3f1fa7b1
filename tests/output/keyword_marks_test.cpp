#include "output/keyword_marks.h"

#include <gtest/gtest.h>

#include "naive/places.h"
#include "support/made_texts.h"
#include "util/ansi.h"
#include "util/characters.h"

namespace quorvel {
namespace {

constexpr const char* OPENING = "\xAB";
constexpr const char* CLOSING = "\xBB";

// One replacement after the other, each over the whole context.
std::string MarkedSlowly(std::string context, const std::u16string& word) {
  std::u16string capitalized = word;
  capitalized[0] = ToUpperCase(word[0]);
  for (const std::u16string& form : {word, capitalized}) {
    const std::string bytes = EncodeAnsi(form);
    context = naive::Replace(context, bytes, OPENING + bytes + CLOSING);
    if (capitalized == word) break;
  }
  return naive::Replace(context, std::string(CLOSING) + "s", std::string("s") + CLOSING);
}

TEST(KeywordMarks, AreThoseOfReplacements) {
  const std::pair<std::u16string, std::vector<std::string>> rows[] = {
      {u"cat", {"cat", "Cat", "CAT", "s", "scatter ", "ca", " "}},
      {u"aba", {"a", "b", "A", "Aba", "s", "B"}},
      {u"Ssa", {"S", "s", "a", "Ssa", "sa"}},
      {u"sos", {"s", "S", "o", "sos", "So"}},
      {u"\u00e9t\u00e9", {"\xE9", "t", "\xC9", "\xC9t\xE9", "s"}}};
  std::mt19937 random(1);
  for (int i = 0; i < 800; ++i) {
    for (const auto& [word, parts] : rows) {
      std::vector<std::string> withMarks = parts;
      if (i % 2 == 0) withMarks.insert(withMarks.end(), {CLOSING, OPENING});
      const std::string context = RandomText(withMarks, 12, random);
      const bool marksInText = context.find(PLURAL_MARK) != std::string::npos;
      std::string marked = "before\xBBs";
      KeywordMarker(word, marksInText).MarkKeywordInContext(marked, context);
      ASSERT_EQ(marked, "before\xBBs" + MarkedSlowly(context, word)) << context;
    }
  }
}

}  // namespace
}  // namespace quorvel
