// The model of the table of lines: left context, match, right context and, if equal lines are shown
// once, their number. The contexts are long enough to fill the column.
#pragma once

#include <QAbstractTableModel>
#include <QStyledItemDelegate>
#include <memory>
#include <vector>

#include "lines/line_filter.h"
#include "output/listing.h"

namespace quorvel {

class LinesModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { LEFT, MATCH, RIGHT, TIMES, COLUMNS };

  using QAbstractTableModel::QAbstractTableModel;

  // Shows these lines of a listing. `listing` may be null if there are no lines.
  void Show(std::shared_ptr<const Listing> listing, std::vector<LineGroup> groups);

  [[nodiscard]] const std::vector<LineGroup>& Groups() const { return groups_; }

  // The match of a row, as a range of the document.
  [[nodiscard]] TextSpan PlaceOf(int row) const;

  // The row of the line with this position, or -1 if there is none.
  [[nodiscard]] int RowOf(Position position) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  [[nodiscard]] QString TextOf(const QModelIndex& index, std::size_t mostUnits) const;
  [[nodiscard]] QString Shown(std::u16string_view text) const;

  std::shared_ptr<const Listing> listing_;
  std::vector<LineGroup> groups_;
};

// Shows the end of a left context that does not fit in its column.
class LineDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace quorvel
