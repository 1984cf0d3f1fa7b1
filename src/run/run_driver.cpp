#include "run/run_driver.h"

#include <new>
#include <string>
#include <utility>

#include "engine/table_fit.h"
#include "engine/tokenizer.h"
#include "input/compact_spaces.h"
#include "input/file_system.h"
#include "input/html_text.h"
#include "input/input_file.h"
#include "input/path_names.h"
#include "input/skip_spans.h"
#include "output/concordance_file.h"
#include "output/digest.h"
#include "output/index_file.h"
#include "output/listing.h"
#include "util/ansi.h"
#include "util/time_text.h"

namespace quorvel {
namespace {

bool Refuse(UserInterface& ui, const std::string& text) {
  ui.Ask({text, STANDARD_TITLE, Icon::exclamation, Buttons::ok, Answer::ok});
  return false;
}

// An output file that is the input would take its place.
bool CheckOutputFile(const ConcordanceSettings& settings, UserInterface& ui) {
  const std::string& output = OutputFileOf(settings);
  if (output.empty() || !IsSameFile(settings.inputFile, output)) return true;
  return Refuse(ui, "The " + LowerAscii(OutputName(settings.mode)) +
                        " cannot be the same as the input file.");
}

bool CheckInput(ConcordanceSettings& settings, UserInterface& ui) {
  settings.inputFile = TrimBlanks(settings.inputFile);
  settings.searchResultsFile = TrimBlanks(settings.searchResultsFile);
  if (settings.inputFile.empty()) return Refuse(ui, "Input file not specified.");
  return PassesExtensionGate(settings.inputFile, ListButtonCaption(settings), ui) &&
         CheckInputReadable(settings.inputFile, ui) && CheckOutputFile(settings, ui);
}

// Both kinds of extra words are checked in either mode.
bool CheckExtraWords(RunState& state, UserInterface& ui) {
  state.settings.extraStopWords = TidyExtraStopWords(state.settings.extraStopWords);
  return CheckAllowedExtraChars(state.settings, ui) &&
         GetExtraKeywords(state.settings, state.lists.keywords, ui);
}

bool CheckKeywords(const RunState& state, UserInterface& ui) {
  if (state.settings.mode == Mode::create || HoldKeywords(state.lists.keywords)) return true;
  ui.Ask({"Specify a keywords file or type one or more extra keywords.",
          ListButtonCaption(state.settings), Icon::information, Buttons::ok, Answer::ok});
  return false;
}

// Makes plain text of the input as it was read, with its blanks compacted. False for
// a page that cannot be used; the user has been told.
bool PrepareText(const ConcordanceSettings& settings, std::string& text, UserInterface& ui) {
  HtmlOutcome outcome = HtmlOutcome::notAPage;
  if (PathNamesHtml(settings.inputFile)) {
    outcome = PrepareHtmlText(text, settings.inputIsUtf8, settings.ignoreLists, ui);
  }
  if (outcome == HtmlOutcome::notAPage) {
    ui.AppendOutput("Compacting spaces ...\r\n");
    CompactSpaces(text);
    ui.AppendOutput("Processing file ...\r\n");
  }
  return outcome != HtmlOutcome::refused;
}

// Fills the document text. False when reading failed or was stopped.
bool ReadText(RunState& state, UserInterface& ui) {
  SetSkipSpans(LowerExtensionOf(state.settings.inputFile), state.skipSpans);
  std::optional<std::string> text =
      ObtainDocumentText(state.settings.inputFile, state.encodingChoice, state.settings.inputIsUtf8,
                         state.macNoticeShown, ui);
  if (!text || !PrepareText(state.settings, *text, ui)) return false;
  ui.YieldNow();
  state.documentText = DecodeAnsi(*text);
  BlankDoubleHyphens(state.documentText);
  ui.YieldNow();
  return !ui.StopRequested();
}

// Whether the table holds the words of the input as it is now, so that they need not be
// scanned. Where they come from an index file and the input has changed since, the user
// is told.
bool AreWordsAtHand(const RunState& state, UserInterface& ui) {
  const ConcordanceSettings& settings = state.settings;
  const WordsAtHand& words = state.words;
  if (words.inputFile != settings.inputFile) return false;
  if (words.withText &&
      (words.inputIsUtf8 != settings.inputIsUtf8 || words.ignoreLists != settings.ignoreLists)) {
    return false;
  }
  if (StampOf(settings.inputFile) == words.stamp ||
      ComputeFileDigest(settings.inputFile).text == words.digest) {
    return true;
  }
  if (!words.withText) ShowBadIndexFile(ui);
  return false;
}

// Whether the words that an index file gave stand in the text; the user is told if not.
bool TakeWordsFromIndex(RunState& state, UserInterface& ui) {
  if (!TableFitsText(state.table, state.documentText)) {
    ShowBadIndexFile(ui);
    return false;
  }
  state.words.withText = true;
  state.words.inputIsUtf8 = state.settings.inputIsUtf8;
  state.words.ignoreLists = state.settings.ignoreLists;
  return true;
}

RunOutcome StopAfterScan(RunState& state, UserInterface& ui) {
  const std::int32_t count = state.table.WordCount();
  ui.AppendOutput("Stopped with " + std::to_string(count) + " word" + (count == 1 ? "" : "s") +
                  " found.\r\n");
  ConcealNumWords(state.lists.stopWords, false);
  return RunOutcome::stopped;
}

void OrderTable(RunState& state, UserInterface& ui) {
  ui.AppendOutput("Applying filters ...\r\n");
  ConcealNumWords(state.lists.stopWords, true);
  state.lists.extraStopWords = ExtraStopWordsOf(state.settings.extraStopWords);
  ApplyAdmissionFilters(state.table, state.settings, state.lists);
  ui.AppendOutput("Counting words ...\r\n");
  CountIncludedWords(state.table);
  ui.AppendOutput("Ordering by frequency ...\r\n");
  BuildFrequencyChain(state.table);
}

void ShowWordCounts(const WordTable& table, UserInterface& ui) {
  ui.SetLabel(Label::numberOfWords, "Number of words: " + GroupedNumber(table.includedCount));
  ui.SetLabel(Label::numberOfOccurrences,
              "Number of occurrences: " + GroupedNumber(table.totalOccurrences));
}

RunOutcome OutcomeOf(ListingOutcome listing) {
  switch (listing) {
    case ListingOutcome::listed:
      return RunOutcome::done;
    case ListingOutcome::stopped:
      return RunOutcome::stopped;
    case ListingOutcome::nothing:
      return RunOutcome::nothingFound;
    default:
      return RunOutcome::failed;
  }
}

enum class Gathering { done, refused, stoppedReading, stoppedScanning };

// Sees to it that the table holds the words of the input, and that its text is there.
Gathering GatherWords(RunState& state, bool& scanned, UserInterface& ui) {
  bool atHand = AreWordsAtHand(state, ui);
  if (!atHand) state.words = {};
  if (!state.words.withText && !ReadText(state, ui)) {
    return ui.StopRequested() ? Gathering::stoppedReading : Gathering::refused;
  }
  if (atHand && !state.words.withText) atHand = TakeWordsFromIndex(state, ui);
  scanned = !atHand;
  if (atHand) return Gathering::done;
  state.words = {};
  EmptyWordTable(state.table);
  state.table.positionWidth = PositionWidth(state.documentText.size());
  GetWords(state.documentText, state.table, ui);
  ui.AppendOutput("Sorting ...\r\n");
  SortWordTable(state.table);
  ui.YieldNow();
  return ui.StopRequested() ? Gathering::stoppedScanning : Gathering::done;
}

// Lists the words that are gathered.
RunOutcome ListGatheredWords(RunState& state, UserInterface& ui) {
  OrderTable(state, ui);
  ShowWordCounts(state.table, ui);
  if (state.table.includedCount == 0) {
    ui.SetOutput("No words satisfying the conditions were found.");
    return RunOutcome::nothingFound;
  }
  return OutcomeOf(ListWords(state, ui));
}

RunOutcome RunPhases(RunState& state, UserInterface& ui) {
  if (!CheckInput(state.settings, ui) || !CheckKeywords(state, ui)) {
    ui.SetOutput("");
    return RunOutcome::refused;
  }
  const bool wantsIndex = state.settings.createIndexFile && state.settings.mode == Mode::create;
  const std::string digest = wantsIndex ? ComputeFileDigest(state.settings.inputFile).text : "";
  bool scanned = false;
  switch (GatherWords(state, scanned, ui)) {
    case Gathering::refused:
      return RunOutcome::refused;
    case Gathering::stoppedReading:
      ui.SetOutput("Stopped when reading file.");
      return RunOutcome::stopped;
    case Gathering::stoppedScanning:
      return StopAfterScan(state, ui);
    case Gathering::done:
      break;
  }
  state.outputWritten = false;
  const RunOutcome outcome = ListGatheredWords(state, ui);
  if (wantsIndex && scanned && state.outputWritten) CreateIndexFile(state, digest);
  return outcome;
}

}  // namespace

RunOutcome RunConcordance(RunState& state, UserInterface& ui) {
  if (!CheckExtraWords(state, ui)) return RunOutcome::refused;
  if (state.words.inputFile.empty()) EmptyWordTable(state.table);
  ui.ClearStop();
  try {
    const RunOutcome outcome = RunPhases(state, ui);
    ui.SetLabel(Label::busyIndicator, " ");
    return outcome;
  } catch (const std::bad_alloc&) {
    EmptyWordTable(state.table);
    state.words = {};
    state.documentText = {};
    state.outputText = {};
    ui.SetOutput("");
    Refuse(ui, "There is not enough memory for this input file.");
    return RunOutcome::failed;
  }
}

std::string ListButtonCaption(const ConcordanceSettings& settings) {
  if (settings.mode == Mode::search) return "Search";
  return settings.outputToFileDisabled ? "List words (no file)" : "List words";
}

}  // namespace quorvel
