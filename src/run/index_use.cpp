#include "run/index_use.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <future>
#include <utility>

#include "engine/index_file.h"
#include "files/digest.h"
#include "files/path_names.h"
#include "input/document.h"
#include "input/docx_text.h"
#include "run/waiting.h"
#include "unicode/packed_documents.h"
#include "util/ansi.h"
#include "util/background.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

bool WantsIndex(std::string_view date, Conversation& ui) {
  const std::string text = "An index file for this input file exists, created,\r\nnamely, " +
                           EncodeUtf8(DecodeAnsi(date)) + ".\r\n\r\nDo you wish to use it?";
  return ui.Ask({text, "Index file found", Icon::none, Buttons::yesNo, Answer::yes}) == Answer::yes;
}

// Reads an index file: its head first, and the rest only if it may belong to the input.
class IndexReading {
 public:
  IndexReading(const std::string& path, const Alphabet& alphabet)
      : alphabet_(alphabet), file_(path), head_(HeadOfIndexFile(file_.Begin(INDEX_HEAD_LENGTH))) {}

  // Cancels a read that is still running, so that the destructor need not wait for its end.
  ~IndexReading() { wanted_ = false; }

  IndexReading(const IndexReading&) = delete;
  IndexReading& operator=(const IndexReading&) = delete;

  // False also for a device or a pipe.
  [[nodiscard]] bool Exists() const { return !file_.Error(); }

  // True when the head and the length are possible for an index of this input. Reading a longer
  // file would waste time and memory.
  [[nodiscard]] bool MayBeOf(const InputBytes& input) const {
    const std::uint64_t textLength =
        PackedKindOf(input) ? BodyLimits{}.hard : std::uint64_t{input.View().size()};
    return file_.Length() <= std::min(LongestIndexFile(textLength), LONGEST_INPUT) &&
           IsDigest(head_.digest);
  }

  [[nodiscard]] const IndexHead& Head() const { return head_; }

  // Starts to read and parse the rest, on a thread of its own where the system provides one.
  void BeginRest() {
    if (!table_.valid()) table_ = RunInBackground([this] { return ReadTable(); });
  }

  // Returns the table, or nothing when it cannot be used or a stop was requested.
  [[nodiscard]] std::optional<WordTable> Table(Progress& progress) {
    BeginRest();
    const auto isReady = [this](std::chrono::milliseconds patience) {
      return table_.wait_for(patience) != std::future_status::timeout;
    };
    return WaitUntil(isReady, progress) ? table_.get() : std::nullopt;
  }

 private:
  std::optional<WordTable> ReadTable() {
    const auto goesOn = [this] { return wanted_.load(); };
    const Result<InputBytes> bytes = file_.ReadAll({}, goesOn);
    return bytes ? TableOfIndexFile(bytes->View(), alphabet_, goesOn) : std::nullopt;
  }

  const Alphabet& alphabet_;
  FileToRead file_;
  IndexHead head_;
  std::atomic<bool> wanted_ = true;
  std::future<std::optional<WordTable>> table_;  // destroyed first: waits for the thread
};

}  // namespace

// If the digest of the input is not ready, the index is parsed while the digest is computed. Its
// table is used only if the digests match.
std::optional<WordsAtHand> ReadIndexFile(const InputBytes& input, const InputDigest& digest,
                                         Reading reading, bool ask, Conversation& ui) {
  IndexReading index(DefaultIndexFileName(input.Path()), Alphabet::Of(reading));
  if (!index.Exists()) return std::nullopt;
  bool fits = index.MayBeOf(input);
  if (fits) {
    if (!digest.IsReady(std::chrono::milliseconds(0))) index.BeginRest();
    if (!WaitFor(digest, ui)) return std::nullopt;
    fits = index.Head().digest == digest.Text();
  }
  if (!fits) {
    ShowBadIndexFile(ui);
    return std::nullopt;
  }
  if (ask && !WantsIndex(index.Head().date, ui)) return std::nullopt;
  std::optional<WordTable> words = index.Table(ui);
  if (!words) return std::nullopt;
  return WordsAtHand{input.Path(),  input.Stamp(),
                     digest.Text(), std::make_shared<const WordTable>(*std::move(words)),
                     reading,       true};
}

std::optional<Fault> CreateIndexFile(const ListedWords& words, const FilesToKeep& kept,
                                     Conversation& ui) {
  const DocumentSource& source = words.words.document->source;
  const std::string target = DefaultIndexFileName(source.path);
  OutputFile file(target, kept, Targets::ordinaryFiles);
  file.Write(IndexFileBytes(words, source.digest->Text(), std::time(nullptr)));
  ui.YieldAtOnce();
  if (file.Commit()) return std::nullopt;
  return file.Error();
}

void ShowBadIndexFile(Conversation& ui) {
  ui.Tell(
      "The index file was not made from this input file as it is now,\r\n"
      "so the input file will be scanned.",
      "Bad index file", Icon::information);
}

}  // namespace quorvel
