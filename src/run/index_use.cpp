#include "run/index_use.h"

#include <chrono>
#include <ctime>
#include <future>
#include <utility>

#include "engine/index_file.h"
#include "files/digest.h"
#include "files/path_names.h"
#include "run/waiting.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

bool WantsIndex(std::string_view date, Conversation& ui) {
  const std::string text = "An index file for this input file exists, created,\r\nnamely, " +
                           EncodeUtf8(DecodeAnsi(date)) + ".\r\n\r\nDo you wish to use it?";
  return ui.Ask({text, "Index file found", Icon::none, Buttons::yesNo, Answer::yes}) == Answer::yes;
}

}  // namespace

std::optional<WordsAtHand> ReadIndexFile(const InputBytes& input, const InputDigest& digest,
                                         bool ask, Conversation& ui) {
  const Result<InputBytes> index = ReadInput(DefaultIndexFileName(input.Path()), ui);
  if (!index) return std::nullopt;
  // Beside the digest, where the system has threads for both; looked at only when that fits.
  std::future<std::optional<WordTable>> table =
      std::async([&index] { return TableOfIndexFile(index->View()); });
  const IndexHead head = HeadOfIndexFile(index->View());
  if (!WaitFor(digest, ui)) return std::nullopt;
  if (digest.Text().empty() || head.digest != digest.Text()) {
    ShowBadIndexFile(ui);
    return std::nullopt;
  }
  if (ask && !WantsIndex(head.date, ui)) return std::nullopt;
  std::optional<WordTable> words = table.get();
  if (!words) return std::nullopt;
  return WordsAtHand{input.Path(), input.Stamp(), digest.Text(),
                     std::make_shared<const WordTable>(*std::move(words)), true};
}

std::optional<Fault> CreateIndexFile(const ListedWords& words, const FilesToKeep& kept,
                                     Conversation& ui) {
  const DocumentSource& source = words.words.document->source;
  const std::string target = DefaultIndexFileName(source.path);
  OutputFile file(target, kept);
  file.Write(IndexFileBytes(words, source.digest->Text(), std::time(nullptr)));
  ui.YieldAtOnce();
  if (file.Commit()) return std::nullopt;
  return file.Why();
}

void ShowBadIndexFile(Conversation& ui) {
  ui.Tell(
      "The index file was not made from this input file as it is now,\r\n"
      "so the input file will be scanned.",
      "Bad index file", Icon::information);
}

}  // namespace quorvel
