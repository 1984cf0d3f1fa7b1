// A session of the window or the command line: the settings, the word lists, and the values of the
// last run.
//
// A run and a repeated listing are two ways to use it, with the same checks. Only the session knows
// which values are still valid for the current settings, and drops the others. All decisions and
// messages of a run are made here and in the layers below. The front end fills the settings and
// shows the results.
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
  refused,        // a check failed or the user declined; the user has been told
  nothingFound,   // no word satisfies the conditions
  nothingToList,  // there is no listing that could be made again
  stopped,        // by the user
  failed,         // what was composed could not all be listed or written
};

// An input that is not a file.
struct GivenInput {
  InputBytes bytes;  // the path says only which kind of input it is
  std::string name;  // in the header
  std::string path;  // of the file behind it, if any; outputs must not replace it
};

// Options that are the same for all runs of a session.
struct SessionOptions {
  OutputFormat outputFormat = OutputFormat::text;
  LineOrder rowOrder = {};       // used for rows
  std::string pictureFile = {};  // if set, a picture of the listed words is written to it
  EncodingChoice encodingChoice = EncodingChoice::confirm;
  Targets targets = Targets::ordinaryFiles;  // files that the listing may be written to
  bool listsOnce = false;                    // the listing will not be repeated
  ByteSink outputSink = {};    // if set, receives the bytes of the listing; no file is written
  std::string sinkPath = {};   // of the file behind the sink, if any; checked like others
  bool rowsNameInput = false;  // the rows are part of a table of several documents
  // For recognizing the language of inputs. If null, the session loads it itself.
  std::shared_ptr<const LanguagesByWord> languages = {};
  std::optional<GivenInput> input = {};  // the input of the only run, instead of a file
  std::optional<TextForm> form = {};     // of the written text, if not the default form
};

class Session {
 public:
  explicit Session(Conversation& ui, SessionOptions options = {});

  // The current settings and word lists, which the front end fills. A listing keeps the ones that
  // it was made with.
  [[nodiscard]] ConcordanceSettings& Settings() { return settings_; }
  [[nodiscard]] WordLists& Lists() { return lists_; }

  // The alphabet of the current reading.
  [[nodiscard]] const Alphabet& AlphabetNow() const { return Alphabet::Of(settings_.reading); }

  // Calls `work`, which handles `file`. If memory runs out, tells the user with the name of the
  // file, drops the values of the runs, and returns false; the session stays usable. Every call
  // from a front end goes through this function.
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

  // Sets the settings file that the session started from. Outputs must not replace it.
  void KeepSettingsFile(const std::string& path) { settingsFile_ = path; }

  // Reads settings as RestoreSavedState does, and uses them. If memory runs out, tells the user,
  // leaves the settings unchanged and returns nothing.
  [[nodiscard]] std::optional<RestoredState> LoadSettings(const std::string& path, bool starting);

  // Call it after all settings were replaced: drops word lists of the previous settings. Stop words
  // are reset when the input is set, but those of all six languages stay in use.
  void TakeLoadedSettings();

  // Writes the settings and returns the result as SaveState does, but never replaces a file that
  // the settings name. In that case, or if memory runs out, tells the user and returns nothing.
  [[nodiscard]] std::optional<std::string> SaveSettings(const std::string& path);

  enum class InputOrigin { chosen, restored };

  // Handles a new input, which must already be in the settings: drops everything about the previous
  // input and examines the new one. With `restored`, file names in the settings are kept. If the
  // input cannot be used, tells the user and removes it from the settings.
  void SetInput(InputOrigin origin);

  // Returns the language of the input, English without any evidence, or nothing on failure.
  [[nodiscard]] std::optional<Language> RecognizeLanguage();

  // The next run uses the words of the input's index file, if there is a valid one.
  void UseIndexFile() { LoadWordsAtHand(false); }

  // The next run reads and scans its input again.
  void DropWordsAtHand() { atHand_.reset(); }

  // Changes how texts are read, and reads the current word lists again.
  void ChangeReading(Reading reading);

  // Reads the stop words that the settings name, unless they are loaded. On failure tells the user
  // and returns false.
  [[nodiscard]] bool ReadNamedStopWords();

  // True when no output of a run would replace a file that must stay. Otherwise tells the user. A
  // run makes this check itself; call it before reading other files.
  [[nodiscard]] bool CheckOutputs() { return CheckOutputsOfRun(WantsIndex()); }

  // Checks the settings, reads and scans the input, lists its words, and writes the output file.
  RunOutcome RunConcordance();

  // Repeats the current listing with the order and the contexts of the current settings.
  RunOutcome ListAgain();

  // The report of the last listing.
  [[nodiscard]] const ListingReport& Report() const { return report_; }

  // Writes the output of `compose` to a file that the user chose. Never replaces a file that the
  // settings name. With `asks`, asks before replacing any other file. Returns the fault, if any.
  [[nodiscard]] std::optional<Fault> Save(const std::string& path, bool asks,
                                          const std::function<void(const PieceSink&)>& compose);

  // The current listing, or null.
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
  Message memoryMessage_;  // with room reserved for a path
  SessionOptions options_;
  ConcordanceSettings settings_;
  WordLists lists_;
  std::string settingsFile_;                   // that the settings come from, if any
  bool macNoticeShown_ = false;                // shown only once
  std::optional<Result<InputBytes>> input_;    // read for the current work
  std::shared_ptr<const InputDigest> digest_;  // of that input, if needed
  std::optional<WordsAtHand> atHand_;
  std::shared_ptr<const Document> document_;  // of the words at hand, or of the current run
  std::shared_ptr<const Listing> listing_;
  ListingReport report_;
};

}  // namespace quorvel
