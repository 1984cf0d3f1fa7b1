// The words of a listing as a table: the word, how often it occurs, and where in the document.
#pragma once

#include <QAbstractTableModel>
#include <QStyledItemDelegate>
#include <memory>
#include <vector>

#include "lines/typed_word.h"
#include "output/listing.h"

namespace quorvel {

class WordsModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { WORD, COUNT, PLACES, COLUMNS };

  using QAbstractTableModel::QAbstractTableModel;

  // Shows the words of a listing, of which none may be there, in the order of the listing.
  void Show(std::shared_ptr<const Listing> listing);

  // Shows those alone that fit a pattern; all for an empty text or one that is no pattern.
  void Narrow(const QString& typed);

  // The numbers of the words that are what is typed, or of the first that begins so.
  [[nodiscard]] std::vector<std::int32_t> Find(const QString& typed) const;

  // The number of a row's word in the table of words, and the rows, in ascending order, that show
  // some numbers.
  [[nodiscard]] std::int32_t EntryAt(int row) const {
    return entries_[static_cast<std::size_t>(row)];
  }
  [[nodiscard]] std::vector<int> RowsOf(std::vector<std::int32_t> entries) const;

  [[nodiscard]] const WordEntry& WordAt(int row) const;

  // How many places the word has in each of so many parts of the document.
  [[nodiscard]] std::vector<std::int32_t> StripAt(int row, int columns) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;
  void sort(int column, Qt::SortOrder order) override;

 private:
  [[nodiscard]] TypedWord Typed(const QString& typed) const;
  [[nodiscard]] QString SpokenPlaces(const WordEntry& word) const;
  void Arrange();

  std::shared_ptr<const Listing> listing_;
  QString pattern_;
  int sortedBy_ = -1;  // a column; else the order of the listing
  Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
  std::vector<std::int32_t> entries_;
};

// Draws the strip of a word into its cell.
class StripDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

}  // namespace quorvel
