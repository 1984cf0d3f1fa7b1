#include "output/listing.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "output/concordance_file.h"
#include "output/entry_composer.h"
#include "output/listed_words.h"
#include "util/ansi.h"
#include "util/large_pages.h"
#include "util/piece_makers.h"
#include "util/time_text.h"

namespace quorvel {
namespace {

EntryOptions OptionsOf(const RunState& state) {
  EntryOptions options;
  options.context.contextSize = state.settings.contextSize;
  options.context.showLineBreaks = state.settings.showLineBreaks;
  options.showFrequencies = state.settings.showFrequencies;
  if (state.settings.mode == Mode::search) options.keywords = &state.lists.keywords;
  return options;
}

// Room for a whole listing, so that it need not be moved while it grows. An
// estimate of what English takes; memory that stays unused is never touched. Beyond
// the limit the listing grows as it must.
std::size_t ExpectedLength(const RunState& state) {
  constexpr std::size_t LARGEST_RESERVE = std::size_t{1} << 30U;
  constexpr std::size_t HEADER_LENGTH = 24;
  constexpr std::size_t WORD_LENGTH = 8;
  const auto words = static_cast<std::size_t>(state.table.includedCount);
  if (state.settings.contextSize == 0) return words * HEADER_LENGTH;
  const std::size_t wordsInLine = 2 * static_cast<std::size_t>(state.settings.contextSize) + 2;
  const auto lines = static_cast<std::size_t>(state.table.totalOccurrences);
  return std::min(words * HEADER_LENGTH + lines * wordsInLine * WORD_LENGTH, LARGEST_RESERVE);
}

using ListedSpan = std::span<const ListedWord>;

bool CanBeListed(const ListedWord& word) { return word.entry->Count() <= MOST_OCCURRENCES; }

void RefuseFrequentWord(const WordEntry& entry, UserInterface& ui) {
  ui.Tell("The word \"" + EncodeUtf8(entry.word) + "\" occurs " + std::to_string(entry.Count()) +
              " times; a word that occurs more than " + std::to_string(MOST_OCCURRENCES) +
              " times cannot be listed.\r\nAdd it to the stop words.",
          "Error");
}

// Cuts the words into pieces that take some tenths of a millisecond each to compose.
std::vector<ListedSpan> PiecesOf(ListedSpan words) {
  constexpr std::int32_t OCCURRENCES = 2048;
  std::vector<ListedSpan> pieces;
  while (!words.empty()) {
    std::size_t taken = 0;
    for (std::int32_t found = 0; taken < words.size() && found < OCCURRENCES; ++taken) {
      found += words[taken].entry->Count();
    }
    pieces.push_back(words.first(taken));
    words = words.subspan(taken);
  }
  return pieces;
}

// The composing of a listing, which a stop ends early.
class ListingPass {
 public:
  ListingPass(RunState& state, UserInterface& ui)
      : state_(state),
        ui_(ui),
        progress_(state.table, ui),
        source_(state.ansiText, OptionsOf(state)) {
    state.outputText = {};
    ReserveLarge(state.outputText, ExpectedLength(state));
  }

  void List(ListedSpan words) {
    constexpr std::size_t FEWEST_PIECES = 4;  // that are worth a thread
    const std::vector<ListedSpan> pieces = PiecesOf(words);
    if (IsWordList() || pieces.size() < FEWEST_PIECES) return ListHere(words);
    ListByThreads(pieces);
  }

 private:
  [[nodiscard]] bool IsWordList() const { return state_.settings.contextSize == 0; }

  void ListHere(ListedSpan words) {
    EntryComposer composer(source_);
    std::string text;
    for (const ListedWord& word : words) {
      text.clear();
      composer.DisplayNextWord(*word.entry, text);
      Add(text);
      if (IsWordList()) {
        ui_.SetOutput(EncodeUtf8(DecodeAnsi(composer.WordLine(*word.entry))) + "\r\n");
      }
      progress_.Show(word);
      if (!progress_.MayGoOn()) return;
    }
  }

  void ListByThreads(const std::vector<ListedSpan>& pieces) {
    constexpr std::chrono::milliseconds PATIENCE(5);
    PieceMakers makers(pieces.size(), Processors(), [this, &pieces] {
      const auto composer = std::make_shared<EntryComposer>(source_);
      return [composer, &pieces](std::size_t piece, std::string& to) {
        for (const ListedWord& word : pieces[piece]) composer->DisplayNextWord(*word.entry, to);
      };
    });
    for (std::size_t done = 0; done < pieces.size();) {
      if (const std::optional<std::string_view> text = makers.Next(PATIENCE)) {
        Add(*text);
        progress_.Show(pieces[done++].back());
      }
      if (!progress_.MayGoOn()) return;
    }
  }

  void Add(std::string_view text) {
    const bool first = state_.outputText.empty();
    state_.outputText += text;
    // The line end that opens the first entry goes while the text is still short.
    if (first) TrimLeadingControlChars(state_.outputText);
  }

  RunState& state_;
  UserInterface& ui_;
  ListingProgress progress_;
  EntrySource source_;
};

// False when a word could not be listed, before which the listing ends.
bool ComposeListing(RunState& state, UserInterface& ui) {
  const std::vector<ListedWord> words = ListedWords(state.table, state.settings.wordOrder);
  const auto end = std::find_if_not(words.begin(), words.end(), CanBeListed);
  ListingPass pass(state, ui);
  pass.List({words.begin(), end});
  if (end == words.end() || ui.StopRequested()) return true;
  RefuseFrequentWord(*end->entry, ui);
  return false;
}

void ShowListing(RunState& state, UserInterface& ui) {
  if (state.settings.mode == Mode::create) {
    ui.SetLabel(Label::keywordsFound,
                "Number of keywords found: " + GroupedNumber(state.table.WordCount()));
  }
  state.textboxFull = state.outputText.size() >= TEXTBOX_LIMIT;
  ui.SetOutput(EncodeUtf8(DecodeAnsi(TextboxPart(state.outputText))));
}

// What the header of the listing's file says of the input.
std::string DigestForHeader(RunState& state, UserInterface& ui) {
  const std::string& input = state.settings.inputFile;
  if (state.settings.mode != Mode::create) return {};
  if (!IsDigestOf(state.inputDigest, input)) state.inputDigest = ComputeInputDigest(input, ui);
  return state.inputDigest.text;
}

// Whether the listing is where it should be; the user has been told if not.
bool WriteListing(RunState& state, UserInterface& ui) {
  ConcordanceSettings& settings = state.settings;
  const auto write = [&state, &settings, &ui] {
    const FileWriting writing =
        WriteConcordanceFile(settings, DigestForHeader(state, ui), state.outputText, ui);
    state.outputWritten = writing.outcome == FileOutcome::written;
    state.fileFault = writing.fault;
    return writing.outcome != FileOutcome::failed;
  };
  if (state.outputSink) {
    state.outputWritten = WriteFileBytes(settings, DigestForHeader(state, ui), state.outputText,
                                         std::time(nullptr), state.outputSink);
    return state.outputWritten;
  }
  // A search writes whatever the settings say of the concordance file, and is silent about it.
  if (settings.mode == Mode::search) {
    settings.searchResultsFile = TrimBlanks(settings.searchResultsFile);
    return write();
  }
  if (settings.outputFile.empty()) {
    if (state.textboxFull) {
      ui.Tell("To get the entire concordance, specify a concordance (output) file.",
              "The concordance is too large for the textbox.", Icon::information);
    }
    return true;
  }
  if (settings.outputToFileDisabled) {
    ui.Tell("Output to file is disabled.", STANDARD_TITLE, Icon::information);
    return true;
  }
  if (write()) return true;
  ui.Tell(WritingFailed(settings.mode), "Error");
  return false;
}

// Shows the listing and, unless a word could not be listed, writes it.
ListingOutcome FinishListing(RunState& state, bool complete, UserInterface& ui) {
  ui.SetLabel(Label::keywordsFound, "");
  ListingOutcome outcome = ListingOutcome::failed;
  if (state.outputText.empty()) {
    ui.SetOutput("No result");
    if (complete) outcome = ListingOutcome::nothing;
  } else {
    ShowListing(state, ui);
    if (complete && WriteListing(state, ui)) outcome = ListingOutcome::listed;
  }
  ui.SetLabel(Label::busyIndicator, " ");
  return outcome;
}

}  // namespace

ListingOutcome ListWords(RunState& state, UserInterface& ui) {
  state.outputWritten = false;
  state.fileFault.clear();
  if (state.table.includedCount == 0) {
    ui.SetOutput("");
    return ListingOutcome::nothing;
  }
  const bool create = state.settings.mode == Mode::create;
  ui.AppendOutput(create ? "Creating concordance ...\r\n" : "Getting search results ...\r\n");
  const bool complete = ComposeListing(state, ui);
  // A stop from here on comes too late: the listing is whole, and written whole.
  const bool stopped = ui.StopRequested();
  const ListingOutcome outcome = FinishListing(state, complete, ui);
  if (!stopped) return outcome;
  ui.AppendOutput("\r\nListing stopped.\r\n");
  return outcome == ListingOutcome::failed ? outcome : ListingOutcome::stopped;
}

void TrimLeadingControlChars(std::string& text) {
  std::size_t count = 0;
  while (count < text.size() && static_cast<std::uint8_t>(text[count]) <= 32) ++count;
  text.erase(0, count);
}

std::string_view TextboxPart(std::string_view text) {
  if (text.size() < TEXTBOX_LIMIT) return text;
  const std::string_view part = text.substr(0, TEXTBOX_LIMIT);
  return part.substr(0, part.rfind(' ') + 1);
}

}  // namespace quorvel
