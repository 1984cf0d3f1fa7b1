#include "engine/token_edges.h"

#include <gtest/gtest.h>

#include "support/latin.h"
#include "support/made_texts.h"

namespace quorvel {

TEST(TokenEdges, AreThoseOfAWalkOverAllCharacters) {
  const std::vector<std::vector<std::u16string>> characters = {
      {u" ", u"a", u".", u"abcdefghijklmnopqrstuvwxyz-0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
      {u"@", u"[", u"`", u"{", u"/", u":", u",", u"\x7F", u"-", u"z", u"0"},
      {u"é", u"×", u"\x80", u"Ÿ", u"ž", u"\u2013", u"a", u"\u0161", u"\u0461"},
      {u"a", u" ", u"\U00010330", u"\U0001F600", u"\U0001D7D8", u"\u0301", u"\xD800", u"\xDF30"}};
  std::mt19937 random(3);
  for (int round = 0; round < 3000; ++round) {
    const Alphabet& alphabet = round % 2 == 0 ? latin : Alphabet::Unicode();
    const std::u16string whole = RandomText(characters[random() % 4], 150, random) + u"abc";
    // The letters after the text in memory do not belong to it.
    const auto text = std::u16string_view(whole).substr(0, whole.size() - 3);
    TokenEdges all(text, alphabet);
    TokenEdges beginnings(text, alphabet, 0, TokenEdges::Firsts().set());
    const TokenEdges::Firsts few = round % 3 + 1;  // the characters 0, 1, or both, modulo 32
    TokenEdges chosen(text, alphabet, 0, few);
    bool inToken = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (inToken == alphabet.IsWordCharacterAt(text, i)) continue;
      inToken = !inToken;
      ASSERT_EQ(all.Next(), i) << testing::PrintToString(whole);
      if (inToken) {
        ASSERT_EQ(beginnings.Next(), i) << testing::PrintToString(whole);
        if (few[text[i] % 32U]) {
          ASSERT_EQ(chosen.Next(), i) << testing::PrintToString(whole);
        }
      }
    }
    for (TokenEdges* edges : {&all, &all, &beginnings, &chosen})
      ASSERT_EQ(edges->Next(), text.size());
  }
}

}  // namespace quorvel
