#include "naive/naive_forms.h"

#include <cmath>
#include <utility>
#include <vector>

namespace quorvel::naive {
namespace {

// Strings counted from 1, as all positions of the program are.

template <typename String>
int Length(const String& s) {
  return static_cast<int>(s.size());
}

// At most `length` characters from `start` on, a place from 1 on.
template <typename String>
String Mid(const String& s, int start, int length) {
  if (start > Length(s) || length < 1) return String();
  return s.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(length));
}

template <typename String>
String From(const String& s, int start) {
  return Mid(s, start < 1 ? 1 : start, Length(s));
}

template <typename String>
String Left(const String& s, int length) {
  return Mid(s, 1, length);
}

template <typename String>
String Right(const String& s, int length) {
  return From(s, Length(s) - length + 1);
}

// The first place of `what` at or after `start`; 0 for none.
template <typename String>
int Find(const String& s, int start, const String& what) {
  const std::size_t index = s.find(what, static_cast<std::size_t>(start - 1));
  return index == String::npos ? 0 : static_cast<int>(index) + 1;
}

// The last place of `what`; 0 for none.
template <typename String>
int FindLast(const String& s, const String& what) {
  const std::size_t index = s.rfind(what);
  return index == String::npos ? 0 : static_cast<int>(index) + 1;
}

// Every occurrence of `what`, left to right, replaced; what was put there is not looked at again.
template <typename String>
String Replace(const String& s, const String& what, const String& by) {
  String result;
  int start = 1;
  for (int found; (found = Find(s, start, what)) > 0; start = found + Length(what)) {
    result += Mid(s, start, found - start) + by;
  }
  return result + From(s, start);
}

using Text = std::u16string;

const Text LOWER = u"abcdefghijklmnopqrstuvwxyzšœÿàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþß";
const Text UPPER = u"ABCDEFGHIJKLMNOPQRSTUVWXYZŠŒŸÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ";
const Text LOWER_VOWELS = u"aeiouàáâãäåæèéêëìíîïòóôõöøùúûü";

bool Contains(const Text& set, const Text& what) { return Find(set, 1, what) > 0; }

// `s` with each character of `from` replaced by the `width` characters at its place in `to`.
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

Text CapitalizeFirstLetter(const Text& s) { return ToUpperCase(Left(s, 1)) + From(s, 2); }

Text RemoveChars(const Text& s, const Text& set) { return MapCharacters(s, set, u"", 1); }

bool IsWordCharacter(const Text& ch) {
  return Length(ch) == 1 && Contains(LOWER + UPPER + u"-0123456789", ch);
}

// One more than the characters that are left where the run reaches the end of the text.
int WordRunLength(const Text& text, int start) {
  int i = start;
  for (; i <= Length(text); ++i) {
    if (!IsWordCharacter(Mid(text, i, 1))) return i - start;
  }
  return i - start + 1;
}

int FirstNotBlank(const Text& text, int start) {
  for (int i = start; i <= Length(text); ++i) {
    if (Mid(text, i, 1) != u" ") return i;
  }
  return 0;
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
  for (const Text exception : {u"maths", u"stats", u"arms", u"dickens", u"always", u"perhaps"}) {
    if (lower == exception) return word;
  }
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
  const int length = WordRunLength(text, scanPosition);
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
  for (const Text exception :
       {u"DIM", u"MID", u"VIM", u"CID", u"LID", u"LIVID", u"VIVID", u"CIVIL", u"DILL"}) {
    if (upper == exception) return false;
  }
  return RemoveChars(upper, u"IVXLCDM").empty();
}

bool MayBeRecorded(const Text& word) {
  if (Length(word) < 3 || Length(word) > 30) return false;
  if (RemoveChars(word, Left(word, 1)).empty()) return false;  // one repeated character
  return !IsRomanNumeral(word);
}

void Record(WordTable& table, const Text& word, int offset) {
  std::size_t place = 0;
  while (place < table.entries.size() && table.entries[place].word < word) ++place;
  if (place == table.entries.size() || table.entries[place].word != word) {
    WordEntry entry;
    entry.word = word;
    entry.sortKey = ToLowerCase(FoldForKey(word));
    table.entries.insert(table.entries.begin() + static_cast<std::ptrdiff_t>(place), entry);
  }
  table.entries[place].positions.push_back(offset);
}

WordTable ScanWords(const Text& text) {
  WordTable table;
  if (text.empty()) return table;
  table.positionWidth = static_cast<int>(std::log(Length(text)) / std::log(10.0)) + 1;
  int scanPosition = 1;
  while (scanPosition < Length(text)) {
    if (IsWordCharacter(Mid(text, scanPosition, 1))) {
      const Text word = GetWord(text, scanPosition);
      if (MayBeRecorded(word)) Record(table, word, scanPosition - Length(word));
    }
    scanPosition = FirstNotBlank(text, scanPosition + 1);
    if (scanPosition == 0) break;
  }
  return table;
}

void SortByKey(WordTable& table) {
  std::vector<WordEntry>& entries = table.entries;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    for (std::size_t j = i + 1; j < entries.size(); ++j) {
      if (entries[j].sortKey < entries[i].sortKey ||
          (entries[j].sortKey == entries[i].sortKey && entries[j].word < entries[i].word)) {
        std::swap(entries[i], entries[j]);
      }
    }
  }
}

void AdmitWords(WordTable& table, const ConcordanceSettings& settings) {
  const Text extraStopWords(settings.extraStopWords.begin(), settings.extraStopWords.end());
  for (WordEntry& entry : table.entries) {
    const bool hasHyphen = Contains(entry.word, u"-");
    const bool hasDigit = RemoveChars(entry.word, u"0123456789") != entry.word;
    const bool isStopWord =
        Contains(Text(u" ") + extraStopWords + u" ", Text(u" ") + ToLowerCase(entry.word) + u" ");
    entry.include =
        (settings.allowWordsWithHyphens || !hasHyphen) &&
        (settings.allowWordsWithNumerals || !hasDigit) &&
        !(settings.ignoreInfrequentWords && entry.Count() < settings.thresholdFrequency) &&
        !isStopWord;
  }
}

void LinkByFrequency(WordTable& table) {
  std::int32_t highest = 0;
  for (const WordEntry& entry : table.entries) {
    if (!entry.include) continue;
    ++table.includedCount;
    table.totalOccurrences += entry.Count();
    if (entry.Count() > highest) highest = entry.Count();
  }
  std::int32_t last = 0;
  for (std::int32_t count = highest; count >= 1; --count) {
    for (std::size_t i = 0; i < table.entries.size(); ++i) {
      WordEntry& entry = table.entries[i];
      if (!entry.include || entry.Count() != count) continue;
      std::int32_t& link = last == 0
                               ? table.frequencyHead
                               : table.entries[static_cast<std::size_t>(last - 1)].frequencyNext;
      entry.frequencyPrev = last;
      link = last = static_cast<std::int32_t>(i) + 1;
    }
  }
}

Text TakeOutLineBreaks(Text window, int& cut) {
  for (int marker; (marker = Find<Text>(window, 1, u" / ")) > 0;) {
    window = Left(window, marker - 1) + From(window, marker + 2);
    if (marker < cut) cut -= 2;
  }
  return window;
}

Text CutLeftEdge(const Text& window, int cut, const ConcordanceSettings& settings) {
  int counted = 0;
  while (cut >= 3) {
    const int blank = FindLast<Text>(Left(window, cut - 2), u" ");
    if (blank == 0) break;
    if (!(settings.showLineBreaks && Mid(window, blank + 1, 1) == u"/")) {
      ++counted;
      if (counted == settings.contextSize) {
        cut = blank + 1;
        break;
      }
    }
    cut = blank;
  }
  return From(window, cut);
}

Text CutRightEdge(const Text& window, const ConcordanceSettings& settings) {
  int blank = 0;
  for (int counted = 0; counted < settings.contextSize + 1;) {
    blank = Find<Text>(window, blank + 1, u" ");
    const bool isMark = blank > 0 && settings.showLineBreaks && Mid(window, blank + 1, 1) == u"/";
    if (!isMark) ++counted;
  }
  for (int counted = 0;;) {
    const int next = Find<Text>(window, blank + 1, u" ");
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
      const int marker = FindLast<Text>(slots[m], u" (x");
      if (contexts[k] != (marker > 0 ? Left(slots[m], marker - 1) : slots[m])) continue;
      found = true;
      if (!showFrequencies) continue;
      if (repeatCounts[m] == 0) {
        repeatCounts[m] = 1;
        slots[m] += u" (x2)";
      } else if (repeatCounts[k] < 999) {
        ++repeatCounts[m];
        slots[m] = Left(slots[m], FindLast<Text>(slots[m], u"(x") - 1) + u"(x" +
                   ToDecimal(repeatCounts[m] + 1) + u")";
      }
    }
    if (!found) slots.push_back(contexts[k]);
  }
  return slots;
}

Text MarkKeywordInContext(const Text& word, Text context) {
  const Text capitalized = CapitalizeFirstLetter(word);
  context = Replace(context, word, Text(u"«") + word + u"»");
  if (capitalized != word) context = Replace(context, capitalized, Text(u"«") + capitalized + u"»");
  return Replace<Text>(context, u"»s", u"s»");
}

Text ComposeEntry(const Text& text, const WordEntry& entry, const ConcordanceSettings& settings) {
  const Text label =
      entry.word + (settings.showFrequencies ? Text(u" ") + ToDecimal(entry.Count()) : Text());
  if (settings.contextSize == 0) return label + u"\r\n";
  std::vector<Text> contexts;
  for (const std::int32_t position : entry.positions) {
    contexts.push_back(CutContext(text, position, Length(entry.word), settings));
  }
  Text result = Text(u"\r\n[") + label + u"]\r\n";
  for (const Text& context : MergeContexts(contexts, settings.showFrequencies)) {
    result += Text(u"... ") + MarkKeywordInContext(entry.word, context) + u"\r\n";
  }
  return result;
}

std::string Bytes(std::initializer_list<int> values) {
  std::string result;
  for (int value : values) result += static_cast<char>(value);
  return result;
}

int ByteAt(const std::string& s, int place) {
  return static_cast<unsigned char>(s[static_cast<std::size_t>(place - 1)]);
}

// One pass over the pairs of a lead byte. A pair outside the range ends it.
void RepairPairs(std::string& text, int lead, int lowest, int added) {
  int start = 1;
  for (;;) {
    const int found = Find(text, start, Bytes({lead}));
    if (found == 0 || found == Length(text)) return;
    const int c = ByteAt(text, found + 1);
    if (c < 128 || c > 191) return;
    text = Replace(text, Bytes({lead, c}), c < lowest ? std::string() : Bytes({c + added}));
    start = found + 1;
  }
}

}  // namespace

Text BlankDoubleHyphens(Text text) {
  int p = Find<Text>(text, 1, u"--");
  while (p > 0) {
    if (p > 2 && Mid(text, p - 2, 4) != u"<!--" && Mid(text, p, 3) != u"-->") {
      text = Left(text, p - 1) + u"  " + From(text, p + 2);
    }
    p = Find<Text>(text, p + 2, u"--");
  }
  return text;
}

WordTable MakeWordTable(const Text& text, const ConcordanceSettings& settings) {
  WordTable table = ScanWords(text);
  SortByKey(table);
  AdmitWords(table, settings);
  LinkByFrequency(table);
  return table;
}

Text ListWords(const Text& documentText, const ConcordanceSettings& settings) {
  const Text text = BlankDoubleHyphens(documentText);
  const WordTable table = MakeWordTable(text, settings);
  Text output;
  if (settings.wordOrder == WordOrder::byFrequency) {
    for (std::int32_t i = table.frequencyHead; i > 0;) {
      const WordEntry& entry = table.entries[static_cast<std::size_t>(i - 1)];
      output += ComposeEntry(text, entry, settings);
      i = entry.frequencyNext;
    }
  } else {
    for (const WordEntry& entry : table.entries) {
      if (entry.include) output += ComposeEntry(text, entry, settings);
    }
  }
  while (!output.empty() && output[0] <= 32) output = From(output, 2);
  return output;
}

std::string RepairUtf8(std::string text) {
  RepairPairs(text, 194, 160, 0);
  RepairPairs(text, 195, 128, 64);
  return Replace(text, Bytes({196, 141}), std::string("c"));
}

std::string PlainPunctuation(std::string text) {
  const int found = Find(text, 1, Bytes({226, 128}));
  if (found == 0) return text;
  if (found + 1 == Length(text)) return Left(text, found - 1);
  const int x = ByteAt(text, found + 2);
  if (!((x >= 144 && x <= 159) || x == 162 || x == 166 || x == 185 || x == 186)) {
    return Left(text, found - 1) + From(text, found + 3);
  }
  const std::pair<int, std::string> replacements[] = {
      {144, "-"},  {145, "-"},   {146, "-"},    {147, "-"},  {148, " -- "},
      {149, "--"}, {150, "|"},   {151, "\x89"}, {152, "'"},  {153, "'"},
      {154, "'"},  {155, "'"},   {156, "\""},   {157, "\""}, {158, "\""},
      {159, "\""}, {162, " . "}, {166, "..."},  {185, "<"},  {186, ">"}};
  for (const auto& [last, by] : replacements) text = Replace(text, Bytes({226, 128, last}), by);
  return text;
}

}  // namespace quorvel::naive
