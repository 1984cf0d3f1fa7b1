// Index files against a text: what is accepted for a text must be what its scan gives.
//
// The first line of an input is the text. Behind it stands an index, or, by the option, changes
// to the true index of that text.

#include "engine/index_file.h"

#include "engine/table_fit.h"
#include "fuzz_input.h"
#include "support/scanned_text.h"

namespace quorvel::fuzz {
namespace {

// Makes changes of four bytes and some: where (two bytes), how many bytes go, how many come.
std::string Changed(std::string bytes, FuzzInput& input) {
  while (!input.Rest().empty()) {
    const int place = input.Number(256) * 256 + input.Number(256);
    const auto gone = static_cast<std::size_t>(input.Number(10));
    std::string piece(static_cast<std::size_t>(input.Number(10)), ' ');
    for (char& ch : piece) ch = static_cast<char>(input.Number(256) + '0');
    bytes.replace(static_cast<std::size_t>(place) % (bytes.size() + 1), gone, piece);
  }
  return bytes;
}

// Whether each entry is one of the scan's and has no place that this has not.
bool IsPartOf(const WordTable& table, const WordTable& scanned) {
  return std::ranges::all_of(table.entries, [&scanned](const WordEntry& entry) {
    const auto found = std::ranges::find(scanned.entries, entry.word, &WordEntry::word);
    return found != scanned.entries.end() && found->sortKey == entry.sortKey &&
           std::ranges::includes(found->positions, entry.positions);
  });
}

// The words of an index that is accepted for the document, else no table.
Words WordsFor(const std::shared_ptr<const Document>& document, const std::string& bytes) {
  std::optional<WordTable> table = TableOfIndexFile(bytes, Alphabet::Windows1252());
  if (!table) return {};
  const IncludeFlags all(table->entries.size(), true);
  if (!TableFitsText(*table, all, document->documentText, Alphabet::Windows1252())) return {};
  return {document, std::make_shared<const WordTable>(*std::move(table))};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const bool changesTrueIndex = input.Flag();
  ConcordanceSettings settings;
  settings.contextSize = input.Number(LARGEST_CONTEXT_SIZE + 1);
  SilentProgress nobody;
  const Listing scanned = ScanText(DecodeAnsi(input.Line()), settings, nobody);
  const auto& document = scanned.words->words.document;
  const std::string ownIndex = IndexFileBytes(*scanned.words, "digest", 0);
  Words words = WordsFor(document, ownIndex);
  Require(words.table != nullptr, "the index of a text fits it");
  const Listing again = ListingOf(words, settings);
  RequireSame(IndexFileBytes(*again.words, "digest", 0), ownIndex, "and comes back");
  words =
      WordsFor(document, changesTrueIndex ? Changed(ownIndex, input) : std::string(input.Rest()));
  if (words.table == nullptr) return 0;
  Require(IsPartOf(*words.table, TableOf(scanned)), "what fits is what a scan gives");
  (void)Composed(ListingOf(words, settings), nobody);
  return 0;
}

}  // namespace quorvel::fuzz
