// The model of the table of words: the word, how often it occurs, and where in the document.
#pragma once

#include <QAbstractTableModel>
#include <QStyledItemDelegate>
#include <memory>
#include <vector>

#include "engine/typed_word.h"
#include "output/listing.h"

namespace quorvel {

class WordsModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { WORD, COUNT, PLACES, COLUMNS };

  using QAbstractTableModel::QAbstractTableModel;

  // Shows the words of a listing in its order, or nothing for null.
  void Show(std::shared_ptr<const Listing> listing);

  // Shows only the words that match a pattern. Shows all words if `typed` has no wildcard.
  void Narrow(const QString& typed);

  // The entries whose word equals the typed text, or else the first entry that begins with it. Case
  // and accents are ignored.
  [[nodiscard]] std::vector<EntryIndex> Find(const QString& typed) const;

  // EntryAt returns the entry in a row. RowsOf returns the rows of some entries, ascending.
  [[nodiscard]] EntryIndex EntryAt(int row) const {
    return entries_[static_cast<std::size_t>(row)];
  }
  [[nodiscard]] std::vector<int> RowsOf(std::vector<EntryIndex> entries) const;

  [[nodiscard]] const WordEntry& WordAt(int row) const;

  // How often the word occurs in each of `columns` equal parts of the document.
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
  int sortedBy_ = -1;  // a column, or -1 for the order of the listing
  Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
  std::vector<EntryIndex> entries_;
};

// Draws the strip of a word in its cell.
class StripDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

}  // namespace quorvel
