#include "output/entry_composer.h"

#include "lines/quotation.h"
#include "util/find_pair.h"
#include "util/text_form.h"

namespace quorvel {
namespace {

constexpr std::u16string_view NEXT_CONTEXT = u"\r\n... ";

// True when the text may contain the first two characters of `mark`. With few occurrences to list,
// looking through the text takes longer than what the answer saves.
template <typename Char>
bool MayHold(std::basic_string_view<Char> text, std::u16string_view mark, std::size_t occurrences) {
  constexpr std::size_t CHARACTERS = 1024;  // of text, in the time that is saved for an occurrence
  if (occurrences < text.size() / CHARACTERS) return true;
  const std::basic_string<Char> quoted = MarkInText<Char>(mark);
  return FindPair(text, 0, quoted[0], quoted[1]) < text.size();
}

// ASCII characters have the same numbers in every quotation.
template <typename Char>
std::basic_string<Char>& Append(std::basic_string<Char>& to, std::string_view ascii) {
  return to.append(ascii.begin(), ascii.end());
}

}  // namespace

template <typename Char>
EntrySource<Char>::EntrySource(const Quotation<Char>& quotation, const Alphabet& alphabet,
                               const EntryOptions& options, std::size_t occurrences)
    : quotation_(quotation),
      alphabet_(alphabet),
      options_(options),
      pluralMarksInText_(MayHold(quotation.Text(), PLURAL_MARK, occurrences)),
      repeatMarkersInText_(MayHold(quotation.Text(), REPEAT_MARKER_START.substr(1), occurrences)),
      cutter_(quotation.Text(), options.context) {}

template <typename Char>
EntryComposer<Char>::EntryComposer(const EntrySource<Char>& source)
    : source_(source),
      merger_(source.options_.showFrequencies, source.repeatMarkersInText_, source.seed_) {}

template <typename Char>
void EntryComposer<Char>::DisplayNextWord(const WordEntry& entry, String& outputText) {
  if (source_.options_.context.contextSize == 0) {
    Append(outputText.append(WordLine(entry)), LINE_END);
    return;
  }
  Append(outputText, LINE_END) += '[';
  outputText.append(WordLine(entry)) += ']';
  GatherContexts(entry);
  const KeywordMarker<Char> marker(entry.word, source_.quotation_, source_.alphabet_,
                                   source_.pluralMarksInText_);
  const KeywordLists* lists = source_.options_.keywords;
  const std::u16string lower =
      lists != nullptr ? source_.alphabet_.ToLowerCase(entry.word) : std::u16string();
  if (lists == nullptr || BinarySearch(lists->fileKeywords, lower)) {
    EmitContexts(marker, nullptr, outputText);
  } else {
    // Compatibility: a word that matches several patterns has its contexts listed for each of them,
    // and users' listings depend on it.
    for (const std::size_t i : lists->extraKeywords.Matches(lower)) {
      EmitContexts(marker, &lists->extraKeywords.Keywords()[i], outputText);
    }
  }
  Append(outputText, LINE_END);
}

// If the keyword has a context pattern, only the contexts that match it are listed. The repeat
// marker counts as a word of the context.
template <typename Char>
void EntryComposer<Char>::EmitContexts(const KeywordMarker<Char>& marker,
                                       const ExtraKeyword* keyword, String& outputText) {
  const String nextContext = MarkInText<Char>(NEXT_CONTEXT);
  String withMarker;
  for (const MergedContext<Char>& context : merger_.Contexts()) {
    std::basic_string_view<Char> text = context.text;
    if (context.repeats != 0) text = withMarker = TextWithMarker(context);
    const bool chooses = keyword != nullptr && keyword->hasContextPattern;
    if (chooses && !WantsContext(*keyword, source_.quotation_.InCodeUnits(text), source_.alphabet_))
      continue;
    outputText += nextContext;
    marker.MarkKeywordInContext(outputText, text);
  }
}

// The line of a word without contexts: the word and, if frequencies are shown, its count.
template <typename Char>
auto EntryComposer<Char>::WordLine(const WordEntry& entry) const -> String {
  String line = source_.quotation_.Of(entry.word);
  if (source_.options_.showFrequencies) Append(line, " " + std::to_string(entry.Count()));
  return line;
}

template <typename Char>
void EntryComposer<Char>::GatherContexts(const WordEntry& entry) {
  constexpr std::size_t AHEAD = 8;
  copies_.clear();
  copies_.reserve(entry.positions.size() * source_.cutter_.LongestContext(entry.word.size()));
  merger_.Start(entry.Count());
  for (std::size_t k = 0; k < entry.positions.size(); ++k) {
    if (k + AHEAD < entry.positions.size()) source_.cutter_.Prefetch(entry.positions[k + AHEAD]);
    merger_.Add(source_.cutter_.Cut(entry.positions[k], entry.word.size(), copies_));
  }
}

template class EntrySource<char>;
template class EntrySource<char16_t>;
template class EntryComposer<char>;
template class EntryComposer<char16_t>;

}  // namespace quorvel
