#include "ui/document_pane.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>
#include <utility>

// The lines of a text file stand in the document as " / ". In the box they are lines: a place there
// lies two characters further in front for each line before it.

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

// Where a part may begin, and where one may end, near a place: at the last line break before it or,
// where lines are long, at a blank or, where words are, anywhere.
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

// A place that stands in the box comes to its top.
void DocumentPane::ShowAtTop(std::size_t place) {
  QTextCursor cursor(QPlainTextEdit::document());
  cursor.setPosition(PositionOf(std::clamp(place, begin_, end_)));
  setTextCursor(cursor);
  ensureCursorVisible();
  verticalScrollBar()->setValue(verticalScrollBar()->value() +
                                cursorRect(cursor).top() /
                                    std::max(1, fontMetrics().lineSpacing()));
}

// Takes the next part where the box stands at an end of this one.
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
  return {this, "the document",
          [this](const QString& text, bool backward) { return Find(text, backward); },
          [this](const QString& text) { return CountOf(text); }};
}

bool DocumentPane::Find(const QString& text, bool backward) {
  const std::u16string_view all = Text();
  const auto whole = QStringView(all.data(), static_cast<qsizetype>(all.size()));
  QTextCursor cursor = textCursor();
  cursor.setPosition(cursor.selectionStart());
  const auto from = static_cast<qsizetype>(PlaceOf(cursor));
  const bool isSelected = textCursor().hasSelection();
  qsizetype found = -1;
  if (backward) {
    if (from > 0) found = whole.lastIndexOf(text, from - 1, Qt::CaseInsensitive);
    if (found < 0) found = whole.lastIndexOf(text, -1, Qt::CaseInsensitive);
  } else {
    found = whole.indexOf(text, from + (isSelected ? 1 : 0), Qt::CaseInsensitive);
    if (found < 0) found = whole.indexOf(text, 0, Qt::CaseInsensitive);
  }
  if (found < 0) return false;
  Select({static_cast<std::size_t>(found), static_cast<std::size_t>(found + text.size())});
  return true;
}

FindCount DocumentPane::CountOf(const QString& text) const {
  FindCount count;
  if (text.isEmpty()) return count;
  const std::u16string_view all = Text();
  const auto whole = QStringView(all.data(), static_cast<qsizetype>(all.size()));
  QTextCursor cursor = textCursor();
  cursor.setPosition(cursor.selectionStart());
  const auto selected = textCursor().hasSelection() ? static_cast<qsizetype>(PlaceOf(cursor)) : -1;
  for (qsizetype place = whole.indexOf(text, 0, Qt::CaseInsensitive); place >= 0;
       place = whole.indexOf(text, place + text.size(), Qt::CaseInsensitive)) {
    ++count.all;
    if (place == selected) count.selected = count.all;
  }
  return count;
}

}  // namespace quorvel
