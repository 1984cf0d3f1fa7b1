// Tests the repair with texts in which a replaced pair of bytes forms a new pair.

#include "input/pair_repair.h"

#include <gtest/gtest.h>

#include "input/utf8_repair.h"
#include "naive/naive_forms.h"
#include "support/made_texts.h"

namespace quorvel {
namespace {

// Longer and longer runs. Each is reached when it has become a pair.
std::string Stairs(std::string_view lead, std::string_view next, int steps) {
  std::string text;
  for (int step = 1; step <= steps; ++step) text += Repeated(lead, step) + Repeated(next, step);
  return text;
}

// Texts of few different bytes, so that replacements form new pairs many times. Some pairs must be
// searched for many times, so that the search is long.
TEST(PairRepair, IsItsNaiveForm) {
  const std::vector<std::string> leads = {"\xC2", "\xC3", "\xC2\xC2", "\xC3\x83"};
  const std::vector<std::string> others = {"\xC2", "\xC2\xC2", "\xC3",     "\x80",
                                           "\x85", "\x83",     "\xA9",     "\x83\x83",
                                           "\xA3", "\xC2\x80", "\x80\x80", "x"};
  // Pairs that the first passes replace. These passes are enough for most texts.
  const std::string USUAL = "\xC2\xA1\xC2\xA2\xC2\xA3\xC3\x80\xC3\x81\xC3\x82";
  std::mt19937 random(1);
  std::vector<std::string> texts;
  for (int i = 0; i < 8000; ++i) {
    std::vector<std::string> few = {leads[random() % leads.size()]};
    for (auto more = 1 + random() % 4; more > 0; --more) {
      few.push_back(others[random() % others.size()]);
    }
    texts.push_back((i % 2 == 0 ? USUAL : "") + RandomText(few, 120, random));
  }
  for (const char* lead : {"\xC2", "\xC3", "\xC3\x83", "\xC2\xC2"}) {
    for (const char* next : {"\x80", "\x83", "\xA9", "\x80\x81", "\xA9\x83"}) {
      texts.push_back("\xC2\x80" + Stairs(lead, next, 30));
    }
  }
  for (const std::string& text : texts) {
    std::string repaired = text;
    RepairUtf8(repaired);
    ASSERT_EQ(repaired, naive::RepairUtf8(text)) << testing::PrintToString(text);
  }
}

}  // namespace
}  // namespace quorvel
