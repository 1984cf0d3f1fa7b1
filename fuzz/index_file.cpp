// Checks index files against a text: if an index is accepted for a text, it must be what a scan
// gives.
//
// The first line of an input is the text. The rest is an index or, depending on an option, changes
// to the correct index of that text.

#include "engine/index_file.h"

#include "engine/table_fit.h"
#include "fuzz_input.h"
#include "support/scanned_text.h"
#include "util/ansi.h"

namespace quorvel::fuzz {
namespace {

// Applies changes. Each has an index (two bytes), the number of bytes to remove, the number of
// bytes to insert, and these bytes.
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

// True when each entry is also in the scanned table, with at least the same positions.
bool IsPartOf(const WordTable& table, const WordTable& scanned) {
  return std::ranges::all_of(table.entries, [&scanned](const WordEntry& entry) {
    const auto found = std::ranges::find(scanned.entries, entry.word, &WordEntry::word);
    return found != scanned.entries.end() && found->sortKey == entry.sortKey &&
           std::ranges::includes(found->positions, entry.positions);
  });
}

// The words of an index that is accepted for the document. Otherwise the table is null.
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
  RequireSame(IndexFileBytes(*again.words, "digest", 0), ownIndex,
              "the index of a text is restored unchanged");
  words = WordsFor(document, changesTrueIndex ? Changed(ownIndex, input) : input.Rest());
  if (words.table == nullptr) return 0;
  Require(IsPartOf(*words.table, TableOf(scanned)), "an accepted index is part of the scan");
  (void)Composed(ListingOf(words, settings), nobody);
  return 0;
}

}  // namespace quorvel::fuzz
