#include "lines_times.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <fstream>
#include <functional>

#include "measures.h"

namespace quorvel {
namespace {

constexpr int CHANGES = 22;
constexpr qint64 MOST_LINES = 32000;

// Processes events until all changes have been painted.
void Settle() {
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
}

// The longest time in which no events ran.
class LongestGap {
 public:
  LongestGap() {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Note(); });
    sinceEvents_.start();
    timer_.start(0);
  }

  [[nodiscard]] double End() {
    Note();
    return longest_;
  }

 private:
  void Note() {
    longest_ = std::max(longest_, Since(sinceEvents_));
    sinceEvents_.start();
  }

  QTimer timer_;
  QElapsedTimer sinceEvents_;
  double longest_ = 0;
};

class LinesTimes {
 public:
  explicit LinesTimes(MainWindow& window)
      : tabs_(*window.findChild<QTabWidget*>("tabResults")),
        words_(*window.findChild<QTableView*>("tblWords")),
        lines_(*window.findChild<QTableView*>("tblLines")),
        order_(*window.findChild<QComboBox*>("cboLineOrder")),
        filter_(*window.findChild<QLineEdit*>("txbLineFilter")),
        list_(*window.findChild<QPushButton*>("cmdListWords")) {}

  void Measure() {
    std::printf("\n| Words and lines, milliseconds | Median | Worst |\n|---|---|---|\n");
    const double before = AfterRuns();
    Row("The tab is shown again",
        [this](int round) { tabs_.setCurrentIndex(round % 2 == 0 ? 1 : 0); });
    tabs_.setCurrentIndex(1);
    words_.sortByColumn(1, Qt::DescendingOrder);
    Settle();
    Row("The most frequent words are chosen", [this](int round) {
      if (round % 2 == 0) {
        words_.selectRow(words_.model()->rowCount() - 1);
      } else {
        ChooseFrequentWords();
      }
    });
    ChooseFrequentWords();
    Settle();
    const int lines = lines_.model()->rowCount();
    Row("Their lines are ordered by the right context",
        [this](int round) { order_.setCurrentIndex(round % 2 == 0 ? 1 : 0); });
    Row("By the left context",
        [this](int round) { order_.setCurrentIndex(round % 2 == 0 ? 6 : 0); });
    Row("Filtered", [this](int round) { filter_.setText(round % 2 == 0 ? "house" : ""); });
    filter_.clear();
    Settle();
    Row("A step of scrolling", [this](int round) {
      lines_.verticalScrollBar()->setValue(round * 1771 % lines_.model()->rowCount());
    });
    Row("The document at another line", [this](int round) {
      lines_.setCurrentIndex(lines_.model()->index(round * 2911 % lines_.model()->rowCount(), 0));
    });
    const double held = Megabytes();
    std::vector<double> gaps;
    for (int round = 0; round < CHANGES; ++round) {
      LongestGap gap;
      words_.selectRow(0);
      Settle();
      words_.selectAll();
      Settle();
      words_.sortByColumn(round % 2, Qt::AscendingOrder);
      Settle();
      gaps.push_back(gap.End());
    }
    PrintRow("All words are chosen and sorted: the longest without events", gaps);
    std::printf("\nLines: %d; memory of the tab: %.1f MB\n", lines, held - before);
  }

 private:
  static void Row(const char* caption, const std::function<void(int)>& act) {
    std::vector<double> times;
    for (int round = 0; round < CHANGES; ++round) {
      QElapsedTimer clock;
      clock.start();
      act(round);
      Settle();
      times.push_back(Since(clock));
    }
    PrintRow(caption, times);
  }

  // Measures how long the tab takes to appear after a run. Returns the megabytes in use after the
  // last run, before the tab appeared.
  double AfterRuns() {
    constexpr int RUNS = 5;
    std::vector<double> times;
    double held = 0;
    for (int run = 0; run < RUNS; ++run) {
      tabs_.setCurrentIndex(0);
      list_.click();
      Settle();
      held = Megabytes();
      QElapsedTimer clock;
      clock.start();
      tabs_.setCurrentIndex(1);
      Settle();
      times.push_back(Since(clock));
    }
    PrintRow("The tab is shown after a run", times);
    return held;
  }

  // Selects the most frequent words, up to MOST_LINES lines in total.
  void ChooseFrequentWords() {
    QItemSelection rows;
    qint64 lines = 0;
    for (int row = 0; row < words_.model()->rowCount() && lines < MOST_LINES; ++row) {
      lines += words_.model()->index(row, 1).data().toString().remove(',').toLongLong();
      rows.select(words_.model()->index(row, 0), words_.model()->index(row, 2));
    }
    words_.selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
  }

  // The resident memory of the program.
  static double Megabytes() {
    std::ifstream status("/proc/self/statm");
    double pages = 0;
    status >> pages >> pages;
    return pages * 4096 / 1e6;
  }

  QTabWidget& tabs_;
  QTableView& words_;
  QTableView& lines_;
  QComboBox& order_;
  QLineEdit& filter_;
  QPushButton& list_;
};

}  // namespace

void MeasureWordsAndLines(MainWindow& window) { LinesTimes(window).Measure(); }

}  // namespace quorvel
