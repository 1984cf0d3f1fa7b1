// What the window or the command line works with: the settings, the word lists, and the values that
// the last run has made.
//
// A run and a listing again are two ways into it, through the same checks. It alone knows which of
// the values still holds for the settings of now, and drops the rest. What a run does and says is
// decided here and below; the front end fills the settings and shows what comes of it.
#pragma once

#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <string>

#include "engine/admission.h"
#include "engine/language_recognition.h"
#include "files/output_file.h"
#include "files/read_file.h"
#include "lists/languages.h"
#include "output/listing.h"
#include "run/conversation.h"
#include "run/index_use.h"
#include "run/input_check.h"
#include "run/listing_run.h"
#include "run/outputs.h"
#include "settings/settings.h"
#include "settings/settings_file.h"
#include "util/text_form.h"

namespace quorvel {

enum class RunOutcome {
  done,
  refused,        // a check failed or the user declined; they have been told
  nothingFound,   // no word satisfies the conditions
  nothingToList,  // there is no listing that could be made again
  stopped,        // by the user
  failed,         // what was composed could not all be listed or written
};

// An input that is no file.
struct GivenInput {
  InputBytes bytes;  // their path tells their kind alone
  std::string name;  // what the header calls it
  std::string path;  // of the file behind it, if any: no output may replace that
};

// How the words and the listing of a session are wanted; the same for all its runs.
struct SessionOptions {
  OutputFormat outputFormat = OutputFormat::text;
  LineOrder rowOrder = {};       // of the rows, where that is the format
  std::string pictureFile = {};  // where set, the words listed are drawn into it
  EncodingChoice encodingChoice = EncodingChoice::confirm;
  Targets targets = Targets::ordinaryFiles;  // which the listing may be written to
  bool listsOnce = false;      // the words of a run are listed at its end and then not again
  ByteSink outputSink = {};    // where set, the bytes of the listing go here and to no named file
  std::string sinkPath = {};   // of the file behind the sink, if any: it is an output like others
  bool rowsNameInput = false;  // they go into a table of several documents
  // What tells the languages of inputs; null: the session reads that itself.
  std::shared_ptr<const LanguagesByWord> languages = {};
  std::optional<GivenInput> input = {};  // of the only run, in the place of a file
  std::optional<TextForm> form = {};     // of the text that is written, where not as it is composed
};

class Session {
 public:
  explicit Session(Conversation& ui, SessionOptions options = {});

  // The settings and word lists of now, which the front end fills. A listing keeps those that it
  // was made with.
  [[nodiscard]] ConcordanceSettings& Settings() { return settings_; }
  [[nodiscard]] WordLists& Lists() { return lists_; }

  // That of the reading which is set now.
  [[nodiscard]] const Alphabet& AlphabetNow() const { return Alphabet::Of(settings_.reading); }

  // Does some work for the user, on `file`. Where the memory does not suffice for it, they are told
  // so with the name of the file, what the runs have made is dropped, and it gives false; the
  // session goes on. Every entry of a front end comes through here.
  template <typename Work>
  bool Enter(const std::string& file, const Work& work) {
    try {
      work();
      return true;
    } catch (const std::bad_alloc&) {
      EndWithoutMemory(file);
      return false;
    }
  }

  // Names the settings file that the session starts from: no output may replace it.
  void KeepSettingsFile(const std::string& path) { settingsFile_ = path; }

  // Reads settings from a file as RestoreSavedState does, and starts from them. Nothing, and the
  // settings are as they were, where the memory did not suffice; the user has been told.
  [[nodiscard]] std::optional<RestoredState> LoadSettings(const std::string& path, bool starting);

  // The settings are others as a whole: no word list that was read before is theirs. Stop words go
  // with the input that is yet to be set, but those of all six languages stay in use.
  void TakeLoadedSettings();

  // Writes the settings as SaveState does, and gives what that gives; but over none of the files
  // that they name, and not without memory: nothing then, and the user has been told.
  [[nodiscard]] std::optional<std::string> SaveSettings(const std::string& path);

  enum class InputOrigin { chosen, restored };

  // Sees to all that follows a new input, which stands in the settings: what is known of the last
  // one goes, and what this one brings is looked at. A restored input keeps the names that were
  // restored with it. One that cannot be used leaves the settings; the user has been told.
  void SetInput(InputOrigin origin);

  // The language of the input, English for want of any sign; nothing when that cannot be told.
  [[nodiscard]] std::optional<Language> RecognizeLanguage();

  // Takes the words of the next run from the input's index file, if there is one that fits.
  void UseIndexFile() { LoadWordsAtHand(false); }

  // The next run reads and scans its input, whatever is at hand.
  void DropWordsAtHand();

  // Texts are read so from now on, and so are the word lists that are in use.
  void ChangeReading(Reading reading);

  // Reads the stop words that the settings name and that have not been read. False when that could
  // not be done; the user has been told.
  [[nodiscard]] bool ReadNamedStopWords();

  // Whether the outputs of a run would replace nothing that must stay; else the user has been told.
  // The run asks that itself; this is for who reads other files before it.
  [[nodiscard]] bool CheckOutputs() { return CheckOutputsOfRun(WantsIndex()); }

  // Checks the settings, reads and scans the input, lists its words and writes the output file.
  RunOutcome RunConcordance();

  // Lists the words of the listing on the screen again, in the order and with the contexts that
  // the settings ask for now.
  RunOutcome ListAgain();

  // What the last run or listing again has written.
  [[nodiscard]] const ListingReport& Report() const { return report_; }

  // Writes what `compose` hands on into a file of the user's choice, which replaces none of those
  // that the settings name and, where it `asks`, no other one that the user wants to stay. Why that
  // could not be done, if it could not.
  [[nodiscard]] std::optional<Fault> Save(const std::string& path, bool asks,
                                          const std::function<void(const PieceSink&)>& compose);

  // The listing on the screen; null when there is none.
  [[nodiscard]] const std::shared_ptr<const Listing>& CurrentListing() const { return listing_; }

 private:
  [[nodiscard]] FilesToKeep FilesOfSettings() const;
  [[nodiscard]] FilesToKeep FilesOfRun() const;
  [[nodiscard]] Output ListingOutput() const;
  [[nodiscard]] bool WantsIndex() const;
  [[nodiscard]] ReadingOptions ReadingNow() const;

  bool CheckChosenInput();
  void FollowInput(InputOrigin origin);
  void LoadWordsAtHand(bool ask);
  [[nodiscard]] Result<InputBytes> InputNow();
  [[nodiscard]] std::shared_ptr<const InputDigest> DigestOf(const InputBytes& input);
  void DropInput();

  bool CheckExtraWords();
  bool CheckInput();
  bool CheckKeywords();
  bool CheckOutputsOfRun(bool withIndex);
  bool AreWordsAtHand();
  bool IsInputAsItWas();
  RunOutcome RunChecked();
  bool ReadDocument();
  RunOutcome EndUnread();
  RunOutcome ScanAndList();
  RunOutcome StopAfterScan(const Words& words);
  bool TakeWordsAtHand();
  [[nodiscard]] IncludeFlags Admit(const WordTable& table);
  void OrderWords(const Words& words, const IncludeFlags* include);
  RunOutcome List();
  void KeepIndex();
  void SavePicture();

  void ShowWordCounts();
  void ClearCounts();
  void DropValues();
  void EndWithoutMemory(const std::string& file);

  Conversation& ui_;
  Message memoryMessage_;  // with room for a path
  SessionOptions options_;
  ConcordanceSettings settings_;
  WordLists lists_;
  std::string settingsFile_;                   // that the settings come from, if any
  bool macNoticeShown_ = false;                // once in the life of the program is enough
  std::optional<Result<InputBytes>> input_;    // as it was read for the work at hand
  std::shared_ptr<const InputDigest> digest_;  // of that input, where it was wanted
  std::optional<WordsAtHand> atHand_;
  std::shared_ptr<const Document> document_;  // of the words at hand, or of the run under way
  std::shared_ptr<const Listing> listing_;
  ListingReport report_;
};

}  // namespace quorvel
