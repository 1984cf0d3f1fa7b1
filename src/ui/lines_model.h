// The lines of the chosen words as a table: left context, match, right context and, where equal
// ones are shown once, their number. The contexts are as much of the document as has room.
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

  // Shows these lines of a listing, or nothing of none.
  void Show(std::shared_ptr<const Listing> listing, std::vector<LineGroup> groups);

  [[nodiscard]] const std::vector<LineGroup>& Groups() const { return groups_; }

  // Where the match of a row stands in the document.
  [[nodiscard]] TextSpan PlaceOf(int row) const;

  // The row of the line that is recorded at this position; -1 for none.
  [[nodiscard]] int RowOf(std::int32_t position) const;

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

// Lets what stands left of the match end at it, whatever has no room.
class LineDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace quorvel
