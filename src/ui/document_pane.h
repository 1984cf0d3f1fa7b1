// The document itself, with a place in it marked.
//
// It may have hundreds of megabytes, so the box holds the part around the place that is shown, and
// takes the next one where it is scrolled to an end of that.
#pragma once

#include <QPlainTextEdit>
#include <memory>

#include "engine/tokenizer.h"
#include "input/document.h"
#include "ui/find_bar.h"

namespace quorvel {

class DocumentPane : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit DocumentPane(QWidget* parent = nullptr);

  // Shows a document from its beginning; nothing for null.
  void Show(std::shared_ptr<const Document> document);

  // Marks a place in it, 0-based, and shows it.
  void Mark(const TextSpan& place);

  // Finding in all of it.
  [[nodiscard]] FindTarget Finding();

  // Finds a text from the selection on, whatever its case, and selects it; behind the last place
  // the search goes on at the first. False when there is none.
  bool Find(const QString& text, bool backward);

  // The places of a text in the document.
  [[nodiscard]] FindCount CountOf(const QString& text) const;

 signals:
  // The user wants the word at a place, 0-based.
  void WordChosen(std::size_t place);

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void ShowPart(std::size_t around);
  void ShowAtTop(std::size_t place);
  void GoOn();
  void Select(const TextSpan& place);
  [[nodiscard]] int PositionOf(std::size_t place) const;
  [[nodiscard]] std::size_t PlaceOf(const QTextCursor& cursor) const;
  [[nodiscard]] std::u16string_view Text() const;

  std::shared_ptr<const Document> document_;
  std::size_t begin_ = 0;  // of the part that is in the box
  std::size_t end_ = 0;
  TextSpan marked_{0, 0};
};

}  // namespace quorvel
