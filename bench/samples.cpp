#include "samples.h"

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "engine/tokenizer.h"
#include "files/file_system.h"
#include "generated_text.h"
#include "input/compact_spaces.h"
#include "input/document_text.h"
#include "output/entry_composer.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

constexpr std::size_t TEXT_LENGTH = 4'000'000;
constexpr std::size_t SENTENCES_LENGTH = 1'000'000;
constexpr std::size_t VOCABULARY = 5000;
constexpr std::size_t WIDE_VOCABULARY = 200'000;  // ten times as many of them come up

// A folder for the files of this run.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "quorvel_bench.XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder could be made");
    path_ = name;
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  [[nodiscard]] std::string FileNamed(const std::string& name) const {
    return (path_ / name).string();
  }

 private:
  std::filesystem::path path_;
};

std::string TextOf(Source source) {
  if (source == Source::repeatedSentence) return RepeatedSentence(SENTENCES_LENGTH);
  if (source == Source::wideVocabulary) return GeneratedText({TEXT_LENGTH, WIDE_VOCABULARY, 1});
  const char* const path = std::getenv("QUORVEL_BENCH_TEXT");
  if (path == nullptr) return GeneratedText({TEXT_LENGTH, VOCABULARY, 1});
  FileRead file = ReadFileBytes(path);
  if (!file.error.empty()) throw std::runtime_error(std::string(path) + ": " + file.error);
  return std::move(file.bytes);
}

void WriteText(const std::string& path, std::string_view text) {
  OutputFile file(path);
  if (!file.Write(text) || !file.Commit()) throw std::runtime_error(path + ": " + file.Error());
}

std::string TooFrequentWords(const WordTable& table) {
  std::string words;
  for (const WordEntry& entry : table.entries) {
    if (entry.Count() > MOST_OCCURRENCES) words += EncodeUtf8(entry.word) + " ";
  }
  return TidyExtraStopWords(words);
}

// The text of a file as it is listed.
std::string TextToList(const std::string& path, ConcordanceSettings& settings, UserInterface& ui) {
  bool macNoticeShown = false;
  std::optional<std::string> bytes = ObtainDocumentText(path, EncodingChoice::adoptDetected,
                                                        settings.inputIsUtf8, macNoticeShown, ui);
  if (!bytes) throw std::runtime_error("the text is of a kind that cannot be read");
  CompactSpaces(*bytes);
  BlankDoubleHyphens(*bytes);
  return std::move(*bytes);
}

RunState OrderedState(const Sample& sample, const ConcordanceSettings& settings) {
  RunState state;
  state.settings = settings;
  state.settings.inputFile = sample.path;
  state.settings.extraStopWords = TooFrequentWords(sample.scannedTable);
  state.lists.extraStopWords = ExtraStopWordsOf(state.settings.extraStopWords);
  state.documentText = sample.documentText;
  state.table = sample.scannedTable;
  SortWordTable(state.table);
  ApplyAdmissionFilters(state.table, state.settings, state.lists);
  CountIncludedWords(state.table);
  BuildFrequencyChain(state.table);
  return state;
}

Sample MakeSample(Source source) {
  static const ScratchFolder folder;
  const std::string name = std::to_string(static_cast<int>(source));
  const std::string bytes = TextOf(source);
  SilentInterface ui;
  ConcordanceSettings settings;
  Sample sample;
  sample.path = folder.FileNamed(name + ".txt");
  sample.concordancePath = folder.FileNamed(name + ".qvl.conc.txt");
  sample.fileLength = static_cast<std::int64_t>(bytes.size());
  WriteText(sample.path, bytes);
  std::string text = TextToList(sample.path, settings, ui);
  sample.documentText = DecodeAnsi(text);
  GetWords(sample.documentText, sample.scannedTable, ui);
  sample.ordered = OrderedState(sample, settings);
  sample.ordered.ansiText = std::move(text);
  return sample;
}

template <Source SOURCE>
const Sample& OnlySample() {
  static const Sample sample = MakeSample(SOURCE);
  return sample;
}

}  // namespace

const Sample& SampleOf(Source source) {
  switch (source) {
    case Source::wideVocabulary:
      return OnlySample<Source::wideVocabulary>();
    case Source::repeatedSentence:
      return OnlySample<Source::repeatedSentence>();
    default:
      return OnlySample<Source::text>();
  }
}

}  // namespace quorvel
