#include "input/utf8_repair.h"

#include <bitset>
#include <cstdint>
#include <optional>
#include <string_view>

#include "input/pair_repair.h"

// RepairUtf8 is defined by replacements in the whole text: find a lead byte, look at the next byte,
// replace every such pair in the text, continue at the next byte. Done literally, a text with sixty
// different letters is walked sixty times. Where pairs do not interact, one walk finds the kinds of
// pairs to replace and a second one writes the text. Pairs interact when a replacement can form new
// pairs (two lead bytes in a row, or a letter that is itself a lead byte) or can move a pair to a
// place that the search has passed. Such texts are rare. In these the first replacements are made
// one after the other; the remaining ones, which can be thousands in a malicious text, use
// pair_repair.h.

namespace quorvel {
namespace {

constexpr char LEAD_194 = '\xC2';
constexpr char LEAD_195 = '\xC3';
constexpr std::string_view C_WITH_CARON = "\xC4\x8D";
constexpr std::string_view PUNCTUATION_LEAD = "\xE2\x80";

constexpr PairRule RULE_194 = {LEAD_194, 160, 0};
constexpr PairRule RULE_195 = {LEAD_195, 128, 64};

void ReplaceEverywhere(std::string& text, std::string_view from, std::string_view to) {
  std::size_t found = text.find(from);
  if (found == std::string::npos) return;
  std::string result;
  std::size_t done = 0;
  for (; found != std::string::npos; found = text.find(from, done)) {
    result.append(text, done, found - done).append(to);
    done = found + from.size();
  }
  text = result.append(text, done);
}

void RepairOneByOne(std::string& text, const PairRule& rule) {
  constexpr int MOST_WALKS = 3;
  std::size_t start = 0;
  for (int walks = 0; walks < MOST_WALKS; ++walks) {
    const std::size_t found = text.find(rule.lead, start);
    if (found == std::string::npos || found + 1 == text.size()) return;
    const std::uint8_t next = ByteAt(text, found + 1);
    // The search never moves past such a pair, so the pass ends.
    if (!PairRule::Covers(next)) return;
    const std::string pair = text.substr(found, 2);
    const std::string replacement(rule.Removes(next) ? 0 : 1, rule.Replacement(next));
    ReplaceEverywhere(text, pair, replacement);
    start = found + 1;
  }
  FinishPass(text, rule, start);
}

using PairKinds = std::bitset<256>;

// True when replacing the pair at index `place` could change how others are found: by putting a
// lead byte before a continuation byte, or by moving the next pair to a place that the search has
// passed.
bool Interacts(std::string_view text, const PairRule& rule, std::size_t place) {
  const std::uint8_t next = ByteAt(text, place + 1);
  if (text[place + 1] == rule.lead) return true;
  if (!PairRule::Covers(next)) return false;
  if (!rule.Removes(next)) return rule.Replacement(next) == rule.lead;
  return place + 2 < text.size() && text[place + 2] == rule.lead;
}

// The second bytes of all pairs that are replaced: the kinds found before the first lead byte that
// begins no pair. Returns nothing when pairs interact.
std::optional<PairKinds> FindKinds(std::string_view text, const PairRule& rule) {
  PairKinds kinds;
  bool searching = true;
  for (std::size_t place = text.find(rule.lead); place != std::string_view::npos;
       place = text.find(rule.lead, place + 1)) {
    if (place + 1 == text.size()) break;
    if (Interacts(text, rule, place)) return std::nullopt;
    const std::uint8_t next = ByteAt(text, place + 1);
    searching = searching && PairRule::Covers(next);
    if (searching) kinds.set(next);
  }
  return kinds;
}

void ReplaceKinds(std::string& text, const PairRule& rule, const PairKinds& kinds) {
  std::size_t out = 0;
  for (std::size_t in = 0; in < text.size(); ++in) {
    const bool pair = text[in] == rule.lead && in + 1 < text.size() && kinds[ByteAt(text, in + 1)];
    if (!pair) {
      text[out++] = text[in];
    } else if (const std::uint8_t next = ByteAt(text, ++in); !rule.Removes(next)) {
      text[out++] = rule.Replacement(next);
    }
  }
  text.resize(out);
}

void RepairPairs(std::string& text, const PairRule& rule) {
  const std::optional<PairKinds> kinds = FindKinds(text, rule);
  if (!kinds) {
    RepairOneByOne(text, rule);
  } else if (kinds->any()) {
    ReplaceKinds(text, rule, *kinds);
  }
}

// The plain form of the punctuation mark with the third byte `x`, or an empty view.
std::string_view PlainFormOf(std::uint8_t x) {
  switch (x) {
    case 144:
    case 145:
    case 146:
    case 147:
      return "-";
    case 148:
      return " -- ";
    case 149:
      return "--";
    case 150:
      return "|";
    case 151:
      // Compatibility: the double low line becomes the per-mille sign, and users' listings depend
      // on it.
      return "\x89";
    case 152:
    case 153:
    case 154:
    case 155:
      return "'";
    case 156:
    case 157:
    case 158:
    case 159:
      return "\"";
    case 162:
      return " . ";
    case 166:
      return "...";
    case 185:
      return "<";
    case 186:
      return ">";
    default:
      return {};
  }
}

}  // namespace

void RepairUtf8(std::string& text) {
  RepairPairs(text, RULE_194);
  RepairPairs(text, RULE_195);
  ReplaceEverywhere(text, C_WITH_CARON, "c");
}

bool IsRepaired(std::uint32_t codePoint) {
  constexpr std::uint32_t SMALL_C_WITH_CARON = 0x10D;
  constexpr std::uint32_t PUNCTUATION = 0x2000;  // the first one with PUNCTUATION_LEAD
  if (codePoint < 0x100 || codePoint == SMALL_C_WITH_CARON) return true;
  if (codePoint < PUNCTUATION || codePoint >= PUNCTUATION + 0x40) return false;
  return !PlainFormOf(static_cast<std::uint8_t>(0x80 + codePoint - PUNCTUATION)).empty();
}

void PlainPunctuation(std::string& text) {
  std::size_t found = text.find(PUNCTUATION_LEAD);
  if (found == std::string::npos) return;
  if (found + 2 == text.size() || PlainFormOf(ByteAt(text, found + 2)).empty()) {
    text.erase(found, 3);
    return;
  }
  std::string result;
  result.reserve(text.size());
  std::size_t done = 0;
  for (; found != std::string::npos && found + 2 < text.size();
       found = text.find(PUNCTUATION_LEAD, found)) {
    const std::string_view plain = PlainFormOf(ByteAt(text, found + 2));
    if (plain.empty()) {
      found += 2;
      continue;
    }
    result.append(text, done, found - done).append(plain);
    found += 3;
    done = found;
  }
  text = result.append(text, done);
}

}  // namespace quorvel
