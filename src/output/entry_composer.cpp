#include "output/entry_composer.h"

#include "util/ansi.h"
#include "util/characters.h"

namespace quorvel {
namespace {

constexpr std::string_view NEXT_CONTEXT = "\r\n... ";

bool Holds(std::string_view text, std::string_view mark) {
  return text.find(mark) != std::string_view::npos;
}

}  // namespace

EntrySource::EntrySource(std::string_view text, const EntryOptions& options)
    : options_(options),
      pluralMarksInText_(Holds(text, PLURAL_MARK)),
      repeatMarkersInText_(Holds(text, REPEAT_MARKER_START.substr(1))),
      cutter_(text, options.context) {}

EntryComposer::EntryComposer(const EntrySource& source)
    : source_(source),
      merger_(source.options_.showFrequencies, source.repeatMarkersInText_, source.seed_) {}

void EntryComposer::DisplayNextWord(const WordEntry& entry, std::string& outputText) {
  if (source_.options_.context.contextSize == 0) {
    outputText.append(WordLine(entry)).append(LINE_END);
    return;
  }
  outputText.append(LINE_END).append("[").append(WordLine(entry)).append("]");
  GatherContexts(entry);
  const KeywordMarker marker(entry.word, source_.pluralMarksInText_);
  const KeywordLists* lists = source_.options_.keywords;
  const std::u16string lower = lists != nullptr ? ToLowerCase(entry.word) : std::u16string();
  if (lists == nullptr || BinarySearch(lists->fileKeywords, lower)) {
    EmitContexts(marker, nullptr, outputText);
  } else {
    // A word that several patterns match has its contexts listed for each: so meant.
    for (const std::size_t i : lists->extraKeywords.Matches(lower)) {
      EmitContexts(marker, &lists->extraKeywords.Keywords()[i], outputText);
    }
  }
  outputText += LINE_END;
}

// With a keyword only the contexts that it asks for. The repeat marker is a word like any other.
void EntryComposer::EmitContexts(const KeywordMarker& marker, const ExtraKeyword* keyword,
                                 std::string& outputText) {
  std::string withMarker;
  for (const MergedContext& context : merger_.Contexts()) {
    std::string_view text = context.text;
    if (context.repeats != 0) text = withMarker = TextWithMarker(context);
    if (keyword != nullptr && !WantsContext(*keyword, text)) continue;
    outputText += NEXT_CONTEXT;
    marker.MarkKeywordInContext(outputText, text);
  }
}

std::string EntryComposer::WordLine(const WordEntry& entry) const {
  const std::string word = EncodeAnsi(entry.word);
  return source_.options_.showFrequencies ? word + ' ' + std::to_string(entry.Count()) : word;
}

void EntryComposer::GatherContexts(const WordEntry& entry) {
  constexpr std::size_t AHEAD = 8;
  copies_.clear();
  copies_.reserve(entry.positions.size() * source_.cutter_.LongestContext(entry.word.size()));
  merger_.Start(entry.Count());
  for (std::size_t k = 0; k < entry.positions.size(); ++k) {
    if (k + AHEAD < entry.positions.size()) source_.cutter_.Prefetch(entry.positions[k + AHEAD]);
    merger_.Add(source_.cutter_.Cut(entry.positions[k], entry.word.size(), copies_));
  }
}

}  // namespace quorvel
