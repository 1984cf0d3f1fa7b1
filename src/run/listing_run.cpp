#include "run/listing_run.h"

#include <algorithm>
#include <ctime>
#include <utility>
#include <vector>

#include "files/file_system.h"
#include "output/concordance_file.h"
#include "output/entry_composer.h"
#include "run/outputs.h"
#include "run/result_writer.h"
#include "util/text_form.h"
#include "util/time_text.h"
#include "util/utf8.h"
#include "util/visible_text.h"

namespace quorvel {
namespace {

std::string TooFrequentText(const std::vector<const WordEntry*>& words, Mode mode) {
  constexpr std::size_t MOST_NAMED = 10;
  const std::string most = std::to_string(MOST_OCCURRENCES);
  const auto quoted = [](const WordEntry& entry) { return '"' + EncodeUtf8(entry.word) + '"'; };
  const auto count = [](const WordEntry& entry) { return std::to_string(entry.Count()); };
  std::string text;
  if (words.size() == 1) {
    text = "The word " + quoted(*words[0]) + " occurs " + count(*words[0]) +
           " times; a word that occurs more than " + most + " times cannot be listed.";
  } else {
    text = "The words ";
    for (std::size_t i = 0; i < std::min(words.size(), MOST_NAMED); ++i) {
      text += (i == 0 ? "" : ", ") + quoted(*words[i]) + " (" + count(*words[i]) + ")";
    }
    if (words.size() > MOST_NAMED) {
      text += " and " + std::to_string(words.size() - MOST_NAMED) + " more";
    }
    text += " occur more than " + most + " times and cannot be listed.";
  }
  if (mode == Mode::search) return text;  // stop words are not used in a search
  return text + "\r\nAdd " + (words.size() == 1 ? "it" : "them") + " to the stop words.";
}

class ListingRun {
 public:
  ListingRun(const Listing& listing, const ListingTarget& target, Conversation& ui)
      : listing_(listing),
        target_(target),
        ui_(ui),
        alphabet_(listing.Source().AlphabetOf()),
        mode_(listing.ModeOf()),
        tooFrequent_(TooFrequentWords(listing)) {}

  ListingReport ListText() {
    ui_.BeginPhase(mode_ == Mode::create ? "Creating concordance" : "Getting search results");
    OpenFile();
    Compose(
        listing_, [this](std::string_view piece) { return Take(piece); }, ui_);
    // A later stop has no effect: the listing is complete and is written completely.
    const bool stopped = ui_.StopRequested();
    report_.wordsTooFrequent = !stopped && !tooFrequent_.empty();
    if (report_.wordsTooFrequent) ui_.Tell(TooFrequentText(tooFrequent_, mode_), "Error");
    FinishListing();
    if (stopped) {
      ui_.AppendOutput("\r\nListing stopped.\r\n");
      if (report_.outcome != ListingOutcome::failed) report_.outcome = ListingOutcome::stopped;
    }
    return std::move(report_);
  }

  ListingReport ListRows() {
    ui_.BeginPhase("Writing rows");
    if (!target_.sink && (target_.path.empty() || !MayReplace(mode_, target_, ui_))) {
      return std::move(report_);
    }
    writer_.emplace(target_, "", "");
    const RowOptions options = {RowFormatOf(target_.format), target_.nameInTable, target_.rowOrder};
    ComposeRows(
        listing_, options, [this](std::string_view piece) { return writer_->Add(piece); }, ui_);
    report_.outcome = ui_.StopRequested() ? ListingOutcome::stopped : ListingOutcome::listed;
    if (!Commit() && !target_.sink) TellWritingFailed();
    return std::move(report_);
  }

 private:
  // Output to a device or a sink cannot be undone. So the user is asked about a device first, and
  // nothing is written if the listing will be incomplete.
  void OpenFile() {
    const bool isFile = !target_.sink && !target_.path.empty() && !target_.isDisabled;
    if (!isFile && !target_.sink) return;
    const bool isFinal = !isFile || (FileExists(target_.path) && !IsRegularFile(target_.path));
    if (isFinal && !tooFrequent_.empty()) return;
    if (isFinal && isFile && !MayReplace(mode_, target_, ui_)) return;
    mayReplace_ = isFinal;
    const DocumentSource& source = listing_.Source().source;
    const std::string digest = mode_ == Mode::create ? source.digest->Text() : "";
    const std::string& input = target_.inputName ? *target_.inputName : source.path;
    std::string header = FileHeader(mode_, input, digest, std::time(nullptr));
    writer_.emplace(target_, InForm(std::move(header), Coding::utf8, target_.form), LINE_END,
                    FormConverter(target_.coding, target_.form));
  }

  bool Take(std::string_view piece) {
    if (const std::size_t room = TEXTBOX_LIMIT - box_.size(); room > 0) {
      box_.append(alphabet_.Decode(piece), 0, room);
    }
    length_ += static_cast<std::int64_t>(alphabet_.CodeUnitsIn(piece));
    if (writer_) (void)writer_->Add(piece);
    // A word list shows the current word.
    if (listing_.options.contextSize == 0) ui_.SetOutput(EncodeUtf8(alphabet_.Decode(piece)));
    return true;
  }

  // Shows the listing and, unless a word could not be listed, writes it.
  void FinishListing() {
    ui_.SetLabel(Label::keywordsFound, "");
    if (report_.wordsTooFrequent) report_.outcome = ListingOutcome::failed;
    if (length_ == 0) {
      ui_.SetOutput("No result");
      return;
    }
    if (mode_ == Mode::create) {
      const std::int32_t words = listing_.words->words.table->WordCount();
      ui_.SetLabel(Label::keywordsFound, "Number of keywords found: " + GroupedNumber(words));
    }
    ui_.SetOutput(EncodeUtf8(TextboxPart(box_)));
    if (!report_.wordsTooFrequent) WriteListing();
    if (IsTextboxFull()) {
      ui_.SayWhatIsShown({static_cast<std::int64_t>(TEXTBOX_LIMIT), length_, report_.written});
    }
  }

  [[nodiscard]] bool IsTextboxFull() const { return length_ >= std::int64_t{TEXTBOX_LIMIT}; }

  void WriteListing() {
    if (writer_) {
      if (!mayReplace_ && !MayReplace(mode_, target_, ui_)) return;
      const bool committed = Commit();
      if (target_.isSilent || target_.sink) return;
      if (committed) {
        ui_.PopUp("Concordance file written");
      } else {
        TellWritingFailed();
      }
    } else if (target_.isDisabled) {
      ui_.Tell("Output to file is disabled.", STANDARD_TITLE, Icon::information);
    } else if (IsTextboxFull() && target_.path.empty() && !target_.isSilent) {
      ui_.Tell("To get the entire concordance, specify a concordance (output) file.",
               "The concordance is too large for the textbox.", Icon::information);
    }
  }

  bool Commit() {
    report_.written = writer_->Commit(ui_);
    report_.fileFault = writer_->Error();
    if (!report_.written) {
      // After a stop, a reader that closes the stream early is not an error.
      const bool isStop = target_.sink && ui_.StopRequested();
      report_.outcome = isStop ? ListingOutcome::stopped : ListingOutcome::failed;
    }
    return report_.written;
  }

  void TellWritingFailed() { ui_.Tell(WritingFailed(mode_), "Error"); }

  const Listing& listing_;
  const ListingTarget& target_;
  Conversation& ui_;
  const Alphabet& alphabet_;
  Mode mode_;
  std::vector<const WordEntry*> tooFrequent_;
  std::optional<ResultWriter> writer_;
  bool mayReplace_ = false;  // the user has been asked already
  std::u16string box_;       // the beginning of the listing, as much as the box may show
  std::int64_t length_ = 0;  // of the listing so far, in characters
  ListingReport report_;
};

}  // namespace

ListingReport ListWords(const Listing& listing, const ListingTarget& target, Conversation& ui) {
  ListingRun run(listing, target, ui);
  return target.format == OutputFormat::text ? run.ListText() : run.ListRows();
}

bool MayReplace(Mode mode, const ListingTarget& target, Conversation& ui) {
  return !target.asksBeforeReplacing || MayReplace(OutputName(mode), target.path, ui);
}

bool MayReplace(const std::string& name, const std::string& path, Conversation& ui) {
  if (!FileExists(path)) return true;
  const std::string text = "A " + name + " \r\n" + VisibleName(path) +
                           "\r\nalready exists.  Do you wish to overwrite it?";
  return ui.Ask({text, "File exists", Icon::none, Buttons::yesNo, Answer::yes}) == Answer::yes;
}

RowFormat RowFormatOf(OutputFormat format) {
  return format == OutputFormat::json ? RowFormat::json : RowFormat::tsv;
}

std::string WritingFailed(Mode mode) {
  return "An error occurred when creating " + OutputName(mode) + ".";
}

std::u16string_view TextboxPart(std::u16string_view text) {
  if (text.size() < TEXTBOX_LIMIT) return text;
  const std::u16string_view part = text.substr(0, TEXTBOX_LIMIT);
  return part.substr(0, part.rfind(u' ') + 1);
}

}  // namespace quorvel
