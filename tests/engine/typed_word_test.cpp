#include "engine/typed_word.h"

#include <gtest/gtest.h>

#include "support/scanned_text.h"

namespace quorvel {

TEST(TypedWord, FindsWholeWordsThenBeginnings) {
  const WordTable table = MadeTable({{u"Étude", {}},
                                     {u"ship", {}},
                                     {u"shipping", {}},
                                     {u"Straße", {}},
                                     {u"strasse", {}},
                                     {u"über", {}},
                                     {u"ubermensch", {}},
                                     {u"ueberall", {}}});
  const std::vector<EntryIndex> entries = Entries({7, 6, 5, 4, 3, 2, 1, 0});
  // The typed text, and the entries that are found.
  const std::pair<std::u16string_view, std::vector<std::int32_t>> rows[] = {
      {u"uber", {5}}, {u"UEBER", {5}},   {u"über", {5}}, {u"ub", {6}},
      {u"etu", {0}},  {u"ship", {1}},    {u"sh", {2}},   {u"strasse", {4, 3}},
      {u"x", {}},     {u"s*p*", {2, 1}}, {u"u???", {5}}, {u"ueb", {7}}};
  for (const Reading reading : {Reading::windows1252, Reading::unicode}) {
    for (const auto& [text, found] : rows) {
      const TypedWord typed(text, Alphabet::Of(reading));
      EXPECT_EQ(FindTyped(typed, table, entries), Entries(found)) << testing::PrintToString(text);
    }
  }
}

}  // namespace quorvel
