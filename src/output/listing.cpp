#include "output/listing.h"

#include <algorithm>

#include "output/concordance_file.h"
#include "output/entry_composer.h"
#include "output/listed_words.h"
#include "util/ansi.h"
#include "util/large_pages.h"
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

void ShowError(UserInterface& ui, const std::string& text) {
  ui.Ask({text, "Error", Icon::exclamation, Buttons::ok, Answer::ok});
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

// The entries of a listing, one after the other.
class ListingPass {
 public:
  ListingPass(RunState& state, UserInterface& ui)
      : state_(state), ui_(ui), composer_(state.documentText, OptionsOf(state)) {
    state.outputText = {};
    ReserveLarge(state.outputText, ExpectedLength(state));
  }

  // Lists a word; false when it cannot be listed.
  bool List(const WordEntry& entry) {
    if (entry.Count() > MOST_OCCURRENCES) return RefuseFrequentWord(entry);
    const bool first = state_.outputText.empty();
    composer_.DisplayNextWord(entry, state_.outputText);
    // The line end that opens the first entry goes while the text is still short.
    if (first) TrimLeadingControlChars(state_.outputText);
    if (state_.settings.contextSize == 0) {
      ui_.SetOutput(EncodeUtf8(DecodeAnsi(composer_.WordLine(entry))) + "\r\n");
    }
    return true;
  }

 private:
  bool RefuseFrequentWord(const WordEntry& entry) {
    ShowError(ui_, "The word \"" + EncodeUtf8(entry.word) + "\" occurs " +
                       std::to_string(entry.Count()) + " times; a word that occurs more than " +
                       std::to_string(MOST_OCCURRENCES) +
                       " times cannot be listed.\r\nAdd it to the stop words.");
    return false;
  }

  RunState& state_;
  UserInterface& ui_;
  EntryComposer composer_;
};

// False when a word could not be listed; a stop ends it early.
bool ComposeListing(RunState& state, UserInterface& ui) {
  ListingPass pass(state, ui);
  return ForEachListedWord(state.table, state.settings.wordOrder, ui,
                           [&pass](const WordEntry& entry) { return pass.List(entry); });
}

void ShowListing(RunState& state, UserInterface& ui) {
  if (state.settings.mode == Mode::create) {
    ui.SetLabel(Label::keywordsFound,
                "Number of keywords found: " + GroupedNumber(state.table.WordCount()));
  }
  state.textboxFull = state.outputText.size() >= TEXTBOX_LIMIT;
  ui.SetOutput(EncodeUtf8(DecodeAnsi(TextboxPart(state.outputText))));
}

// Whether the listing is where it should be; the user has been told if not.
bool WriteListing(RunState& state, UserInterface& ui) {
  ConcordanceSettings& settings = state.settings;
  const auto write = [&state, &settings, &ui] {
    const FileWriting writing = WriteConcordanceFile(settings, state.outputText, ui);
    state.outputWritten = writing.outcome == FileOutcome::written;
    state.fileFault = writing.fault;
    return writing.outcome != FileOutcome::failed;
  };
  if (state.outputSink) {
    state.outputWritten =
        WriteFileBytes(settings, state.outputText, std::time(nullptr), state.outputSink, ui);
    return state.outputWritten;
  }
  // A search writes whatever the settings say of the concordance file, and is silent about it.
  if (settings.mode == Mode::search) {
    settings.searchResultsFile = TrimBlanks(settings.searchResultsFile);
    return write();
  }
  if (settings.outputFile.empty()) {
    if (state.textboxFull) {
      ui.Ask({"To get the entire concordance, specify a concordance (output) file.",
              "The concordance is too large for the textbox.", Icon::information, Buttons::ok,
              Answer::ok});
    }
    return true;
  }
  if (settings.outputToFileDisabled) {
    ui.Ask({"Output to file is disabled.", STANDARD_TITLE, Icon::information, Buttons::ok,
            Answer::ok});
    return true;
  }
  if (write()) return true;
  ShowError(ui, WritingFailed(settings.mode));
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
