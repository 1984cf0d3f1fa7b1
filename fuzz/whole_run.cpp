// Runs a session on a small file: its table and its listing must equal those of the naive forms. A
// search must list the part of the listing that its keywords select.
//
// An input has the options, a line of extra keywords, a line of file keywords, and the document.

#include "engine/index_file.h"
#include "fuzz_input.h"
#include "lists/wildcard.h"
#include "lists/word_file.h"
#include "naive/naive_forms.h"
#include "run/session.h"
#include "run/silent_conversation.h"
#include "support/scanned_text.h"
#include "util/ansi.h"
#include "util/characters.h"
#include "util/utf8.h"

namespace quorvel::fuzz {
namespace {

using Text = std::u16string;

// The contents of a table as text.
std::string Describe(const ListedWords& words) {
  return std::to_string(words.counts.includedCount) + " words, " +
         std::to_string(words.counts.totalOccurrences) + " places" + IndexFileBytes(words, "", 0);
}

// True when a line of a listing ("... " and a marked context) contains a matching word.
bool HoldsMatch(Text line, const Text& pattern) {
  std::erase_if(line, [](char16_t ch) { return ch == u'«' || ch == u'»'; });
  line = ToLowerCase(line.substr(4));
  return std::ranges::any_of(SplitAtBlanks(line), [&pattern](std::u16string_view word) {
    return MatchesWildcard(word, pattern, Alphabet::Windows1252());
  });
}

// The part of an entry that a search lists. The first line of the entry has the word.
Text Searched(const std::vector<Text>& entry, const KeywordLists& lists) {
  const std::size_t begin = entry[0][0] == u'[' ? 1 : 0;
  const Text word =
      ToLowerCase(entry[0].substr(begin, entry[0].find_first_of(u" ]", begin) - begin));
  std::vector<ExtraKeyword> keywords = lists.extraKeywords.Keywords();
  std::erase_if(keywords, [&word](const ExtraKeyword& keyword) {
    return !MatchesWildcard(word, keyword.wildcardPattern, Alphabet::Windows1252());
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

// The part of a complete listing that a search lists, without empty lines.
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

// The result of a run: the words, and the written text without its header.
struct Made {
  RunOutcome outcome;
  Listing listing;
  ConcordanceSettings settings;
  std::string text;
};

Made Run(const ConcordanceSettings& settings, const SortedWords& fileKeywords, bool listsOnce) {
  std::string written;
  SessionOptions options;
  options.encodingChoice = EncodingChoice::adoptDetected;
  options.listsOnce = listsOnce;
  options.outputSink = [&written](std::string_view bytes) {
    written += bytes;
    return true;
  };
  SilentConversation ui;
  Session session(ui, options);
  session.Settings() = settings;
  session.Lists().keywords.fileKeywords = fileKeywords;
  Made made = {session.RunConcordance(), {}, session.Settings(), {}};
  if (session.CurrentListing() != nullptr) made.listing = *session.CurrentListing();
  const std::size_t header = written.find("\r\n\r\n");
  if (header != std::string::npos) made.text = written.substr(header + 4);
  return made;
}

void CheckCreated(const Made& made) {
  const Text& text = made.listing.Source().documentText;
  RequireSame(Describe(*made.listing.words), Describe(naive::MakeWordTable(text, made.settings)),
              "the table equals its naive form");
  if (made.text.empty()) return;
  RequireSame(EncodeUtf8(DecodeAnsi(made.text)),
              EncodeUtf8(naive::ListWords(text, made.settings)) + "\r\n",
              "the listing equals its naive form");
}

void CheckSearched(const Made& made) {
  const Text& text = made.listing.Source().documentText;
  // Marks of the listing cannot be distinguished from the same characters in the text.
  if (text.find_first_of(u"«»") != Text::npos) return;
  ConcordanceSettings all = made.settings;
  all.allowWordsWithHyphens = all.allowWordsWithNumerals = true;
  all.ignoreInfrequentWords = false;
  const Text expected = SearchedPart(naive::ListWords(text, all), *made.listing.keywords);
  Text got = DecodeAnsi(made.text);
  for (std::size_t i = 0; (i = got.find(u"\r\n\r\n")) != Text::npos;) got.erase(i, 2);
  if (got == u"\r\n") got.clear();
  RequireSame(EncodeUtf8(got), EncodeUtf8(expected), "a search lists a part of the concordance");
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
  ConcordanceSettings settings;
  TakeOptions(input, settings);
  const char* const name = input.Flag() ? "a.htm" : "a.txt";
  settings.extraKeywords = input.Line();
  const SortedWords fileKeywords =
      ExtraStopWordsOf(TidyExtraStopWords(input.Line(), Alphabet::Windows1252()));
  settings.inputFile = folder.Write(name, input.Rest());
  const Made made = Run(settings, fileKeywords, false);
  if (made.outcome == RunOutcome::refused) return 0;
  const bool found = made.listing.words->counts.includedCount > 0;
  Require(made.outcome == (found ? RunOutcome::done : RunOutcome::nothingFound),
          "the outcome of the run is correct");
  Require(found == !made.text.empty(), "the listing is written");
  if (settings.mode == Mode::create) {
    CheckCreated(made);
  } else {
    CheckSearched(made);
    // A search gives the same listing whether or not the other words are recorded.
    RequireSame(Run(settings, fileKeywords, true).text, made.text,
                "a search that records only its words lists the same");
  }
  return 0;
}

}  // namespace quorvel::fuzz
