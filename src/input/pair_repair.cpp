#include "input/pair_repair.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

// A cluster is a run of lead bytes and the continuation bytes after it. Only its last lead byte
// makes a pair, with the first continuation byte, and the result decides whether another pair
// follows. So a cluster is described by two numbers, and a replacement affects only the clusters
// whose pair is of its kind: each kind has a list of them. While equal continuation bytes follow,
// even these clusters are not touched. The number of times their kind was replaced tells how many
// bytes are gone.
//
// A cluster that has only lead bytes left, directly followed by another cluster, gives its lead
// bytes to that cluster. The search is at one byte; a replacement before that byte shifts the text,
// so the search then skips as many bytes as were removed.

namespace quorvel {
namespace {

using Place = std::uint32_t;

struct Cluster {
  Place begin;             // 0-based index in the text
  Place leads;             // the number of lead bytes
  Place next;              // end of the leads; if merged, the cluster it was merged into
  Place end;               // end of the cluster in the text
  Place since = 0;         // the replacement count of its kind that `leads` and `next` reflect
  std::uint8_t kind = 0;   // of its pair: the first continuation byte
  bool isWaiting = false;  // its pair waits to be replaced
  bool isMerged = false;

  [[nodiscard]] Place Length() const { return isMerged ? 0 : leads + (end - next); }
  [[nodiscard]] bool IsUsedUp() const { return next == end; }
};

// A cluster in the list of its kind, until a replacement leaves it with another pair or none.
struct Waiting {
  Place cluster;
  Place until;  // the replacement count at which this happens
};

// All pairs of one kind.
struct Kind {
  Place replaced = 0;  // the replacement count
  std::vector<Waiting> waiting;
};

// The effect of a replacement on each pair of a kind.
struct Change {
  Place leadsTaken = 1;
  Place bytesTaken = 0;  // continuation bytes
  char becomes = 0;      // if none is taken, the new first continuation byte
  bool canRecur = true;  // the next pair can be of the same kind
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
      // The result is a lead byte again, which pairs with the next continuation byte.
      change.leadsTaken = 0;
      change.bytesTaken = 1;
    } else {
      change.canRecur = change.becomes == static_cast<char>(cluster.kind);
    }
    return change;
  }

  // Adds a cluster that has a pair to the list of its kind.
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

  // Returns the cluster after all replacements so far.
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

  // Moves to the next lead byte. Returns false when it does not begin a pair, or when there is
  // none.
  bool FindPair() {
    while (current_ < clusters_.size() &&
           (clusters_[current_].isMerged || offset_ >= Settled(current_).leads)) {
      ++current_;
      offset_ = 0;
    }
    return current_ < clusters_.size() && offset_ + 1 == clusters_[current_].leads &&
           HasPair(clusters_[current_]);
  }

  // Replaces all pairs of the kind that was found. The cluster of the search is handled last,
  // because only then its new place is known.
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

  // Removes the clusters that no longer wait from `due_`. Returns the number of pairs before the
  // one that was found.
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

  // Determines what a cluster waits for next.
  void Requeue(std::size_t i) {
    if (clusters_[i].IsUsedUp() && clusters_[i].leads > 0) {
      Merge(i);
    } else {
      Queue(i);
    }
  }

  // Gives the lead bytes of a cluster that has nothing else to the cluster directly after it, if
  // any. Repeats this while the receiving cluster has nothing else either.
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

  // The cluster directly after this one, following merged clusters. Returns clusters_.size() when
  // there is none.
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

  // Advances the search by `count` bytes of the current text.
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

  // Moves a part of the text down to index `to`. Returns the index after it.
  std::size_t Move(std::size_t begin, std::size_t end, std::size_t to) {
    std::copy_n(text_.data() + begin, end - begin, text_.data() + to);
    return to + (end - begin);
  }

  std::string& text_;
  const PairRule& rule_;
  std::vector<Cluster> clusters_;
  std::array<Kind, PairRule::LAST_CONTINUATION - PairRule::FIRST_CONTINUATION + 1> kinds_;
  std::vector<Waiting> due_;  // clusters whose pair is being replaced
  std::size_t current_ = 0;   // the cluster at or after the search position
  std::size_t offset_ = 0;    // bytes of that cluster before the search position
};

}  // namespace

void FinishPass(std::string& text, const PairRule& rule, std::size_t start) {
  PairPass(text, rule).Run(start);
}

}  // namespace quorvel
