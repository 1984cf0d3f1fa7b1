// The bar below the output box that finds a text in the listing.
#pragma once

#include <QObject>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QWidget;

namespace quorvel {

struct FindControls {
  QWidget* bar;
  QLineEdit* text;
  QLabel* count;
  QPlainTextEdit* output;
};

// Case does not matter; behind the last place the search goes on at the first.
class FindBar : public QObject {
  Q_OBJECT

 public:
  FindBar(const FindControls& controls, QObject* parent);

  // Shows the bar, with the text that is selected in the listing, if any.
  void Open();

  // Hides it; the listing has the keys then.
  void Close() const;

  void FindNext() { Find(false); }
  void FindPrevious() { Find(true); }

  // Finds what was sought last, which needs no bar; opens that where there is nothing to find.
  void FindAgain(bool backward);

  // Says, where this is so, that only a part of the listing is there to be searched.
  void ShowSearchesPart(bool part);

 private:
  void Find(bool backward);
  void ShowCount() const;

  FindControls controls_;
  bool searchesPart_ = false;
};

}  // namespace quorvel
