// Index files against a text: what is accepted for a text must be what its scan gives.
//
// The first line of an input is the text. Behind it stands an index, or, by the option, changes
// to the true index of that text.

#include "output/index_file.h"

#include "engine/table_fit.h"
#include "fuzz_input.h"
#include "output/listing.h"
#include "support/scanned_text.h"
#include "util/silent_interface.h"

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

// The table of an index that is accepted for the text, else none.
std::optional<WordTable> TableFor(std::u16string_view text, const std::string& bytes) {
  std::optional<WordTable> table = TableOfIndexFile(bytes);
  if (table && !TableFitsText(*table, text)) table.reset();
  return table;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const bool changesTrueIndex = input.Flag();
  ConcordanceSettings settings;
  settings.contextSize = input.Number(LARGEST_CONTEXT_SIZE + 1);
  SilentInterface ui;
  RunState state = ScanText(DecodeAnsi(input.Line()), settings, ui);
  const std::string ownIndex = IndexFileBytes(state.table, "digest", 0);
  auto table = TableFor(state.documentText, ownIndex);
  Require(table.has_value(), "the index of a text fits it");
  RequireSame(IndexFileBytes(*table, "digest", 0), ownIndex, "and comes back");
  table = TableFor(state.documentText, changesTrueIndex ? Changed(ownIndex, input) : input.Rest());
  if (!table) return 0;
  Require(IsPartOf(*table, state.table), "what fits is what a scan gives");
  state.table = std::move(*table);
  CountIncludedWords(state.table);
  BuildFrequencyChain(state.table);
  (void)ListWords(state, ui);
  return 0;
}

}  // namespace quorvel::fuzz
