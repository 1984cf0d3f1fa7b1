#include "lines/typed_word.h"

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
  const std::vector<std::int32_t> entries = {7, 6, 5, 4, 3, 2, 1, 0};
  // The number of the word that is found, and all that fit as a whole.
  const std::tuple<std::u16string_view, int, std::string> rows[] = {
      {u"uber", 5, "5"}, {u"UEBER", 5, "5"},  {u"über", 5, "5"}, {u"ub", 6, ""},
      {u"etu", 0, ""},   {u"ship", 1, "1"},   {u"sh", 2, ""},    {u"strasse", 4, "43"},
      {u"x", -1, ""},    {u"s*p*", -2, "21"}, {u"u???", -2, "5"}};
  for (const Reading reading : {Reading::windows1252, Reading::unicode}) {
    for (const auto& [text, number, all] : rows) {
      const TypedWord typed(text, Alphabet::Of(reading));
      const auto found = FindTyped(typed, table, entries);
      if (number == -2) {
        EXPECT_TRUE(typed.IsPattern());
      } else {
        EXPECT_EQ(found ? entries[*found] : -1, number) << testing::PrintToString(text);
      }
      std::string whole;
      for (const std::int32_t entry : entries) {
        const bool fits =
            typed.FitOf(table.entries[static_cast<std::size_t>(entry)]) == TypedWord::Fit::whole;
        if (fits) whole += std::to_string(entry);
      }
      EXPECT_EQ(whole, all) << testing::PrintToString(text);
    }
  }
}

}  // namespace quorvel
