// Where in the document the chosen words stand: a strip for each, with a mark for each line.
//
// A click goes to the nearest place, as the left and the right key go to the one before and behind;
// up and down choose the strip.
#pragma once

#include <QAbstractScrollArea>
#include <QImage>
#include <cstdint>
#include <functional>
#include <map>
#include <vector>

namespace quorvel {

// Draws a strip: a stroke for each of its columns that has an occurrence, the darker the more it
// has.
void PaintStrip(QPainter& painter, const QRect& place, const std::vector<std::int32_t>& strip,
                const QColor& colour);

// The words that have a strip each, in a document of `length` code units. The places of a word's
// lines, 1-based and ascending, are asked for when they are wanted: there may be very many words.
struct StripWords {
  std::vector<QString> words;
  std::function<std::vector<std::int32_t>(std::size_t)> placesOf;
  std::size_t length = 0;
};

class StripsView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  explicit StripsView(QWidget* parent = nullptr);

  void Show(StripWords words);

  // Marks a place in all strips; 0 for none.
  void MarkPlace(std::int32_t position);

  // The strips as a picture, all of them, under a title; null when there are more than a picture
  // has room for.
  [[nodiscard]] QImage Picture(const QString& title);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  // The user wants to go to a place of a word.
  void PlaceChosen(std::int32_t position);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  [[nodiscard]] int RowHeight() const;
  [[nodiscard]] int LabelWidth() const;
  [[nodiscard]] QRect StripOfRow(int row, int width) const;
  void PaintRows(QPainter& painter, int width, int first, int last);
  [[nodiscard]] int RowCount() const { return static_cast<int>(shown_.words.size()); }
  [[nodiscard]] const std::vector<std::int32_t>& PlacesOf(int row);
  void ShowScrollBar();
  [[nodiscard]] QString SpokenRow();
  void ChooseRow(int row);
  void GoBeside(bool forward);

  StripWords shown_;
  std::map<int, std::vector<std::int32_t>> places_;  // that were asked for, by row
  int widest_ = 0;                                   // of the words, in pixels
  std::int32_t marked_ = 0;
  int row_ = 0;
};

}  // namespace quorvel
