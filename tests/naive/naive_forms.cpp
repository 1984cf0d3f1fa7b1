#include "naive/naive_forms.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "naive/places.h"

namespace quorvel::naive {
namespace {

using Text = std::u16string;

const Text LOWER = u"abcdefghijklmnopqrstuvwxyzšœÿàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþß";
const Text UPPER = u"ABCDEFGHIJKLMNOPQRSTUVWXYZŠŒŸÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ";
const Text LOWER_VOWELS = u"aeiouàáâãäåæèéêëìíîïòóôõöøùúûü";

bool Contains(const Text& set, const Text& what) { return Find(set, 1, what) > 0; }

// Replaces each character of `from` in `s` by the `width` characters at its place in `to`.
Text MapCharacters(const Text& s, const Text& from, const Text& to, int width) {
  Text result;
  for (int i = 1; i <= Length(s); ++i) {
    const Text ch = Mid(s, i, 1);
    const int k = Find(from, 1, ch);
    result += k > 0 ? Mid(to, width * (k - 1) + 1, width) : ch;
  }
  return result;
}

Text ToUpperCase(const Text& s) { return MapCharacters(s, Left(LOWER, Length(UPPER)), UPPER, 1); }

Text RemoveChars(const Text& s, const Text& set) { return MapCharacters(s, set, u"", 1); }

bool IsWordCharacter(const Text& ch) {
  return Length(ch) == 1 && Contains(LOWER + UPPER + u"-0123456789", ch);
}

// The result is one more than the remaining characters if the run reaches the end of the text.
int LetterRunLength(const Text& text, int start) {
  int i = start;
  while (IsWordCharacter(Mid(text, i, 1))) ++i;
  return i - start + (i > Length(text) ? 1 : 0);
}

Text ToDecimal(int number) {
  const std::string digits = std::to_string(number);
  return Text(digits.begin(), digits.end());
}

Text ToLowerCase(Text s) {
  s = MapCharacters(s, u"ŠŸÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝ", u"šÿàáâãäåçèéêëìíîïðñòóôõöøùúûüý", 1);
  return MapCharacters(s, u"ABCDEFGHIJKLMNOPQRSTUVWXYZŒÆÞŽ", u"abcdefghijklmnopqrstuvwxyzœæþž", 1);
}

Text FoldForKey(const Text& s) {
  const Text transliterated = MapCharacters(s, u"ŒÄÆÖÜäæöüß", u"OeAeAeOeUeaeaeoeuess", 2);
  return MapCharacters(transliterated,
                       u"ŠŸÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝšÿàáâãäåçèéêëìíîïñòóôõöøùúûüý",
                       u"SYAAAAAACEEEEIIIIDNOOOOOOUUUUYsyaaaaaaceeeeiiiinoooooouuuuy", 1);
}

Text MakeSingular(const Text& word) {
  const Text lower = ToLowerCase(word);
  if (Right(lower, 3) == u"ics") return word;
  if (Contains(u" maths stats arms dickens always perhaps ", u" " + lower + u" ")) return word;
  const int length = Length(word);
  if (length < 3 || Right(word, 1) != u"s") return word;
  if (Right(word, 2) == u"ss" || Right(word, 2) == u"'s") return word;
  if (Contains(LOWER_VOWELS, Mid(word, length - 1, 1))) return word;
  return Left(word, length - 1);
}

bool IsContractionStem(const Text& word) {
  return Contains(u"aren couldn didn doesn hadn hasn isn shouldn wasn weren wouldn ",
                  ToLowerCase(word) + u" ");
}

Text GetWord(const Text& text, int& scanPosition) {
  const int length = LetterRunLength(text, scanPosition);
  Text word = Mid(text, scanPosition, length);
  scanPosition += length;
  if (RemoveChars(word, LOWER + UPPER) == word) return u"";
  while (Left(word, 1) == u"-") word = From(word, 2);
  while (Right(word, 1) == u"-") word = Left(word, Length(word) - 1);
  word = MakeSingular(word);
  if (ToLowerCase(word) == u"s" || ToLowerCase(word) == u"t") return u"";
  if (IsContractionStem(word)) return u"";
  return word;
}

bool IsRomanNumeral(const Text& word) {
  const Text upper = ToUpperCase(word);
  return RemoveChars(upper, u"IVXLCDM").empty() &&
         !Contains(u" DIM MID VIM CID LID LIVID VIVID CIVIL DILL ", u" " + upper + u" ");
}

bool MayBeRecorded(const Text& word) {
  if (Length(word) < 3 || Length(word) > 30) return false;
  if (RemoveChars(word, Left(word, 1)).empty()) return false;  // one repeated character
  return !IsRomanNumeral(word);
}

// The words in table order, each with its places.
WordTable ScanWords(const Text& text) {
  WordTable table;
  if (text.empty()) return table;
  table.positionWidth = static_cast<int>(std::log(Length(text)) / std::log(10.0)) + 1;
  std::map<std::pair<Text, Text>, std::vector<Position>> words;  // by sort key and spelling
  int scanPosition = 1;
  while (scanPosition < Length(text)) {
    if (IsWordCharacter(Mid(text, scanPosition, 1))) {
      const Text word = GetWord(text, scanPosition);
      if (MayBeRecorded(word)) {
        words[{ToLowerCase(FoldForKey(word)), word}].push_back(
            Position{scanPosition - Length(word)});
      }
    }
    do ++scanPosition;
    while (Mid(text, scanPosition, 1) == u" ");
  }
  for (const auto& [key, positions] : words) {
    table.entries.push_back({key.second, key.first, positions});
  }
  return table;
}

bool IsAdmitted(const WordEntry& entry, const ConcordanceSettings& settings) {
  const std::string& extra = settings.extraStopWords;
  const Text stopWords = u" " + Text(extra.begin(), extra.end()) + u" ";
  const bool hasHyphen = Contains(entry.word, u"-");
  const bool hasDigit = RemoveChars(entry.word, u"0123456789") != entry.word;
  const bool isRare = entry.Count() < settings.thresholdFrequency;
  return (settings.allowWordsWithHyphens || !hasHyphen) &&
         (settings.allowWordsWithNumerals || !hasDigit) &&
         !(settings.ignoreInfrequentWords && isRare) &&
         !Contains(stopWords, u" " + ToLowerCase(entry.word) + u" ");
}

Text TakeOutLineBreaks(Text window, int& cut) {
  for (int marker; (marker = Find(window, 1, u" / ")) > 0;) {
    window = Left(window, marker - 1) + From(window, marker + 2);
    if (marker < cut) cut -= 2;
  }
  return window;
}

Text CutLeftEdge(const Text& window, int cut, const ConcordanceSettings& settings) {
  int counted = 0;
  while (cut >= 3) {
    const int blank = FindLast(Left(window, cut - 2), u" ");
    if (blank == 0) break;
    if (!(settings.showLineBreaks && Mid(window, blank + 1, 1) == u"/")) {
      if (++counted == settings.contextSize) return From(window, blank + 1);
    }
    cut = blank;
  }
  return From(window, cut);
}

Text CutRightEdge(const Text& window, const ConcordanceSettings& settings) {
  int blank = 0;
  for (int counted = 0; counted < settings.contextSize + 1;) {
    blank = Find(window, blank + 1, u" ");
    const bool isMark = blank > 0 && settings.showLineBreaks && Mid(window, blank + 1, 1) == u"/";
    if (!isMark) ++counted;
  }
  for (int counted = 0;;) {
    const int next = Find(window, blank + 1, u" ");
    if (next <= 1) return Left(window, blank);
    blank = next;
    if (!(settings.showLineBreaks && Mid(window, blank - 1, 1) == u"/")) ++counted;
    if (counted == settings.contextSize) return Left(window, blank - 1);
  }
}

Text CutContext(const Text& text, int position, int wordLength,
                const ConcordanceSettings& settings) {
  const int offset = 20 * settings.contextSize;
  const bool atStart = position - offset < 1;
  Text window =
      atStart ? Left(text, 2 * offset) : Mid(text, position - offset, wordLength + 2 * offset);
  int cut = atStart ? position : offset;
  if (!settings.showLineBreaks) window = TakeOutLineBreaks(window, cut);
  return CutRightEdge(CutLeftEdge(window, cut, settings), settings);
}

std::vector<Text> MergeContexts(const std::vector<Text>& contexts, bool showFrequencies) {
  std::vector<Text> slots;
  std::vector<int> repeatCounts(contexts.size() + 1, 0);
  for (std::size_t k = 0; k < contexts.size(); ++k) {
    bool found = false;
    for (std::size_t m = 0; m < slots.size(); ++m) {
      const int marker = FindLast(slots[m], u" (x");
      if (contexts[k] != (marker > 0 ? Left(slots[m], marker - 1) : slots[m])) continue;
      found = true;
      if (!showFrequencies) continue;
      if (repeatCounts[m] == 0) {
        repeatCounts[m] = 1;
        slots[m] += u" (x2)";
      } else if (repeatCounts[k] < 999) {
        ++repeatCounts[m];
        slots[m] = Left(slots[m], FindLast(slots[m], u"(x") - 1) + u"(x" +
                   ToDecimal(repeatCounts[m] + 1) + u")";
      }
    }
    if (!found) slots.push_back(contexts[k]);
  }
  return slots;
}

Text MarkKeywordInContext(const Text& word, Text context) {
  const Text capitalized = ToUpperCase(Left(word, 1)) + From(word, 2);
  context = Replace(context, word, Text(u"«") + word + u"»");
  if (capitalized != word) context = Replace(context, capitalized, Text(u"«") + capitalized + u"»");
  return Replace(context, u"»s", u"s»");
}

std::string Byte(int code) { return {static_cast<char>(code)}; }

int ByteAt(const std::string& s, int place) {
  return static_cast<unsigned char>(s[static_cast<std::size_t>(place - 1)]);
}

// One pass over the pairs of a lead byte. It ends at a pair outside the range.
void RepairPairs(std::string& text, const std::string& lead, int lowest, int added) {
  int start = 1;
  for (;;) {
    const int found = Find(text, start, lead);
    if (found == 0 || found == Length(text)) return;
    const int c = ByteAt(text, found + 1);
    if (c < 128 || c > 191) return;
    text = Replace(text, lead + Byte(c), c < lowest ? "" : Byte(c + added));
    start = found + 1;
  }
}

}  // namespace

Text BlankDoubleHyphens(Text text) {
  int p = Find(text, 1, u"--");
  while (p > 0) {
    if (p > 2 && Mid(text, p - 2, 4) != u"<!--" && Mid(text, p, 3) != u"-->") {
      text = Left(text, p - 1) + u"  " + From(text, p + 2);
    }
    p = Find(text, p + 2, u"--");
  }
  return text;
}

ListedWords MakeWordTable(const Text& text, const ConcordanceSettings& settings) {
  const WordTable table = ScanWords(text);
  ListedWords listed;
  for (std::size_t i = 0; i < table.entries.size(); ++i) {
    const WordEntry& entry = table.entries[i];
    listed.include.push_back(IsAdmitted(entry, settings));
    if (!listed.include.back()) continue;
    ++listed.counts.includedCount;
    listed.counts.totalOccurrences += entry.Count();
    listed.frequencyChain.push_back(table.IndexOf(entry));
  }
  std::ranges::stable_sort(listed.frequencyChain, std::greater(),
                           [&table](EntryIndex i) { return table.At(i).Count(); });
  listed.words = {std::make_shared<const Document>(), std::make_shared<const WordTable>(table)};
  return listed;
}

Text ComposeEntry(const Text& word, const std::vector<Text>& contexts,
                  const ConcordanceSettings& settings) {
  const int count = Length(contexts);
  const Text label = word + (settings.showFrequencies ? Text(u" ") + ToDecimal(count) : Text());
  if (settings.contextSize == 0) return label + u"\r\n";
  Text result = Text(u"\r\n[") + label + u"]\r\n";
  for (const Text& context : MergeContexts(contexts, settings.showFrequencies)) {
    result += Text(u"... ") + MarkKeywordInContext(word, context) + u"\r\n";
  }
  return result;
}

Text ListWords(const Text& documentText, const ConcordanceSettings& settings) {
  const Text text = BlankDoubleHyphens(documentText);
  std::vector<WordEntry> entries = ScanWords(text).entries;
  std::erase_if(entries, [&](const WordEntry& entry) { return !IsAdmitted(entry, settings); });
  if (settings.wordOrder == WordOrder::byFrequency) {
    std::ranges::stable_sort(entries, std::greater(), &WordEntry::Count);
  }
  Text output;
  for (const WordEntry& entry : entries) {
    std::vector<Text> contexts;
    for (const Position position : entry.positions) {
      contexts.push_back(
          CutContext(text, static_cast<int>(position), Length(entry.word), settings));
    }
    output += ComposeEntry(entry.word, contexts, settings);
  }
  while (!output.empty() && output[0] <= 32) output = From(output, 2);
  return output;
}

std::string RepairUtf8(std::string text) {
  RepairPairs(text, "\xC2", 160, 0);
  RepairPairs(text, "\xC3", 128, 64);
  return Replace(text, "\xC4\x8D", "c");
}

std::string PlainPunctuation(std::string text) {
  const std::map<int, const char*> replacements = {
      {144, "-"},  {145, "-"},   {146, "-"},    {147, "-"},  {148, " -- "},
      {149, "--"}, {150, "|"},   {151, "\x89"}, {152, "'"},  {153, "'"},
      {154, "'"},  {155, "'"},   {156, "\""},   {157, "\""}, {158, "\""},
      {159, "\""}, {162, " . "}, {166, "..."},  {185, "<"},  {186, ">"}};
  const int found = Find(text, 1, "\xE2\x80");
  if (found == 0) return text;
  if (found + 1 == Length(text)) return Left(text, found - 1);
  if (!replacements.contains(ByteAt(text, found + 2))) {
    return Left(text, found - 1) + From(text, found + 3);
  }
  for (const auto& [x, by] : replacements) text = Replace(text, "\xE2\x80" + Byte(x), by);
  return text;
}

}  // namespace quorvel::naive
