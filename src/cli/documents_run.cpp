#include "cli/documents_run.h"

#include <atomic>
#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "cli/document_run.h"
#include "cli/exit_status.h"
#include "cli/word_lists.h"
#include "files/file_system.h"
#include "files/folder_tree.h"
#include "files/path_names.h"
#include "output/occurrence_rows.h"
#include "run/outputs.h"
#include "run/result_writer.h"
#include "run/stop_word_choice.h"
#include "unicode/packed_documents.h"
#include "util/visible_text.h"
#include "util/worker_pool.h"

namespace quorvel {
namespace {

using exit_status::FAILED;
using exit_status::NOTHING_FOUND;
using exit_status::STOPPED;

int Worse(int status, int other) {
  for (const int worst : {STOPPED, FAILED, NOTHING_FOUND}) {
    if (status == worst || other == worst) return worst;
  }
  return 0;
}

// In a folder, only the file's own name decides whether it is a web page, not the folder's name.
bool IsDocument(const std::string& path, Reading reading) {
  const std::string extension = LowerExtensionOf(path);
  const bool isKnown =
      extension == "txt" || PathNamesHtml(extension) || IsPackedName(path, reading);
  return isKnown && !IsConcordanceFileName(path);
}

// Collects the documents of all inputs without duplicates. Problems with a folder are reported and
// make the exit status FAILED.
class Documents {
 public:
  Documents(const std::vector<std::string>& inputs, Reading reading, TerminalInterface& ui)
      : reading_(reading), ui_(ui) {
    for (const std::string& input : inputs) {
      if (FolderExists(input)) {
        AddFolder(input);
      } else {
        Add(input);
      }
    }
  }

  [[nodiscard]] const std::vector<std::string>& Paths() const { return paths_; }
  [[nodiscard]] int Status() const { return status_; }

 private:
  void AddFolder(const std::string& folder) {
    const FolderTree tree = FilesBelow(folder);
    for (const Fault& fault : tree.faults) Fail(fault.file, fault.reason);
    const std::size_t before = paths_.size();
    for (const std::string& file : tree.files) {
      if (IsDocument(file, reading_)) Add(file);
    }
    if (paths_.size() == before && tree.faults.empty()) {
      const bool isUnicode = reading_ == Reading::unicode;
      Fail(folder,
           isUnicode ? "There is no text file, web page, DOCX, ODT or EPUB document in this folder."
                     : "There is no text file, web page or DOCX document in this folder.");
    }
  }

  void Add(const std::string& path) {
    if (known_.insert(CanonicalPath(path)).second) paths_.push_back(path);
  }

  void Fail(const std::string& path, const std::string& reason) {
    ui_.SayOf(path, reason);
    status_ = FAILED;
  }

  Reading reading_;
  TerminalInterface& ui_;
  std::vector<std::string> paths_;
  std::set<std::string> known_;
  int status_ = 0;
};

// Receives the listings or rows of all documents in order.
class CommonResult {
 public:
  CommonResult(const CommandLine& commandLine, const std::vector<std::string>& documents,
               const ByteSink& result, const std::string& resultPath)
      : commandLine_(commandLine), output_(ListingOutputOf(commandLine.settings)) {
    const ConcordanceSettings& settings = commandLine.settings;
    target_.path = output_.path;
    target_.asksBeforeReplacing = settings.warnOnOverwrite;
    if (commandLine.toStandardOutput) {
      output_.path = resultPath;
      target_.sink = result;
    }
    target_.kept = {{"keywords file", settings.keywordsFile},
                    {"stop words file", settings.stopWordsFile},
                    {"settings file", commandLine.settingsFile}};
    for (const std::string& path : documents) target_.kept.push_back({"input file", path});
  }

  // True when the result may be written. Otherwise the user has been told.
  [[nodiscard]] bool MayBegin(Conversation& ui) const {
    return CheckOutputs({output_}, target_.kept, ui) &&
           (target_.sink || MayReplace(commandLine_.settings.mode, target_, ui));
  }

  // Adds the result of one document.
  bool Add(std::string_view piece) {
    if (piece.empty()) return true;
    if (!writer_) {
      const bool isTable = commandLine_.format != OutputFormat::text;
      const RowFormat format = RowFormatOf(commandLine_.format);
      const int contextSize = commandLine_.settings.contextSize;
      writer_.emplace(target_, isTable ? TableBegin(format, contextSize) : "",
                      isTable ? TableEnd(format) : "");
      if (isTable && format == RowFormat::json) piece.remove_prefix(1);  // the comma
    }
    return writer_->Add(piece);
  }

  // Returns false after any failure. The user has been told, except for standard output, whose
  // reader may also block until the user stops the run, which is no failure.
  bool Commit(TerminalInterface& ui) {
    if (!writer_ || writer_->Commit(ui)) return true;
    if (target_.sink) return ui.StopRequested();
    ui.Say(WritingFailed(commandLine_.settings.mode));
    if (const std::optional<Fault> fault = writer_->Error()) ui.SayOf(fault->file, fault->reason);
    return false;
  }

 private:
  const CommandLine& commandLine_;
  Output output_;
  ListingTarget target_;
  std::optional<ResultWriter> writer_;
};

// Loads the languages once for all documents, because loading them takes as long as listing a small
// document. Returns null when they are not needed or cannot be read; in the latter case each
// document reports it.
std::shared_ptr<const LanguagesByWord> LanguagesFor(const CommandLine& commandLine) {
  const ConcordanceSettings& settings = commandLine.settings;
  const bool areNeeded =
      settings.mode == Mode::create && RecognizesLanguage(commandLine.language, settings);
  return areNeeded ? ReadLanguages() : nullptr;
}

// Lists one document. Output that does not go to a file beside it is appended to `result`.
int ListDocument(const CommandLine& commandLine, const std::string& path,
                 const std::shared_ptr<const LanguagesByWord>& languages,
                 const std::atomic<bool>& stopped, std::string& result) {
  TerminalInterface ui(commandLine.answerPolicy, path, stopped);
  const auto append = [&result](std::string_view bytes) {
    result += bytes;
    return true;
  };
  return RunDocument(ForDocument(commandLine, path), append, "", ui, languages);
}

// Inputs that differ only in their extensions have the same output file. Removes all but the first
// of them and reports the others.
int FailLikeNames(const CommandLine& commandLine, std::vector<std::string>& documents,
                  TerminalInterface& ui) {
  int status = 0;
  std::map<std::string, std::string> inputs;
  if (!commandLine.listsBesideInputs) return status;
  std::erase_if(documents, [&](const std::string& path) {
    const std::string output = OutputFileOf(ForDocument(commandLine, path).settings);
    const auto [input, isNew] = inputs.try_emplace(CanonicalPath(output), path);
    if (isNew) return false;
    ui.SayOf(path, VisibleName(output) + " is already the output for " +
                       VisibleName(input->second) + ".");
    status = FAILED;
    return true;
  });
  return status;
}

// Stops the documents in progress, also when an exception leaves the scope.
struct StopAtEnd {
  std::atomic<bool>& stopped;

  ~StopAtEnd() { stopped = true; }
};

}  // namespace

int RunDocuments(const CommandLine& commandLine, const ByteSink& result,
                 const std::string& resultPath, TerminalInterface& ui) {
  constexpr std::chrono::milliseconds PATIENCE(50);
  const Documents found(commandLine.inputs, commandLine.settings.reading, ui);
  std::vector<std::string> documents = found.Paths();
  int status = Worse(found.Status(), FailLikeNames(commandLine, documents, ui));
  CommonResult common(commandLine, documents, result, resultPath);
  if (!commandLine.listsBesideInputs && !common.MayBegin(ui)) return FAILED;

  const auto languages = LanguagesFor(commandLine);
  std::atomic<bool> stopped = false;
  std::vector<int> statuses(documents.size());
  const auto newMaker = [&] {
    return [&](std::size_t i, std::string& to) {
      statuses[i] = ListDocument(commandLine, documents[i], languages, stopped, to);
    };
  };
  const auto goesOn = [&] {
    ui.YieldNow();
    return !ui.StopRequested();
  };
  {
    WorkerPool pool(documents.size(), commandLine.jobs, newMaker);
    const StopAtEnd stopAtEnd = {stopped};
    for (std::size_t i = 0; i < documents.size(); ++i) {
      std::optional<std::string_view> piece;
      while (!piece && goesOn()) piece = pool.Next(PATIENCE);
      if (!piece) break;
      status = Worse(status, statuses[i]);
      if (!common.Add(*piece)) break;
    }
  }
  if (ui.StopRequested()) status = STOPPED;
  return common.Commit(ui) ? status : FAILED;
}

}  // namespace quorvel
