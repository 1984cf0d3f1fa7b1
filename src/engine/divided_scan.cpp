#include "engine/divided_scan.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <future>
#include <thread>
#include <utility>

#include "util/background.h"
#include "util/worker_pool.h"

namespace quorvel {
namespace {

// The progress of a piece that another thread scans. If the system cannot start a thread, the
// calling thread scans the piece and lets events run.
class PieceProgress : public SilentProgress {
 public:
  PieceProgress(Progress& caller, std::atomic<bool>& stop) : caller_(caller), stop_(stop) {}

  void YieldNow() override {
    if (std::this_thread::get_id() == callingThread_) {
      caller_.YieldNow();
      if (caller_.StopRequested()) stop_ = true;
    }
    if (stop_) RequestStop();
  }

 private:
  Progress& caller_;
  std::atomic<bool>& stop_;
  std::thread::id callingThread_ = std::this_thread::get_id();
};

}  // namespace

std::size_t BestPieceCount(std::size_t length) {
  constexpr std::size_t SHORTEST = std::size_t{1} << 18U;  // a few milliseconds of work
  return std::clamp<std::size_t>(length / SHORTEST, 1, Processors());
}

// A surrogate may belong to a letter that begins in front of it.
std::vector<TextSpan> PiecesOfText(std::u16string_view text, const Alphabet& alphabet,
                                   std::size_t count) {
  std::vector<TextSpan> pieces;
  std::size_t begin = 0;
  for (std::size_t i = 1; i <= count && begin < text.size(); ++i) {
    std::size_t end = std::max(text.size() / count * i, begin + 1);
    if (i == count) end = text.size();
    while (end < text.size() &&
           (alphabet.ClassOf(text[end]) & (WORD_CLASSES | CLASS_SURROGATE)) != 0)
      ++end;
    pieces.push_back({begin, end});
    begin = end;
  }
  if (pieces.empty()) pieces.push_back({0, 0});
  return pieces;
}

WordTable ScanPieces(std::u16string_view text, const std::vector<TextSpan>& pieces,
                     const Alphabet& alphabet, const KeywordLists* sought, Progress& progress) {
  constexpr std::chrono::milliseconds PATIENCE(5);
  std::atomic<bool> stop = false;
  std::vector<std::future<WordTable>> others;
  for (std::size_t i = 1; i < pieces.size(); ++i) {
    const auto here = std::make_shared<PieceProgress>(progress, stop);
    others.push_back(RunInBackground([=, &alphabet, piece = pieces[i]] {
      WordTable table;
      GetWords(text, piece, alphabet, table, *here, sought);
      SortWordTable(table);
      return table;
    }));
  }
  std::vector<WordTable> tables(1);
  GetWords(text, pieces.front(), alphabet, tables.front(), progress, sought);
  for (std::future<WordTable>& other : others) {
    stop = progress.StopRequested();
    while (other.wait_for(PATIENCE) == std::future_status::timeout) {
      progress.YieldNow();
      stop = progress.StopRequested();
    }
    tables.push_back(other.get());
  }
  progress.BeginPhase("Sorting");
  SortWordTable(tables.front());
  return JoinedTables(std::move(tables));
}

}  // namespace quorvel
