// The bar that finds text. It is below the listing in the main window, and below the file in the
// viewer.
#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <optional>

#include "ui/table_work.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QWidget;

namespace quorvel {

// The placeholders of the find bar's box, such as "Find in the listing".
struct FindHints {
  QString all;
  QString part;  // while the box `output` shows only a part of the text
};

struct FindControls {
  QWidget* bar;
  QLineEdit* text;
  QLabel* count;
  QPlainTextEdit* output;
  FindHints hints = {};
};

// How many places were found, and the 1-based number of the selected one, or 0 for none.
struct FindCount {
  int selected = 0;
  int all = 0;
};

// A text other than that of the box `output`. Its box shows only a part of it.
struct FindTarget {
  QPlainTextEdit* box = nullptr;  // in which the found place is selected
  QString hint;                   // the placeholder of the find bar's box
  // Finds all places of a text. Events run meanwhile. Returns false if it was stopped.
  std::function<bool(const QString&, Progress&)> find;
  // Selects the next or the previous place that was found.
  std::function<void(bool backward)> goOn;
  std::function<FindCount()> count;
};

// Ignores case. After the last place the search continues at the first.
class FindBar : public QObject {
  Q_OBJECT

 public:
  FindBar(FindControls controls, QObject* parent);

  // Shows the bar. If text is selected in the box, the bar searches for it.
  void Open();

  // Hides the bar and gives the focus to the text.
  void Close() const;
  [[nodiscard]] bool IsOpen() const;

  void FindNext() { Find(false); }
  void FindPrevious() { Find(true); }

  // Finds the last search text again, also while the bar is hidden. Opens the bar if there is no
  // search text.
  void FindAgain(bool backward);

  // Searches another text from now on, or the box `output` again if `target` has no box.
  void SetTarget(const FindTarget& target);

  // Shows whether the box `output` contains only a part of the text. Call it when the text changes.
  void ShowSearchesPart(bool part);

 private:
  void Find(bool backward);
  void FindInTarget(Progress& progress);
  void ShowCount();
  void SayFound(const FindCount& count, bool isPart) const;
  void ShowWhere();
  [[nodiscard]] QPlainTextEdit& Box() const;

  FindControls controls_;
  FindTarget target_;
  LatestWork work_;                   // the search in the target
  std::optional<bool> goesBackward_;  // when the places are found
  bool searchesPart_ = false;
};

// Fills an empty `bar` with the controls that search `output`, hides it, and adds the keys to
// `window`. Returns the find bar, which belongs to `bar`.
[[nodiscard]] FindBar* AddFindBar(QWidget& bar, QPlainTextEdit& output, const FindHints& hints,
                                  QWidget& window);

}  // namespace quorvel
