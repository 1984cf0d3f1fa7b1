// Shows where in the document the chosen words occur: one strip for each word.
//
// A click goes to the nearest place. The left and right keys go to the previous and the next place.
// The up and down keys choose a strip.
#pragma once

#include <QAbstractScrollArea>
#include <QImage>
#include <cstdint>
#include <functional>
#include <map>
#include <vector>

#include "engine/position.h"

namespace quorvel {

// Draws a strip: one stroke for each column with occurrences. Columns with more occurrences are
// darker.
void PaintStrip(QPainter& painter, const QRect& place, const std::vector<std::int32_t>& strip,
                const QColor& colour);

// The words with a strip, in a document of `length` code units. `placesOf` returns the
// positions of a word's lines, ascending. It is called only for strips that are needed, because
// there may be very many words.
struct StripWords {
  std::vector<QString> words;
  std::function<std::vector<Position>(std::size_t)> placesOf;
  std::size_t length = 0;
};

class StripsView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  explicit StripsView(QWidget* parent = nullptr);

  void Show(StripWords words);

  // Marks a position in all strips. NO_POSITION marks nothing.
  void MarkPlace(Position position);

  // A picture of all strips under a title. Null if there are too many strips for a picture.
  [[nodiscard]] QImage Picture(const QString& title);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  // The user chose a place of a word.
  void PlaceChosen(Position position);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  [[nodiscard]] int RowHeight() const;
  [[nodiscard]] int LabelWidth() const;
  [[nodiscard]] QRect StripOfRow(int row) const;
  void PaintRows(QPainter& painter, int first, int last);
  [[nodiscard]] int RowCount() const { return static_cast<int>(shown_.words.size()); }
  [[nodiscard]] const std::vector<Position>& PlacesOf(int row);
  void ShowScrollBar();
  [[nodiscard]] QString SpokenRow();
  void ChooseRow(int row);
  void GoBeside(bool forward);

  StripWords shown_;
  std::map<int, std::vector<Position>> places_;  // by row, of the strips that were needed
  int widest_ = 0;                               // the width of the widest word, in pixels
  Position marked_ = NO_POSITION;
  int row_ = 0;
};

}  // namespace quorvel
