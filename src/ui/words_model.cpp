#include "ui/words_model.h"

#include <QPainter>
#include <algorithm>
#include <utility>

#include "lines/strips.h"
#include "lists/wildcard.h"
#include "ui/strips_view.h"
#include "ui/text.h"
#include "util/time_text.h"

namespace quorvel {

void WordsModel::Show(std::shared_ptr<const Listing> listing) {
  beginResetModel();
  listing_ = std::move(listing);
  Arrange();
  endResetModel();
}

void WordsModel::Narrow(const QString& typed) {
  const QString pattern = HoldsWildcard(typed.toStdU16String()) ? typed : QString();
  if (pattern == pattern_) return;
  beginResetModel();
  pattern_ = pattern;
  Arrange();
  endResetModel();
}

void WordsModel::Arrange() {
  entries_.clear();
  if (listing_ == nullptr) return;
  entries_ = EntriesInOrder(*listing_);
  const WordTable& table = *listing_->words->words.table;
  if (!pattern_.isEmpty()) {
    const TypedWord typed = Typed(pattern_);
    std::erase_if(entries_, [&](EntryIndex entry) {
      return typed.FitOf(table.At(entry)) == TypedWord::Fit::none;
    });
  }
  if (sortedBy_ < 0) return;
  // Entries are in alphabetical order, and equal counts keep this order.
  std::ranges::sort(entries_);
  const bool isAscending = sortOrder_ == Qt::AscendingOrder;
  if (sortedBy_ == WORD) {
    if (!isAscending) std::ranges::reverse(entries_);
    return;
  }
  std::ranges::stable_sort(entries_, [&](EntryIndex a, EntryIndex b) {
    const auto keyOf = [&](EntryIndex entry) {
      const WordEntry& word = table.At(entry);
      return sortedBy_ == COUNT ? word.Count() : static_cast<std::int32_t>(word.positions.front());
    };
    return isAscending ? keyOf(a) < keyOf(b) : keyOf(b) < keyOf(a);
  });
}

TypedWord WordsModel::Typed(const QString& typed) const {
  const Alphabet& alphabet = listing_->Source().AlphabetOf();
  return {alphabet.Typed(typed.toStdString()), alphabet};
}

std::vector<EntryIndex> WordsModel::Find(const QString& typed) const {
  if (listing_ == nullptr || typed.isEmpty()) return {};
  return FindTyped(Typed(typed), *listing_->words->words.table, entries_);
}

std::vector<int> WordsModel::RowsOf(std::vector<EntryIndex> entries) const {
  std::ranges::sort(entries);
  std::vector<int> rows;
  for (int row = 0; row < rowCount(); ++row) {
    if (std::ranges::binary_search(entries, EntryAt(row))) rows.push_back(row);
  }
  return rows;
}

const WordEntry& WordsModel::WordAt(int row) const {
  return listing_->words->words.table->At(EntryAt(row));
}

std::vector<std::int32_t> WordsModel::StripAt(int row, int columns) const {
  return StripOf(WordAt(row).positions, listing_->Source().documentText.size(), columns);
}

int WordsModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

int WordsModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : COLUMNS;
}

// Describes the strip for screen readers.
QString WordsModel::SpokenPlaces(const WordEntry& word) const {
  const std::size_t length = listing_->Source().documentText.size();
  constexpr int PERCENT = 100;
  const int first = ColumnOf(word.positions.front(), length, PERCENT);
  const int last = ColumnOf(word.positions.back(), length, PERCENT);
  return first == last ? tr("at %1 % of the document").arg(first)
                       : tr("from %1 % to %2 % of the document").arg(first).arg(last);
}

QVariant WordsModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const WordEntry& word = WordAt(index.row());
  if (role == Qt::TextAlignmentRole && index.column() == COUNT) {
    return QVariant(Qt::AlignRight | Qt::AlignVCenter);
  }
  if (index.column() == PLACES) {
    return role == Qt::AccessibleTextRole || role == Qt::ToolTipRole ? SpokenPlaces(word)
                                                                     : QVariant();
  }
  if (role != Qt::DisplayRole) return {};
  if (index.column() == WORD) return QString::fromStdU16String(word.word);
  return ShownText(GroupedNumber(word.Count()));
}

QVariant WordsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return section == WORD ? tr("Word") : section == COUNT ? tr("Number") : tr("Where");
}

void WordsModel::sort(int column, Qt::SortOrder order) {
  if (column == sortedBy_ && order == sortOrder_) return;
  beginResetModel();
  sortedBy_ = column;
  sortOrder_ = order;
  Arrange();
  endResetModel();
}

void StripDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  const auto& model = dynamic_cast<const WordsModel&>(*index.model());
  const QRect cell = option.rect.adjusted(3, 3, -3, -3);
  if (cell.width() < 1) return;
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  const QPalette::ColorRole role = isSelected ? QPalette::HighlightedText : QPalette::Text;
  // The colours of a selection in a window in the background can be others.
  const bool isActive = option.state.testFlag(QStyle::State_Active);
  const QPalette::ColorGroup group = isActive ? QPalette::Active : QPalette::Inactive;
  PaintStrip(*painter, cell, model.StripAt(index.row(), cell.width()),
             option.palette.color(group, role));
}

}  // namespace quorvel
