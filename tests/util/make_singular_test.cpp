#include "util/make_singular.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(MakeSingular, DropsTheLastLetterOfPlurals) {
  const std::pair<const char16_t*, std::vector<std::u16string>> rows[] = {
      {u"", {u"", u"s", u"as", u"ts", u"cat", u"dogS", u"DOGS"}},
      {u"",
       {u"glass", u"dog's", u"gas", u"this", u"cafés", u"plus", u"ics", u"physics", u"PHYSICs"}},
      {u"", {u"maths", u"Stats", u"ARMs", u"dickens", u"always", u"perhaps"}},
      {u"s", {u"its", u"news", u"dogs", u"cafÉs", u"skys", u"bœs", u"12s", u"alarms"}}};
  for (const auto& [dropped, words] : rows) {
    for (const std::u16string& word : words) {
      EXPECT_EQ(std::u16string(MakeSingular(word)) + dropped, word);
    }
  }
}

}  // namespace
}  // namespace quorvel
