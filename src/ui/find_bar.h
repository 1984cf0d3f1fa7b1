// The bar below a text that finds places in it: below the listing, and in the viewer below the
// file.
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

// How many places there are of what is sought, and the 1-based number of the one that is selected,
// 0 for none.
struct FindCount {
  int selected = 0;
  int all = 0;
};

// Another text than that of the box `output`, of which a box shows a part.
struct FindTarget {
  QPlainTextEdit* box = nullptr;  // whose selection goes from place to place
  QString hint;                   // the placeholder of the find bar's box
  // Finds all places of a text, in which events run; false when it was stopped.
  std::function<bool(const QString&, Progress&)> find;
  // Of the places found, selects the next one, or the one before, and says how many there are.
  std::function<void(bool backward)> goOn;
  std::function<FindCount()> count;
};

// Case does not matter; behind the last place the search goes on at the first.
class FindBar : public QObject {
  Q_OBJECT

 public:
  FindBar(FindControls controls, QObject* parent);

  // Shows the bar, with what is selected in the text, if anything.
  void Open();

  // Hides it; the text has the keys then.
  void Close() const;
  [[nodiscard]] bool IsOpen() const;

  void FindNext() { Find(false); }
  void FindPrevious() { Find(true); }

  // Finds what was sought last, which needs no bar; opens that where there is nothing to find.
  void FindAgain(bool backward);

  // Finds in that text from now on, or again in that of `output` where none is given.
  void SetTarget(const FindTarget& target);

  // Says, where this is so, that only a part of the text is there to be searched. To be called
  // whenever it is another one.
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
  LatestWork work_;                   // in the target
  std::optional<bool> goesBackward_;  // once the places are found
  bool searchesPart_ = false;
};

// Fills an empty `bar`, hidden at first, with the controls to search `output`, gives `window` the
// keys for that, and returns what they act on, which the bar deletes.
[[nodiscard]] FindBar* AddFindBar(QWidget& bar, QPlainTextEdit& output, const FindHints& hints,
                                  QWidget& window);

}  // namespace quorvel
