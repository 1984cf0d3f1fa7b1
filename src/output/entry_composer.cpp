#include "output/entry_composer.h"

#include "output/keyword_marks.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

constexpr std::u16string_view LINE_END = u"\r\n";

}  // namespace

EntryComposer::EntryComposer(std::u16string_view documentText, const EntryOptions& options)
    : options_(options),
      pluralMarksInText_(documentText.find(u"»s") != std::u16string_view::npos),
      cutter_(documentText, options.context),
      merger_(options.showFrequencies,
              documentText.find(REPEAT_MARKER_START.substr(1)) != std::u16string_view::npos) {}

void EntryComposer::DisplayNextWord(const WordEntry& entry, std::u16string& outputText) {
  if (options_.context.contextSize == 0) {
    outputText.append(WordLine(entry)).append(LINE_END);
    return;
  }
  outputText.append(LINE_END).append(u"[").append(WordLine(entry)).append(u"]").append(LINE_END);
  GatherContexts(entry);
  const KeywordMarker marker(entry.word, pluralMarksInText_);
  for (const MergedContext& context : merger_.Contexts()) {
    outputText += u"... ";
    if (context.repeats == 0) {
      marker.AppendMarked(outputText, context.text);
    } else {
      marker.AppendMarked(outputText, TextWithMarker(context));
    }
    outputText += LINE_END;
  }
}

std::u16string EntryComposer::WordLine(const WordEntry& entry) const {
  if (!options_.showFrequencies) return entry.word;
  return entry.word + u' ' + DecodeAnsi(std::to_string(entry.Count()));
}

void EntryComposer::GatherContexts(const WordEntry& entry) {
  constexpr std::size_t AHEAD = 8;
  copies_.clear();
  copies_.reserve(entry.positions.size() * cutter_.LongestContext(entry.word.size()));
  merger_.Start(entry.Count());
  for (std::size_t k = 0; k < entry.positions.size(); ++k) {
    if (k + AHEAD < entry.positions.size()) cutter_.Prefetch(entry.positions[k + AHEAD]);
    merger_.Add(cutter_.Cut(entry.positions[k], entry.word.size(), copies_));
  }
}

}  // namespace quorvel
