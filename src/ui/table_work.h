// Work on many lines in the window: events run meanwhile, and it ends when it is no longer wanted.
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <functional>
#include <utility>

#include "util/progress.h"

namespace quorvel {

class TableWork : public Progress {
 public:
  TableWork() { sinceEvents_.start(); }

  void BeginPhase(std::string_view /*name*/) override {}
  void ShowBar(std::string_view /*caption*/) override {}
  void YieldNow() override {
    constexpr qint64 BETWEEN_EVENTS_MS = 25;
    if (sinceEvents_.elapsed() < BETWEEN_EVENTS_MS) return;
    QCoreApplication::processEvents();
    sinceEvents_.restart();
  }

 private:
  QElapsedTimer sinceEvents_;
};

// Work of which only the latest is wanted: a request that comes up in the events that run meanwhile
// ends what is under way, which is then done again.
class LatestWork {
 public:
  // `work` looks up for itself what is wanted by now.
  void Do(const std::function<void(Progress&)>& work) {
    isWanted_ = true;
    if (current_ != nullptr) return current_->RequestStop();
    while (std::exchange(isWanted_, false)) {
      TableWork progress;
      current_ = &progress;
      work(progress);
      current_ = nullptr;
    }
  }

  // Ends what is under way, if anything.
  void Stop() {
    isWanted_ = false;
    if (current_ != nullptr) current_->RequestStop();
  }

 private:
  Progress* current_ = nullptr;
  bool isWanted_ = false;
};

}  // namespace quorvel
