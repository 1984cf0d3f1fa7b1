#include "samples.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <utility>

#include "engine/tokenizer.h"
#include "files/output_file.h"
#include "files/read_file.h"
#include "generated_text.h"
#include "output/entry_composer.h"
#include "run/document_reading.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

constexpr std::size_t TEXT_LENGTH = 4'000'000;
constexpr std::size_t SENTENCES_LENGTH = 1'000'000;
constexpr std::size_t VOCABULARY = 5000;
constexpr std::size_t WIDE_VOCABULARY = 200'000;  // ten times as many different words occur

// A temporary folder for the files of this run.
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
  constexpr std::uint64_t LONGEST = std::uint64_t{1} << 31U;
  Result<std::string> bytes = ReadFileBytes(path, LONGEST);
  if (!bytes) throw std::runtime_error(std::string(path) + ": " + bytes.Error().reason);
  return *std::move(bytes);
}

void WriteText(const std::string& path, std::string_view text) {
  OutputFile file(path, {});
  if (!file.Write(text) || !file.Commit()) throw std::runtime_error(path + ": not written");
}

std::string TooFrequentWords(const WordTable& table) {
  std::string words;
  for (const WordEntry& entry : table.entries) {
    if (entry.Count() > MOST_OCCURRENCES) words += EncodeUtf8(entry.word) + " ";
  }
  return TidyExtraStopWords(words, Alphabet::Windows1252());
}

Listing ListingOf(std::shared_ptr<const Document> document, const ConcordanceSettings& settings) {
  SilentProgress nobody;
  WordLists lists;
  lists.extraStopWords = ExtraStopWordsOf(settings.extraStopWords);
  ListedWords listed;
  listed.words = ScanWords(std::move(document), nullptr, nobody);
  const WordTable& table = *listed.words.table;
  listed.include = ApplyAdmissionFilters(table, settings, lists, Alphabet::Windows1252());
  listed.counts = CountIncludedWords(table, listed.include);
  listed.frequencyChain = BuildFrequencyChain(table, listed.include);
  return {std::make_shared<const ListedWords>(std::move(listed)), nullptr,
          ListingOptionsOf(settings)};
}

Sample MakeSample(Source source) {
  static const ScratchFolder folder;
  const std::string name = std::to_string(static_cast<int>(source));
  const std::string bytes = TextOf(source);
  Sample sample;
  sample.path = folder.FileNamed(name + ".txt");
  sample.concordancePath = folder.FileNamed(name + ".qvl.conc.txt");
  sample.fileLength = static_cast<std::int64_t>(bytes.size());
  WriteText(sample.path, bytes);
  sample.document = DocumentAt(sample.path);
  SilentProgress nobody;
  const std::u16string& text = sample.document->documentText;
  GetWords(text, {0, text.size()}, Alphabet::Windows1252(), sample.scannedTable, nobody);
  sample.settings.inputFile = sample.path;
  sample.settings.extraStopWords = TooFrequentWords(sample.scannedTable);
  sample.listing = ListingOf(sample.document, sample.settings);
  return sample;
}

template <Source SOURCE>
const Sample& OnlySample() {
  static const Sample sample = MakeSample(SOURCE);
  return sample;
}

}  // namespace

std::shared_ptr<const Document> DocumentAt(const std::string& path) {
  SilentConversation ui;
  Result<InputBytes> input = ReadInput(path, ui);
  if (!input) throw std::runtime_error(path + ": " + input.Error().reason);
  ReadingRequest request;
  request.encodingChoice = EncodingChoice::adoptDetected;
  request.digest = std::make_shared<const InputDigest>(*input);
  bool isUtf8 = false;
  bool macNoticeShown = false;
  auto document = ObtainDocument(*std::move(input), request, isUtf8, macNoticeShown, ui);
  if (document == nullptr) throw std::runtime_error("the text is of a kind that cannot be read");
  return document;
}

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
