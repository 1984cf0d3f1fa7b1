#include "input/entities.h"

#include <gtest/gtest.h>

#include "naive/naive_html.h"
#include "support/made_texts.h"

namespace quorvel {
namespace {

std::string Decoded(std::string text) {
  DecodeEntities(text);
  return text;
}

TEST(Entities, AreDecoded) {
  const char* rows[][3] = {
      {"in words", "&eacute;t&eacute;", "\xE9t\xE9"},
      {"the quotation mark, which the table lacks", "&quot;a&quot;", "\"a\""},
      {"a lone & hides the next one", "R&D, &eacute;t&eacute;", "R&D, &eacute;t\xE9"},
      {"a decoded & begins none", "&amp;eacute;&amp;amp;", "&eacute;&amp;"},
      {"unknown ones stay", "&Yuml;&eacutex;&#8211;&;&yuml ;&",
       "&Yuml;&eacutex;&#8211;&;&yuml ;&"}};
  for (const auto& [name, text, expected] : rows) EXPECT_EQ(Decoded(text), expected) << name;
  EXPECT_EQ(Decoded(naive::ENTITY_TABLE), naive::DecodeEntities(naive::ENTITY_TABLE));
}

TEST(Entities, OfHostileTextsTakeLinearTime) {
  constexpr int MANY = 200000;
  EXPECT_EQ(Decoded(Repeated("&", MANY)), Repeated("&", MANY));
  EXPECT_EQ(Decoded(Repeated("&eacute;&no;", MANY)), Repeated("\xE9&no;", MANY));
}

}  // namespace
}  // namespace quorvel
