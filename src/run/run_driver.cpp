#include "run/run_driver.h"

#include <new>
#include <string>
#include <utility>

#include "engine/table_fit.h"
#include "engine/tokenizer.h"
#include "files/digest.h"
#include "files/file_system.h"
#include "files/path_names.h"
#include "input/compact_spaces.h"
#include "input/html_text.h"
#include "input/input_file.h"
#include "input/skip_spans.h"
#include "output/concordance_file.h"
#include "output/index_file.h"
#include "output/listing.h"
#include "output/occurrence_rows.h"
#include "util/ansi.h"
#include "util/time_text.h"

namespace quorvel {
namespace {

bool Refuse(UserInterface& ui, const std::string& text) {
  ui.Tell(text, STANDARD_TITLE);
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
  ui.Tell("Specify a keywords file or type one or more extra keywords.",
          ListButtonCaption(state.settings), Icon::information);
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
  BlankDoubleHyphens(*text);
  state.documentText = DecodeAnsi(*text);
  state.ansiText = std::move(*text);
  ui.YieldNow();
  return !ui.StopRequested();
}

// Whether the table holds the words of the input as it is now, so that they need not be
// scanned. Where they come from an index file and the input has changed since, the user
// is told.
bool AreWordsAtHand(const RunState& state, UserInterface& ui) {
  const ConcordanceSettings& settings = state.settings;
  const WordsAtHand& words = state.words;
  if (words.input.path != settings.inputFile) return false;
  if (words.withText &&
      (words.inputIsUtf8 != settings.inputIsUtf8 || words.ignoreLists != settings.ignoreLists)) {
    return false;
  }
  if (IsDigestOf(words.input, settings.inputFile) ||
      ComputeFileDigest(settings.inputFile, ui).text == words.input.text) {
    return true;
  }
  if (words.fromIndexFile) ShowBadIndexFile(ui);
  return false;
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

// Fills the table from the text. False when that was stopped.
bool ScanText(RunState& state, UserInterface& ui) {
  const bool soughtOnly = state.listsOnce && state.settings.mode == Mode::search;
  state.words = {};
  EmptyWordTable(state.table);
  state.table.positionWidth = PositionWidth(state.documentText.size());
  GetWords(state.documentText, state.table, ui, soughtOnly ? &state.lists.keywords : nullptr);
  ui.AppendOutput("Sorting ...\r\n");
  SortWordTable(state.table);
  ui.YieldNow();
  return !ui.StopRequested();
}

// The same beside the digest of the input, which the header of a concordance has.
bool ScanInput(RunState& state, UserInterface& ui) {
  const std::string& input = state.settings.inputFile;
  if (state.settings.mode != Mode::create || IsDigestOf(state.inputDigest, input)) {
    return ScanText(state, ui);
  }
  DigestUnderWay digest(input);
  if (!ScanText(state, ui)) return false;
  state.inputDigest = digest.Take();
  return true;
}

// Admits and orders the words that are at hand. False when they come from an index file
// and do not stand in the text as that has it; the user is told.
bool TakeWordsAtHand(RunState& state, UserInterface& ui) {
  OrderTable(state, ui);
  if (!state.words.fromIndexFile || TableFitsText(state.table, state.documentText)) return true;
  ShowBadIndexFile(ui);
  return false;
}

// Lists the words, which are admitted and ordered.
RunOutcome ListOrderedWords(RunState& state, UserInterface& ui) {
  ShowWordCounts(state.table, ui);
  if (state.table.includedCount == 0) {
    ui.SetOutput("No words satisfying the conditions were found.");
    return RunOutcome::nothingFound;
  }
  return OutcomeOf(state.outputFormat == OutputFormat::text ? ListWords(state, ui)
                                                            : ListOccurrences(state, ui));
}

// Reads the text unless it is there, and notes what it was read under.
bool ReadTextOnce(RunState& state, UserInterface& ui) {
  if (state.words.withText) return true;
  if (!ReadText(state, ui)) return false;
  state.words.withText = true;
  state.words.inputIsUtf8 = state.settings.inputIsUtf8;
  state.words.ignoreLists = state.settings.ignoreLists;
  return true;
}

RunOutcome RunPhases(RunState& state, UserInterface& ui) {
  if (!CheckInput(state.settings, ui) || !CheckKeywords(state, ui)) {
    ui.SetOutput("");
    return RunOutcome::refused;
  }
  const bool wantsIndex = state.settings.createIndexFile && state.settings.mode == Mode::create;
  const bool atHand = AreWordsAtHand(state, ui);
  if (!atHand) state.words = {};
  // Of the input before its text is read, for that is what an index file is tied to.
  state.inputDigest =
      wantsIndex && !atHand ? ComputeInputDigest(state.settings.inputFile, ui) : state.words.input;
  const std::string digest = state.inputDigest.text;
  if (!ReadTextOnce(state, ui)) {
    if (!ui.StopRequested()) return RunOutcome::refused;
    ui.SetOutput("Stopped when reading file.");
    return RunOutcome::stopped;
  }
  const bool scans = !atHand || !TakeWordsAtHand(state, ui);
  if (scans) {
    if (!ScanInput(state, ui)) return StopAfterScan(state, ui);
    OrderTable(state, ui);
  }
  state.outputWritten = false;
  state.fileFault.clear();
  const RunOutcome outcome = ListOrderedWords(state, ui);
  if (wantsIndex && scans && state.outputWritten) CreateIndexFile(state, digest, ui);
  return outcome;
}

}  // namespace

RunOutcome RunConcordance(RunState& state, UserInterface& ui) {
  if (!CheckExtraWords(state, ui)) return RunOutcome::refused;
  ui.SetOutput("");
  if (state.words.input.path.empty()) EmptyWordTable(state.table);
  ui.ClearStop();
  try {
    const RunOutcome outcome = RunPhases(state, ui);
    ui.SetLabel(Label::busyIndicator, " ");
    return outcome;
  } catch (const std::bad_alloc&) {
    EmptyWordTable(state.table);
    state.words = {};
    state.documentText = {};
    state.ansiText = {};
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
