#include "input/pair_repair.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

// Lead bytes, and the bytes behind them that may follow one, are a cluster. Only the last lead byte
// of a cluster makes a pair, with the first byte behind the leads; what becomes of it decides
// whether there is another one. So a cluster is two numbers, and a replacement changes only the
// clusters whose pair is of its kind: for each kind there is a list of them. Not even these are
// touched while equal bytes follow: how often their kind was replaced says how many are gone.
//
// Where a cluster has lead bytes only and the next one follows at once, its lead bytes are that
// one's. The search stands at a byte, and what is replaced before it moves it on: that many bytes
// are passed without a look at them.

namespace quorvel {
namespace {

using Place = std::uint32_t;

struct Cluster {
  Place begin;             // in the text
  Place leads;             // how many there are
  Place next;              // the place of what follows them; of a merged one the cluster it went to
  Place end;               // of the cluster in the text
  Place since = 0;         // how often its kind had been replaced when this was so
  std::uint8_t kind = 0;   // of its pair: the byte behind the leads
  bool isWaiting = false;  // for that to be replaced
  bool isMerged = false;

  [[nodiscard]] Place Length() const { return isMerged ? 0 : leads + (end - next); }
  [[nodiscard]] bool IsUsedUp() const { return next == end; }
};

// A cluster in the list of its kind, up to a replacement that leaves it another pair or none.
struct Waiting {
  Place cluster;
  Place until;  // the number of that replacement
};

// All pairs of one kind.
struct Kind {
  Place replaced = 0;  // how often
  std::vector<Waiting> waiting;
};

// What becomes of each pair of a kind.
struct Change {
  Place leadsTaken = 1;
  Place bytesTaken = 0;  // of those behind the leads
  char becomes = 0;      // where none of these is taken, the first of them
  bool canRecur = true;  // the pair formed next can be of the same kind
};

class PairPass {
 public:
  PairPass(std::string& text, const PairRule& rule) : text_(text), rule_(rule) {
    FindClusters();
    for (std::size_t i = 0; i < clusters_.size(); ++i) Queue(i);
  }

  void Run(std::size_t start) {
    const auto first =
        std::partition_point(clusters_.begin(), clusters_.end(),
                             [start](const Cluster& one) { return one.end <= start; });
    current_ = static_cast<std::size_t>(first - clusters_.begin());
    if (first != clusters_.end() && first->begin < start) offset_ = start - first->begin;
    while (FindPair()) ReplaceItsKind();
    WriteText();
  }

 private:
  void FindClusters() {
    const std::string_view text = text_;
    std::size_t begin = text.find(rule_.lead);
    while (begin != std::string_view::npos) {
      const std::size_t next = std::min(text.find_first_not_of(rule_.lead, begin), text.size());
      std::size_t end = next;
      while (end < text.size() && PairRule::Covers(ByteAt(text, end))) ++end;
      clusters_.push_back({static_cast<Place>(begin), static_cast<Place>(next - begin),
                           static_cast<Place>(next), static_cast<Place>(end)});
      begin = text.find(rule_.lead, end);
    }
  }

  [[nodiscard]] bool HasPair(const Cluster& cluster) const {
    return !cluster.isMerged && cluster.leads > 0 && !cluster.IsUsedUp() &&
           PairRule::Covers(ByteAt(text_, cluster.next));
  }

  Kind& KindOf(const Cluster& cluster) {
    return kinds_.at(cluster.kind - PairRule::FIRST_CONTINUATION);
  }

  [[nodiscard]] Change ChangeOf(const Cluster& cluster) const {
    Change change;
    change.becomes = rule_.Replacement(cluster.kind);
    if (rule_.Removes(cluster.kind)) {
      change.bytesTaken = 1;
    } else if (change.becomes == rule_.lead) {
      // A lead byte again, which pairs with what follows.
      change.leadsTaken = 0;
      change.bytesTaken = 1;
    } else {
      change.canRecur = change.becomes == static_cast<char>(cluster.kind);
    }
    return change;
  }

  // Puts a cluster that has a pair into the list of its kind.
  void Queue(std::size_t i) {
    Cluster& cluster = clusters_[i];
    if (!HasPair(cluster)) return;
    cluster.kind = ByteAt(text_, cluster.next);
    const Change change = ChangeOf(cluster);
    const std::string_view rest(text_.data() + cluster.next, cluster.end - cluster.next);
    std::size_t times = change.leadsTaken > 0 ? cluster.leads : rest.size();
    if (change.bytesTaken > 0) {
      times = std::min({times, rest.size(), rest.find_first_not_of(rest.front())});
    } else if (!change.canRecur) {
      times = 1;
    }
    Kind& kind = KindOf(cluster);
    cluster.since = kind.replaced;
    cluster.isWaiting = true;
    kind.waiting.push_back({static_cast<Place>(i), kind.replaced + static_cast<Place>(times)});
  }

  // The cluster as it is by now.
  Cluster& Settled(std::size_t i) {
    Cluster& cluster = clusters_[i];
    if (!cluster.isWaiting) return cluster;
    const Kind& kind = KindOf(cluster);
    const Place times = kind.replaced - std::exchange(cluster.since, kind.replaced);
    if (times == 0) return cluster;
    const Change change = ChangeOf(cluster);
    cluster.leads -= change.leadsTaken * times;
    if (change.bytesTaken == 0) text_[cluster.next] = change.becomes;
    cluster.next += change.bytesTaken * times;
    return cluster;
  }

  // Moves to the next lead byte. False when it does not begin a pair, or there is none.
  bool FindPair() {
    while (current_ < clusters_.size() &&
           (clusters_[current_].isMerged || offset_ >= Settled(current_).leads)) {
      ++current_;
      offset_ = 0;
    }
    return current_ < clusters_.size() && offset_ + 1 == clusters_[current_].leads &&
           HasPair(clusters_[current_]);
  }

  // Replaces all pairs of the kind that was found. What follows from the replacement of that one is
  // seen to last: then it is known where its place has moved to.
  void ReplaceItsKind() {
    const Change change = ChangeOf(clusters_[current_]);
    Kind& kind = KindOf(clusters_[current_]);
    ++kind.replaced;
    due_.clear();
    due_.swap(kind.waiting);
    const std::size_t before = Release(kind.replaced);
    if (kind.waiting.empty()) kind.waiting.swap(due_);
    kind.waiting.insert(kind.waiting.end(), due_.begin(), due_.end());
    offset_ = Settled(current_).leads - (1 - change.leadsTaken);
    if (!clusters_[current_].isWaiting) Requeue(current_);
    while (clusters_[current_].isMerged) current_ = clusters_[current_].next;
    Pass(1 + before * (change.leadsTaken + change.bytesTaken));
  }

  // Takes those that wait no longer out of `due_`. Gives how many pairs stood before the found one.
  std::size_t Release(Place replaced) {
    std::size_t before = 0;
    std::size_t kept = 0;
    for (const Waiting& one : due_) {
      before += one.cluster < current_ ? 1 : 0;
      if (one.until > replaced) {
        due_[kept++] = one;
      } else if (!clusters_[one.cluster].isMerged) {
        Settled(one.cluster).isWaiting = false;
        if (one.cluster != current_) Requeue(one.cluster);
      }
    }
    due_.resize(kept);
    return before;
  }

  // Finds out what a cluster waits for next.
  void Requeue(std::size_t i) {
    if (clusters_[i].IsUsedUp() && clusters_[i].leads > 0) {
      Merge(i);
    } else {
      Queue(i);
    }
  }

  // Gives the lead bytes of a cluster that has nothing else to the one that follows at once, if
  // there is one, and so on where that has nothing else either.
  void Merge(std::size_t from) {
    do {
      const std::size_t to = Following(from);
      if (to == clusters_.size()) return;
      Settled(to).leads += clusters_[from].leads;
      clusters_[from].isMerged = true;
      clusters_[from].isWaiting = false;
      clusters_[from].next = static_cast<Place>(to);
      if (!clusters_[to].isWaiting) Queue(to);
      from = to;
    } while (clusters_[from].IsUsedUp() && from != current_);
  }

  // The cluster that follows at once, behind any that are merged; their number when there is none.
  std::size_t Following(std::size_t i) {
    const std::size_t after = i + 1;
    if (after == clusters_.size() || clusters_[after].begin != clusters_[i].end) {
      return clusters_.size();
    }
    std::size_t last = after;
    while (clusters_[last].isMerged) last = clusters_[last].next;
    for (std::size_t k = after; clusters_[k].isMerged;) {
      k = std::exchange(clusters_[k].next, static_cast<Place>(last));
    }
    return last;
  }

  // Moves the search on by `count` bytes of the text as it is by now.
  void Pass(std::size_t count) {
    while (true) {
      const Cluster& cluster = Settled(current_);
      const std::size_t left = cluster.Length() - offset_;
      if (count < left) {
        offset_ += count;
        return;
      }
      count -= left;
      ++current_;
      offset_ = 0;
      if (current_ == clusters_.size()) return;
      const std::size_t between = clusters_[current_].begin - cluster.end;
      if (count <= between) return;
      count -= between;
    }
  }

  void WriteText() {
    std::size_t out = 0;
    std::size_t in = 0;
    for (std::size_t i = 0; i < clusters_.size(); ++i) {
      const Cluster& cluster = Settled(i);
      out = Move(in, cluster.begin, out);
      in = cluster.end;
      if (cluster.isMerged) continue;
      text_.replace(out, cluster.leads, cluster.leads, rule_.lead);
      out = Move(cluster.next, cluster.end, out + cluster.leads);
    }
    text_.resize(Move(in, text_.size(), out));
  }

  // Moves a stretch of the text down to place `to`. Gives the place behind it.
  std::size_t Move(std::size_t begin, std::size_t end, std::size_t to) {
    std::copy_n(text_.data() + begin, end - begin, text_.data() + to);
    return to + (end - begin);
  }

  std::string& text_;
  const PairRule& rule_;
  std::vector<Cluster> clusters_;
  std::array<Kind, PairRule::LAST_CONTINUATION - PairRule::FIRST_CONTINUATION + 1> kinds_;
  std::vector<Waiting> due_;  // those whose pair is being replaced
  std::size_t current_ = 0;   // the cluster in which the search stands, or before which
  std::size_t offset_ = 0;    // how many bytes of it the search has passed
};

}  // namespace

void FinishPass(std::string& text, const PairRule& rule, std::size_t start) {
  PairPass(text, rule).Run(start);
}

}  // namespace quorvel
