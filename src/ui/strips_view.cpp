#include "ui/strips_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <utility>

#include "lines/strips.h"

namespace quorvel {
namespace {

constexpr int MOST_ROWS = 4;               // in view at once
constexpr int GAP = 6;                     // pixels
constexpr int MOST_MEASURED_LABELS = 200;  // only these words determine the width of the labels

}  // namespace

void PaintStrip(QPainter& painter, const QRect& place, const std::vector<std::int32_t>& strip,
                const QColor& colour) {
  constexpr double LEAST = 0.45;  // so that a single occurrence is visible
  QColor ground = colour;
  ground.setAlphaF(0.08F);
  painter.fillRect(place, ground);
  const std::int32_t most = std::max(1, *std::ranges::max_element(strip));
  for (std::size_t i = 0; i < strip.size(); ++i) {
    if (strip[i] == 0) continue;
    QColor mark = colour;
    mark.setAlphaF(static_cast<float>(LEAST + (1 - LEAST) * strip[i] / most));
    painter.fillRect(place.left() + static_cast<int>(i), place.top(), 1, place.height(), mark);
  }
}

StripsView::StripsView(QWidget* parent) : QAbstractScrollArea(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setFocusPolicy(Qt::StrongFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void StripsView::Show(StripWords words) {
  shown_ = std::move(words);
  places_.clear();
  widest_ = 0;
  const int measured = std::min(RowCount(), MOST_MEASURED_LABELS);
  for (int row = 0; row < measured; ++row) {
    const QString& word = shown_.words[static_cast<std::size_t>(row)];
    widest_ = std::max(widest_, fontMetrics().horizontalAdvance(word));
  }
  row_ = 0;
  updateGeometry();
  ShowScrollBar();
  ChooseRow(0);
}

void StripsView::MarkPlace(Position position) {
  marked_ = position;
  viewport()->update();
}

const std::vector<Position>& StripsView::PlacesOf(int row) {
  const auto known = places_.find(row);
  if (known != places_.end()) return known->second;
  return places_[row] = shown_.placesOf(static_cast<std::size_t>(row));
}

int StripsView::RowHeight() const { return fontMetrics().lineSpacing() + 4; }

int StripsView::LabelWidth() const {
  return std::min(widest_ + 1, viewport()->width() / 3) + 2 * GAP;
}

QRect StripsView::StripOfRow(int row) const {
  const int left = LabelWidth();
  const int width = viewport()->width() - left - GAP;
  return {left, row * RowHeight() + 2, std::max(1, width), RowHeight() - 4};
}

QSize StripsView::sizeHint() const {
  const int rows = std::clamp(RowCount(), 1, MOST_ROWS);
  return {200, rows * RowHeight() + 2 * frameWidth()};
}

void StripsView::PaintRows(QPainter& painter, int first, int last) {
  for (int row = first; row <= last; ++row) {
    const QString& word = shown_.words[static_cast<std::size_t>(row)];
    const QRect strip = StripOfRow(row);
    const QRect label(GAP, strip.top(), strip.left() - 2 * GAP, strip.height());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(label, Qt::AlignVCenter | Qt::AlignRight,
                     fontMetrics().elidedText(word, Qt::ElideRight, label.width()));
    PaintStrip(painter, strip, StripOf(PlacesOf(row), shown_.length, strip.width()),
               palette().color(QPalette::Text));
    if (row == row_ && hasFocus()) {
      painter.drawRect(strip.adjusted(-1, -1, 0, 0));
    }
    if (marked_ == NO_POSITION) continue;
    const int column = strip.left() + ColumnOf(marked_, shown_.length, strip.width());
    painter.fillRect(column - 1, strip.top() - 2, 3, strip.height() + 4,
                     palette().color(QPalette::Highlight));
  }
}

void StripsView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  painter.fillRect(viewport()->rect(), palette().color(QPalette::Base));
  const int top = verticalScrollBar()->value();
  painter.translate(0, -top);
  const int last = std::min(RowCount() - 1, (top + viewport()->height()) / RowHeight());
  PaintRows(painter, top / RowHeight(), last);
}

QImage StripsView::Picture(const QString& title) {
  constexpr int MOST_PIXELS = 32767;  // the limit of the painter's coordinates
  const int width = viewport()->width();
  const int top = RowHeight() + GAP;
  if (RowCount() > (MOST_PIXELS - top - GAP) / RowHeight()) return {};
  QImage image(width, top + RowCount() * RowHeight() + GAP, QImage::Format_RGB32);
  image.fill(palette().color(QPalette::Base));
  QPainter painter(&image);
  painter.setFont(font());
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(GAP, GAP, width, RowHeight(), Qt::AlignVCenter, title);
  painter.translate(0, top);
  PaintRows(painter, 0, RowCount() - 1);
  return image;
}

void StripsView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  ShowScrollBar();
}

void StripsView::ShowScrollBar() {
  const int all = RowCount() * RowHeight();
  verticalScrollBar()->setRange(0, std::max(0, all - viewport()->height()));
  verticalScrollBar()->setPageStep(viewport()->height());
  verticalScrollBar()->setSingleStep(RowHeight());
}

// The number passed to tr() chooses the plural form in a translation.
QString StripsView::SpokenRow() {
  const auto count = static_cast<int>(PlacesOf(row_).size());
  const QString text = count == 1 ? tr("%1: 1 place") : tr("%1: %n places", nullptr, count);
  return text.arg(shown_.words[static_cast<std::size_t>(row_)]);
}

void StripsView::ChooseRow(int row) {
  row_ = std::clamp(row, 0, std::max(0, RowCount() - 1));
  setAccessibleDescription(RowCount() > 0 ? SpokenRow() : QString());
  QScrollBar& bar = *verticalScrollBar();
  const int top = row_ * RowHeight();
  bar.setValue(
      std::clamp(bar.value(), std::min(top, top + RowHeight() - viewport()->height()), top));
  viewport()->update();
}

void StripsView::mousePressEvent(QMouseEvent* event) {
  const int row = (event->pos().y() + verticalScrollBar()->value()) / RowHeight();
  if (row >= RowCount()) return;
  ChooseRow(row);
  const QRect strip = StripOfRow(row);
  const int column = std::clamp(event->pos().x() - strip.left(), 0, strip.width() - 1);
  const auto wanted =
      static_cast<std::int64_t>(column) * static_cast<std::int64_t>(shown_.length) / strip.width();
  const std::vector<Position>& positions = PlacesOf(row);
  if (positions.empty()) return;
  const auto distance = [wanted](Position position) {
    return std::abs(static_cast<std::int64_t>(IndexOf(position)) - wanted);
  };
  emit PlaceChosen(*std::ranges::min_element(positions, {}, distance));
}

void StripsView::GoBeside(bool forward) {
  if (RowCount() == 0) return;
  const std::vector<Position>& positions = PlacesOf(row_);
  const auto behind = std::ranges::upper_bound(positions, marked_);
  const auto here = std::ranges::lower_bound(positions, marked_);
  if (forward && behind != positions.end()) emit PlaceChosen(*behind);
  if (!forward && here != positions.begin()) emit PlaceChosen(*std::prev(here));
}

void StripsView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Up) {
    ChooseRow(row_ - 1);
  } else if (event->key() == Qt::Key_Down) {
    ChooseRow(row_ + 1);
  } else if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
    GoBeside(event->key() == Qt::Key_Right);
  } else {
    QAbstractScrollArea::keyPressEvent(event);
  }
}

}  // namespace quorvel
