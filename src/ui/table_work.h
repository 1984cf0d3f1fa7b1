// Long work in the window, such as making lines or finding text in the document. Events run
// meanwhile, and work that is no longer needed is stopped.
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

// Work of which only the latest request matters. A request that arrives while the work is running
// stops it, and the work is then done again.
class LatestWork {
 public:
  // `work` must look up what is needed at that time.
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

  // Stops the work, if any.
  void Stop() {
    isWanted_ = false;
    if (current_ != nullptr) current_->RequestStop();
  }

 private:
  Progress* current_ = nullptr;
  bool isWanted_ = false;
};

}  // namespace quorvel
