// A small run on a file, all of it: its table and its listing are those of the naive forms. A
// search lists the part of that which its keywords name.
//
// The options come first, then a line of extra keywords, a line of file keywords, and the input.

#include "fuzz_input.h"
#include "lists/wildcard.h"
#include "lists/word_file.h"
#include "naive/naive_forms.h"
#include "output/index_file.h"
#include "run/run_driver.h"
#include "util/characters.h"
#include "util/silent_interface.h"

namespace quorvel::fuzz {
namespace {

using Text = std::u16string;

// All that a table holds, in words.
std::string Describe(const WordTable& table) {
  return std::to_string(table.includedCount) + " words, " + std::to_string(table.totalOccurrences) +
         " places" + IndexFileBytes(table, "", 0);
}

// Whether a line of a listing, "... " and a context with its marks, holds a word that matches.
bool HoldsMatch(Text line, const Text& pattern) {
  std::erase_if(line, [](char16_t ch) { return ch == u'«' || ch == u'»'; });
  line = ToLowerCase(line.substr(4));
  return std::ranges::any_of(SplitAtBlanks(line), [&pattern](std::u16string_view word) {
    return MatchesWildcard(word, pattern);
  });
}

// What a search leaves of an entry, the first line of which names the word.
Text Searched(const std::vector<Text>& entry, const KeywordLists& lists) {
  const std::size_t begin = entry[0][0] == u'[' ? 1 : 0;
  const Text word =
      ToLowerCase(entry[0].substr(begin, entry[0].find_first_of(u" ]", begin) - begin));
  std::vector<ExtraKeyword> keywords = lists.extraKeywords.Keywords();
  std::erase_if(keywords, [&word](const ExtraKeyword& keyword) {
    return !MatchesWildcard(word, keyword.wildcardPattern);
  });
  if (BinarySearch(lists.fileKeywords, word)) keywords = {ExtraKeyword()};
  Text kept = keywords.empty() ? Text() : entry[0] + u"\r\n";
  for (const ExtraKeyword& keyword : keywords) {
    for (std::size_t i = 1; i < entry.size(); ++i) {
      if (keyword.hasContextPattern && !HoldsMatch(entry[i], keyword.contextPattern)) continue;
      kept += entry[i] + u"\r\n";
    }
  }
  return kept;
}

// The part of a listing of all words that a search gives, without empty lines.
Text SearchedPart(Text listing, const KeywordLists& lists) {
  std::vector<std::vector<Text>> entries;
  for (; !listing.empty(); listing.erase(0, listing.find(u"\r\n") + 2)) {
    const Text line = listing.substr(0, listing.find(u"\r\n"));
    if (line.empty()) continue;
    if (!line.starts_with(u"... ")) entries.emplace_back();
    entries.back().push_back(line);
  }
  Text part;
  for (const std::vector<Text>& entry : entries) part += Searched(entry, lists);
  return part;
}

void CheckCreated(const RunState& state) {
  const WordTable table = naive::MakeWordTable(state.documentText, state.settings);
  RequireSame(Describe(state.table), Describe(table), "the table is that of the naive form");
  const Text listing = naive::ListWords(state.documentText, state.settings);
  if (table.includedCount > 0) {
    RequireSame(EncodeUtf8(DecodeAnsi(state.outputText)), EncodeUtf8(listing),
                "the listing is that of the naive form");
  }
}

void CheckSearched(const RunState& state) {
  // The marks of a listing cannot be told from those of the text.
  if (state.documentText.find_first_of(u"«»") != Text::npos) return;
  ConcordanceSettings all = state.settings;
  all.allowWordsWithHyphens = all.allowWordsWithNumerals = true;
  all.ignoreInfrequentWords = false;
  const Text expected =
      SearchedPart(naive::ListWords(state.documentText, all), state.lists.keywords);
  Text got = DecodeAnsi(state.outputText);
  for (std::size_t i = 0; (i = got.find(u"\r\n\r\n")) != Text::npos;) got.erase(i, 2);
  RequireSame(EncodeUtf8(got), EncodeUtf8(expected), "a search lists a part of the concordance");
}

// Whether the words that are not looked for are recorded makes no difference to a search.
void CheckSearchedOnce(const RunState& state) {
  RunState once = state;
  once.listsOnce = true;
  SilentInterface ui;
  (void)RunConcordance(once, ui);
  RequireSame(once.outputText, state.outputText, "a search for its words alone lists the same");
}

void TakeOptions(FuzzInput& input, ConcordanceSettings& settings) {
  settings.mode = input.Flag() ? Mode::search : Mode::create;
  settings.wordOrder = input.Flag() ? WordOrder::byFrequency : WordOrder::alphabetical;
  settings.contextSize = input.Number(LARGEST_CONTEXT_SIZE + 1);
  for (bool* option :
       {&settings.showFrequencies, &settings.showLineBreaks, &settings.allowWordsWithHyphens,
        &settings.allowWordsWithNumerals, &settings.ignoreInfrequentWords, &settings.ignoreLists}) {
    *option = input.Flag();
  }
  settings.thresholdFrequency =
      SMALLEST_THRESHOLD + input.Number(LARGEST_THRESHOLD - SMALLEST_THRESHOLD + 1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const FuzzFolder folder;
  FuzzInput input(data, size);
  RunState state;
  TakeOptions(input, state.settings);
  const char* const name = input.Flag() ? "a.htm" : "a.txt";
  state.encodingChoice = EncodingChoice::adoptDetected;
  state.settings.extraKeywords = input.Line();
  state.lists.keywords.fileKeywords = ExtraStopWordsOf(TidyExtraStopWords(input.Line()));
  state.settings.inputFile = folder.Write(name, input.Rest());
  std::string written;
  state.outputSink = [&written](std::string_view bytes) {
    written += bytes;
    return true;
  };
  SilentInterface ui;
  const RunOutcome outcome = RunConcordance(state, ui);
  if (outcome == RunOutcome::refused) return 0;
  const bool found = state.table.includedCount > 0;
  Require(outcome == (found ? RunOutcome::done : RunOutcome::nothingFound), "a run ends");
  Require(!found || written.ends_with(state.outputText + "\r\n"), "the listing is written");
  if (state.settings.mode == Mode::create) {
    CheckCreated(state);
  } else {
    CheckSearched(state);
    CheckSearchedOnce(state);
  }
  return 0;
}

}  // namespace quorvel::fuzz
