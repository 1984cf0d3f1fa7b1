// The runs of a session, from its settings to the written file.

#include <string>
#include <utility>

#include "engine/table_fit.h"
#include "lines/strips.h"
#include "run/document_reading.h"
#include "run/fault_texts.h"
#include "run/outputs.h"
#include "run/run_captions.h"
#include "run/session.h"
#include "run/waiting.h"
#include "run/word_lists.h"
#include "util/ascii.h"
#include "util/time_text.h"
#include "util/visible_text.h"

namespace quorvel {
namespace {

RunOutcome OutcomeOf(ListingOutcome listing) {
  switch (listing) {
    case ListingOutcome::listed:
      return RunOutcome::done;
    case ListingOutcome::stopped:
      return RunOutcome::stopped;
    default:
      return RunOutcome::failed;
  }
}

}  // namespace

RunOutcome Session::RunConcordance() {
  RunOutcome outcome = RunOutcome::refused;
  const bool done = Enter(settings_.inputFile, [this, &outcome] {
    ui_.OfferStop(true);
    ui_.CountSeconds(true);
    const bool create = settings_.mode == Mode::create;
    if ((!create || ReadNamedStopWords()) && CheckExtraWords()) {
      ui_.OfferStop(true);
      ui_.SetOutput("");
      ui_.ClearStop();
      outcome = RunChecked();
    }
    ui_.CountSeconds(false);
    DropInput();
    if (!atHand_) document_.reset();  // a listing keeps its own pointer
  });
  return done ? outcome : RunOutcome::failed;
}

// Uses the current listing options; everything else comes from the previous listing.
RunOutcome Session::ListAgain() {
  RunOutcome outcome = RunOutcome::nothingToList;
  const bool done = Enter(settings_.inputFile, [this, &outcome] {
    if (listing_ == nullptr || listing_->ModeOf() != settings_.mode) return;
    settings_.searchResultsFile = TrimBlanks(settings_.searchResultsFile);
    outcome = RunOutcome::refused;
    if (!CheckOutputsOfRun(false)) return;
    ui_.OfferStop(true);
    ui_.ClearStop();
    Listing again = *listing_;
    again.options = ListingOptionsOf(settings_);
    listing_ = std::make_shared<const Listing>(std::move(again));
    const bool empty = listing_->words->counts.includedCount == 0;
    if (empty) ui_.SetOutput("");
    outcome = empty ? RunOutcome::nothingFound : List();
  });
  return done ? outcome : RunOutcome::failed;
}

// Both kinds of extra words are checked in both modes.
bool Session::CheckExtraWords() {
  settings_.extraStopWords = TidyExtraStopWords(settings_.extraStopWords, AlphabetNow());
  return CheckAllowedExtraChars(settings_, ui_) &&
         GetExtraKeywords(settings_, lists_.keywords, ui_);
}

bool Session::CheckInput() {
  settings_.inputFile = TrimBlanks(settings_.inputFile);
  settings_.searchResultsFile = TrimBlanks(settings_.searchResultsFile);
  if (settings_.inputFile.empty()) {
    ui_.Tell("Input file not specified.", STANDARD_TITLE);
    return false;
  }
  return CheckNotOwnOutput(settings_.inputFile, ui_) &&
         CheckExtension(settings_.inputFile, settings_.reading, ListButtonCaption(settings_),
                        ui_) &&
         (options_.input || CheckInputReadable(settings_.inputFile, ui_));
}

Output Session::ListingOutput() const {
  Output output = ListingOutputOf(settings_);
  if (options_.outputSink) output.path = options_.sinkPath;
  return output;
}

// An index is written only together with a listing.
bool Session::CheckOutputsOfRun(bool withIndex) {
  std::vector<Output> outputs = {ListingOutput()};
  const bool lists = options_.outputSink || !outputs.front().path.empty();
  if (withIndex && lists) outputs.push_back(IndexOutputOf(settings_));
  outputs.push_back({"picture", options_.pictureFile});
  return quorvel::CheckOutputs(outputs, FilesOfRun(), ui_);
}

bool Session::CheckKeywords() {
  if (settings_.mode == Mode::create || HoldKeywords(lists_.keywords)) return true;
  ui_.Tell("Specify a keywords file or type one or more extra keywords.",
           ListButtonCaption(settings_), Icon::information);
  return false;
}

bool Session::WantsIndex() const {
  return settings_.createIndexFile && settings_.mode == Mode::create;
}

RunOutcome Session::RunChecked() {
  report_ = {};
  if (!CheckInput() || !CheckOutputsOfRun(WantsIndex()) || !CheckKeywords()) {
    ClearCounts();
    return RunOutcome::refused;
  }
  ClearCounts();
  const bool atHand = AreWordsAtHand();
  if (ui_.StopRequested()) return EndUnread();
  if (!atHand) {
    // The old values are dropped first, to save memory.
    atHand_.reset();
    document_.reset();
    listing_.reset();
  }
  if (document_ == nullptr && !ReadDocument()) return EndUnread();
  return ScanAndList();
}

// True when there are words of the current input that need no scan. If they come from an index file
// and the input has changed since, the user is told.
bool Session::AreWordsAtHand() {
  if (!atHand_ || atHand_->inputFile != settings_.inputFile) return false;
  if (atHand_->reading != settings_.reading) return false;
  if (document_ != nullptr && document_->options != ReadingNow()) return false;
  if (IsInputAsItWas()) return true;
  if (atHand_->fromIndexFile && !ui_.StopRequested()) ShowBadIndexFile(ui_);
  return false;
}

// True when the input still has the bytes that the words at hand belong to.
bool Session::IsInputAsItWas() {
  if (StampOf(settings_.inputFile) == atHand_->stamp) return true;
  const Result<InputBytes> input = InputNow();
  if (!input) return false;
  const auto digest = DigestOf(*input);
  if (!WaitFor(*digest, ui_) || digest->Text() != atHand_->digest) return false;
  atHand_->stamp = input->Stamp();
  return true;
}

// Makes the document of the input. Returns false when reading failed or was stopped.
bool Session::ReadDocument() {
  Result<InputBytes> input = InputNow();
  if (!input) {
    if (input.Error().kind != FaultKind::stopped) ui_.Ask(MessageOf(input.Error()));
    return false;
  }
  ReadingRequest request;
  request.encodingChoice = options_.encodingChoice;
  request.options = ReadingNow();
  if (settings_.mode == Mode::create || atHand_) request.digest = DigestOf(*input);
  DropInput();
  document_ =
      ObtainDocument(*std::move(input), request, settings_.inputIsUtf8, macNoticeShown_, ui_);
  if (document_ == nullptr) return false;
  const Reading reading = document_->options.reading;
  if (document_->lostCharacters > 0) ui_.TellOfLostCharacters(document_->lostCharacters, reading);
  return true;
}

RunOutcome Session::EndUnread() {
  if (!ui_.StopRequested()) return RunOutcome::refused;
  ui_.SetOutput("Stopped when reading file.");
  return RunOutcome::stopped;
}

RunOutcome Session::ScanAndList() {
  const bool scans = !TakeWordsAtHand();
  if (scans) {
    const bool soughtOnly = options_.listsOnce && settings_.mode == Mode::search;
    const Words words = ScanWords(document_, soughtOnly ? &lists_.keywords : nullptr, ui_);
    ui_.YieldNow();
    if (ui_.StopRequested()) return StopAfterScan(words);
    OrderWords(words, nullptr);
  }
  const RunOutcome outcome = List();
  if (scans && WantsIndex() && report_.written) KeepIndex();
  if (!options_.pictureFile.empty() && report_.written) SavePicture();
  return outcome;
}

RunOutcome Session::StopAfterScan(const Words& words) {
  const std::int32_t count = words.table->WordCount();
  ui_.AppendOutput("Stopped with " + std::to_string(count) + " word" + (count == 1 ? "" : "s") +
                   " found.\r\n");
  ClearCounts();
  return RunOutcome::stopped;
}

// Uses the words at hand, if any, for the listing. Words from an index file are compared with the
// text first. If they do not fit, the user is told, and the input is scanned.
bool Session::TakeWordsAtHand() {
  if (!atHand_) return false;
  if (atHand_->fromIndexFile) (void)WaitFor(*document_->source.digest, ui_);
  const IncludeFlags include = Admit(*atHand_->table);
  const bool fits =
      !atHand_->fromIndexFile ||
      (document_->source.digest->Text() == atHand_->digest &&
       TableFitsText(*atHand_->table, include, document_->documentText, AlphabetNow()));
  if (fits) {
    OrderWords({document_, atHand_->table}, &include);
    return true;
  }
  ShowBadIndexFile(ui_);
  atHand_.reset();
  return false;
}

IncludeFlags Session::Admit(const WordTable& table) {
  ConcealNumWords(lists_.stopWords, true);
  lists_.extraStopWords = ExtraStopWordsOf(settings_.extraStopWords);
  return ApplyAdmissionFilters(table, settings_, lists_, AlphabetNow());
}

// Makes the listing. `include` may be null if the included words are not known yet.
void Session::OrderWords(const Words& words, const IncludeFlags* include) {
  ListedWords listed = {words, {}, {}, {}};
  ui_.BeginPhase("Applying filters");
  listed.include = include != nullptr ? *include : Admit(*words.table);
  ui_.BeginPhase("Counting words");
  listed.counts = CountIncludedWords(*words.table, listed.include);
  ui_.BeginPhase("Ordering by frequency");
  listed.frequencyChain = BuildFrequencyChain(*words.table, listed.include);
  Listing listing;
  listing.words = std::make_shared<const ListedWords>(std::move(listed));
  if (settings_.mode == Mode::search) {
    listing.keywords = std::make_shared<const KeywordLists>(lists_.keywords);
  }
  listing.options = ListingOptionsOf(settings_);
  listing_ = std::make_shared<const Listing>(std::move(listing));
}

RunOutcome Session::List() {
  ui_.CountSeconds(false);
  ShowWordCounts();
  report_ = {};
  if (listing_->words->counts.includedCount == 0) {
    ui_.SetOutput("No words satisfying the conditions were found.");
    return RunOutcome::nothingFound;
  }
  const bool create = settings_.mode == Mode::create;
  if (create) (void)WaitFor(*listing_->Source().source.digest, ui_);
  ListingTarget target;
  target.format = options_.outputFormat;
  target.path = OutputFileOf(settings_);
  target.isDisabled = create && settings_.outputToFileDisabled && !target.path.empty();
  target.isSilent = !create;
  target.asksBeforeReplacing = settings_.warnOnOverwrite;
  target.kept = FilesOfRun();
  target.targets = options_.targets;
  target.sink = options_.outputSink;
  const bool isUnicode = listing_->Source().options.reading == Reading::unicode;
  target.coding = isUnicode ? Coding::utf8 : Coding::windows1252;
  target.form = options_.form.value_or(TextForm{target.coding, true});
  if (options_.input) target.inputName = options_.input->name;
  target.rowOrder = options_.rowOrder;
  if (options_.rowsNameInput) target.nameInTable = settings_.inputFile;
  report_ = ListWords(*listing_, target, ui_);
  return OutcomeOf(report_.outcome);
}

void Session::KeepIndex() {
  FilesToKeep kept = FilesOfRun();
  const Output listingOutput = ListingOutput();
  kept.push_back({listingOutput.name, listingOutput.path});
  if (std::optional<Fault> fault = CreateIndexFile(*listing_->words, kept, ui_)) {
    report_.fileFault = std::move(fault);
    return;
  }
  const DocumentSource& source = document_->source;
  atHand_ = WordsAtHand{source.path,           source.stamp,
                        source.digest->Text(), listing_->words->words.table,
                        settings_.reading,     false};
}

void Session::SavePicture() {
  const std::string& path = options_.pictureFile;
  const std::string& title = options_.input ? options_.input->name : settings_.inputFile;
  ui_.BeginPhase("Drawing words");
  std::optional<Fault> fault = Save(path, settings_.warnOnOverwrite, [&](const PieceSink& take) {
    DrawStrips(VisibleName(title), LinesOfListing(*listing_), EntriesInOrder(*listing_), take, ui_);
  });
  if (fault) report_.fileFault = std::move(fault);
}

std::optional<Fault> Session::Save(const std::string& path, bool asks,
                                   const std::function<void(const PieceSink&)>& compose) {
  FilesToKeep kept = FilesOfRun();
  for (const Output& output : {ListingOutput(), IndexOutputOf(settings_)}) {
    kept.push_back({output.name, output.path});
  }
  OutputFile file(path, kept, options_.targets);
  if (file.Error()) return file.Error();
  if (asks && !MayReplace("file", path, ui_)) return std::nullopt;
  compose([&file](std::string_view piece) { return file.Write(piece); });
  ui_.YieldAtOnce();
  if (file.Commit()) return std::nullopt;
  return file.Error();
}

void Session::ShowWordCounts() {
  const WordCounts& counts = listing_->words->counts;
  ui_.SetLabel(Label::numberOfWords, "Number of words: " + GroupedNumber(counts.includedCount));
  ui_.SetLabel(Label::numberOfOccurrences,
               "Number of occurrences: " + GroupedNumber(counts.totalOccurrences));
}

}  // namespace quorvel
