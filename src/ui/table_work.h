// Work on many lines in the window: events run meanwhile, and it ends when it is no longer wanted.
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>

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

}  // namespace quorvel
