#include "ui/lines_model.h"

#include <QFont>
#include <algorithm>
#include <utility>

#include "ui/text.h"
#include "util/time_text.h"

namespace quorvel {
namespace {

constexpr std::size_t UNITS_SHOWN = 300;  // on each side; more than fits on a wide screen
constexpr std::size_t UNITS_SPOKEN = 60;

std::size_t WholeCharacters(std::u16string_view text, std::size_t place) {
  return place < text.size() && QChar::isLowSurrogate(text[place]) ? place + 1 : place;
}

}  // namespace

void LinesModel::Show(std::shared_ptr<const Listing> listing, std::vector<LineGroup> groups) {
  beginResetModel();
  listing_ = std::move(listing);
  groups_ = std::move(groups);
  endResetModel();
}

TextSpan LinesModel::PlaceOf(int row) const {
  const Line& line = groups_[static_cast<std::size_t>(row)].first;
  const Words& words = listing_->words->words;
  const WordEntry& word = words.table->At(line.entry);
  return SpanOfOccurrence(words.document->documentText, word.word, line.position);
}

int LinesModel::RowOf(Position position) const {
  const auto found = std::ranges::find(groups_, position,
                                       [](const LineGroup& group) { return group.first.position; });
  return found == groups_.end() ? -1 : static_cast<int>(found - groups_.begin());
}

int LinesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(groups_.size());
}

int LinesModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : COLUMNS;
}

QString LinesModel::Shown(std::u16string_view text) const {
  QString shown = QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
  if (!listing_->options.showLineBreaks) shown.replace(" / ", " ");
  return shown;
}

QString LinesModel::TextOf(const QModelIndex& index, std::size_t mostUnits) const {
  const std::u16string_view text = listing_->Source().documentText;
  const TextSpan match = PlaceOf(index.row());
  if (index.column() == LEFT) {
    const std::size_t begin = match.begin - std::min(match.begin, mostUnits);
    const std::size_t whole = WholeCharacters(text, begin);
    return Shown(text.substr(whole, match.begin - whole));
  }
  if (index.column() == MATCH) return Shown(text.substr(match.begin, match.end - match.begin));
  if (index.column() == TIMES) {
    return ShownText(GroupedNumber(groups_[static_cast<std::size_t>(index.row())].count));
  }
  const std::size_t end = WholeCharacters(text, std::min(match.end + mostUnits, text.size()));
  return Shown(text.substr(match.end, end - match.end));
}

QVariant LinesModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return TextOf(index, UNITS_SHOWN);
    case Qt::AccessibleTextRole:
      return TextOf(index, UNITS_SPOKEN);
    case Qt::TextAlignmentRole: {
      const Qt::Alignment side = index.column() == MATCH   ? Qt::AlignHCenter
                                 : index.column() == RIGHT ? Qt::AlignLeft
                                                           : Qt::AlignRight;
      return QVariant(side | Qt::AlignVCenter);
    }
    case Qt::FontRole: {
      QFont font;
      font.setBold(index.column() == MATCH);
      return font;
    }
    default:
      return {};
  }
}

QVariant LinesModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  switch (section) {
    case LEFT:
      return tr("Left");
    case MATCH:
      return tr("Match");
    case RIGHT:
      return tr("Right");
    default:
      return tr("Times");
  }
}

void LineDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  option->textElideMode = index.column() == LinesModel::LEFT ? Qt::ElideLeft : Qt::ElideRight;
}

}  // namespace quorvel
