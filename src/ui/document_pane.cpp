#include "ui/document_pane.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QStringMatcher>
#include <algorithm>
#include <optional>
#include <utility>

// In the document, line breaks of a text file are the three characters " / ". In the box each of
// them is one line end, so a position in the box is smaller by two for every line before it.

namespace quorvel {
namespace {

constexpr std::size_t BEFORE = 8000;  // code units around the place that is shown
constexpr std::u16string_view LINE_BREAK = u" / ";
constexpr std::size_t LOST_BY_BREAK = 2;

std::size_t BreaksIn(std::u16string_view text) {
  std::size_t count = 0;
  for (std::size_t place = text.find(LINE_BREAK); place != std::u16string_view::npos;
       place = text.find(LINE_BREAK, place + LINE_BREAK.size())) {
    ++count;
  }
  return count;
}

struct PartEdges {
  std::size_t begin;
  std::size_t end;
};

// Where a part may begin and end near a place: at the last line break before it. If the line is too
// long, at a blank. If the word is too long, at any character.
PartEdges EdgesBefore(std::u16string_view text, std::size_t place) {
  if (place == 0 || place >= text.size()) return {place, place};
  const std::size_t least = place - std::min(place, BEFORE / 2);
  const std::size_t lineEnd = text.rfind(LINE_BREAK, place);
  if (lineEnd != std::u16string_view::npos && lineEnd >= least) {
    return {lineEnd + LINE_BREAK.size(), lineEnd};
  }
  const std::size_t blank = text.rfind(u' ', place);
  if (blank != std::u16string_view::npos && blank >= least) return {blank + 1, blank};
  const std::size_t whole = QChar::isLowSurrogate(text[place]) ? place - 1 : place;
  return {whole, whole};
}

QString ShownPart(std::u16string_view text) {
  QString shown = QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
  return shown.replace(" / ", "\n");
}

// Ignores case. Returns nothing if the search was stopped.
std::optional<std::vector<std::int32_t>> PlacesOf(const QString& text, std::u16string_view all,
                                                  Progress& progress) {
  constexpr qsizetype STEP = qsizetype{1} << 19U;  // code units between two yields
  const auto whole = QStringView(all.data(), static_cast<qsizetype>(all.size()));
  const QStringMatcher matcher(text, Qt::CaseInsensitive);
  std::vector<std::int32_t> places;
  for (qsizetype from = 0; from < whole.size();) {
    progress.YieldNow();
    if (progress.StopRequested()) return {};
    const QStringView step = whole.mid(from, STEP + text.size() - 1);
    qsizetype behind = 0;
    for (qsizetype place = matcher.indexIn(step); place >= 0;
         place = matcher.indexIn(step, behind)) {
      places.push_back(static_cast<std::int32_t>(from + place));
      behind = place + text.size();
    }
    from += std::max(behind, STEP);
  }
  return places;
}

}  // namespace

DocumentPane::DocumentPane(QWidget* parent) : QPlainTextEdit(parent) {
  setReadOnly(true);
  setUndoRedoEnabled(false);
  setAcceptDrops(false);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setTabChangesFocus(true);
  connect(verticalScrollBar(), &QAbstractSlider::actionTriggered, this, [this] {
    QMetaObject::invokeMethod(
        this, [this] { GoOn(); }, Qt::QueuedConnection);
  });
}

std::u16string_view DocumentPane::Text() const {
  return document_ == nullptr ? std::u16string_view() : document_->documentText;
}

void DocumentPane::Show(std::shared_ptr<const Document> document) {
  if (document == document_) return;
  document_ = std::move(document);
  marked_ = {0, 0};
  sought_.clear();
  found_.clear();
  ShowPart(0);
  moveCursor(QTextCursor::Start);
}

void DocumentPane::ShowPart(std::size_t around) {
  const std::u16string_view text = Text();
  begin_ = EdgesBefore(text, around - std::min(around, BEFORE)).begin;
  end_ = EdgesBefore(text, std::min(around + BEFORE, text.size())).end;
  setPlainText(ShownPart(text.substr(begin_, end_ - begin_)));
  QList<QTextEdit::ExtraSelection> marks;
  if (marked_.begin >= begin_ && marked_.end <= end_ && marked_.begin < marked_.end) {
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(QPlainTextEdit::document());
    mark.cursor.setPosition(PositionOf(marked_.begin));
    mark.cursor.setPosition(PositionOf(marked_.end), QTextCursor::KeepAnchor);
    mark.format.setBackground(palette().highlight());
    mark.format.setForeground(palette().highlightedText());
    mark.format.setFontWeight(QFont::Bold);
    marks.append(mark);
  }
  setExtraSelections(marks);
}

int DocumentPane::PositionOf(std::size_t place) const {
  const std::u16string_view before = Text().substr(begin_, place - begin_);
  return static_cast<int>(before.size() - LOST_BY_BREAK * BreaksIn(before));
}

std::size_t DocumentPane::PlaceOf(const QTextCursor& cursor) const {
  return begin_ + static_cast<std::size_t>(cursor.position()) +
         LOST_BY_BREAK * static_cast<std::size_t>(cursor.blockNumber());
}

void DocumentPane::Mark(const TextSpan& place) {
  marked_ = place;
  ShowPart(place.begin);
  QTextCursor cursor(QPlainTextEdit::document());
  cursor.setPosition(PositionOf(place.begin));
  setTextCursor(cursor);
  centerCursor();
}

// Scrolls so that the line of `place` is the first line of the box. `place` must be in the shown
// part.
void DocumentPane::ShowAtTop(std::size_t place) {
  QTextCursor cursor(QPlainTextEdit::document());
  cursor.setPosition(PositionOf(std::clamp(place, begin_, end_)));
  setTextCursor(cursor);
  ensureCursorVisible();
  verticalScrollBar()->setValue(verticalScrollBar()->value() +
                                cursorRect(cursor).top() /
                                    std::max(1, fontMetrics().lineSpacing()));
}

// Shows the next part of the document if the box is scrolled to an end of this one.
void DocumentPane::GoOn() {
  const QScrollBar& bar = *verticalScrollBar();
  const bool isAtEnd = bar.value() >= bar.maximum() && end_ < Text().size();
  const bool isAtBegin = bar.value() <= bar.minimum() && begin_ > 0;
  if (!isAtEnd && !isAtBegin) return;
  const std::size_t top = PlaceOf(cursorForPosition(QPoint(0, 0)));
  ShowPart(top);
  ShowAtTop(top);
}

void DocumentPane::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::MoveToStartOfDocument)) {
    ShowPart(0);
    moveCursor(QTextCursor::Start);
    return;
  }
  if (event->matches(QKeySequence::MoveToEndOfDocument)) {
    ShowPart(Text().size());
    moveCursor(QTextCursor::End);
    return;
  }
  QPlainTextEdit::keyPressEvent(event);
  GoOn();
}

void DocumentPane::wheelEvent(QWheelEvent* event) {
  QPlainTextEdit::wheelEvent(event);
  GoOn();
}

void DocumentPane::mouseDoubleClickEvent(QMouseEvent* event) {
  QPlainTextEdit::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && document_ != nullptr) {
    emit WordChosen(PlaceOf(cursorForPosition(event->pos())));
  }
}

void DocumentPane::Select(const TextSpan& place) {
  if (place.begin < begin_ || place.end > end_) ShowPart(place.begin);
  QTextCursor cursor(QPlainTextEdit::document());
  cursor.setPosition(PositionOf(place.begin));
  cursor.setPosition(PositionOf(place.end), QTextCursor::KeepAnchor);
  setTextCursor(cursor);
  centerCursor();
}

FindTarget DocumentPane::Finding() {
  return {this, tr("Find in the document"),
          [this](const QString& text, Progress& progress) { return Find(text, progress); },
          [this](bool backward) { GoOnFinding(backward); }, [this] { return CountFound(); }};
}

bool DocumentPane::Find(const QString& text, Progress& progress) {
  if (text == sought_) return true;
  const std::shared_ptr<const Document> document = document_;  // kept, because a run may release it
  std::optional<std::vector<std::int32_t>> found = PlacesOf(text, Text(), progress);
  if (!found || document != document_) return false;
  sought_ = text;
  found_ = *std::move(found);
  return true;
}

// The first character of the selection, 0-based.
std::size_t DocumentPane::SelectedPlace() const {
  QTextCursor cursor = textCursor();
  cursor.setPosition(cursor.selectionStart());
  return PlaceOf(cursor);
}

// Starts at the selection. After the last place the search continues at the first.
void DocumentPane::GoOnFinding(bool backward) {
  if (found_.empty()) return;
  const auto from = static_cast<std::int32_t>(SelectedPlace());
  auto next = std::ranges::lower_bound(found_, from);
  if (backward) {
    next = std::prev(next == found_.begin() ? found_.end() : next);
  } else {
    if (next != found_.end() && *next == from && textCursor().hasSelection()) ++next;
    if (next == found_.end()) next = found_.begin();
  }
  const auto begin = static_cast<std::size_t>(*next);
  Select({begin, begin + static_cast<std::size_t>(sought_.size())});
}

FindCount DocumentPane::CountFound() const {
  FindCount count;
  count.all = static_cast<int>(found_.size());
  const auto place = static_cast<std::int32_t>(SelectedPlace());
  const auto at = std::ranges::lower_bound(found_, place);
  if (textCursor().hasSelection() && at != found_.end() && *at == place) {
    count.selected = static_cast<int>(at - found_.begin()) + 1;
  }
  return count;
}

}  // namespace quorvel
