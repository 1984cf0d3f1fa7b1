// Shows the document with one place marked.
//
// A document may have hundreds of megabytes, so the box contains only the part around the place
// that is shown. When the user scrolls to an end of this part, the next part is shown.
#pragma once

#include <QPlainTextEdit>
#include <memory>
#include <vector>

#include "engine/tokenizer.h"
#include "input/document.h"
#include "ui/find_bar.h"

namespace quorvel {

class DocumentPane : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit DocumentPane(QWidget* parent = nullptr);

  // Shows the beginning of a document. Null shows nothing.
  void Show(std::shared_ptr<const Document> document);

  // Marks a place of the document, 0-based, and scrolls to it.
  void Mark(const TextSpan& place);

  // Lets a find bar search the whole document, not only the shown part.
  [[nodiscard]] FindTarget Finding();

 signals:
  // The user chose the word at a place of the document, 0-based.
  void WordChosen(std::size_t place);

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void ShowPart(std::size_t around);
  void ShowAtTop(std::size_t place);
  void GoOn();
  [[nodiscard]] bool Find(const QString& text, Progress& progress);
  void GoOnFinding(bool backward);
  [[nodiscard]] FindCount CountFound() const;
  [[nodiscard]] std::size_t SelectedPlace() const;
  void Select(const TextSpan& place);
  [[nodiscard]] int PositionOf(std::size_t place) const;
  [[nodiscard]] std::size_t PlaceOf(const QTextCursor& cursor) const;
  [[nodiscard]] std::u16string_view Text() const;

  std::shared_ptr<const Document> document_;
  std::size_t begin_ = 0;  // of the part in the box, 0-based in the document
  std::size_t end_ = 0;
  TextSpan marked_{0, 0};
  QString sought_;
  std::vector<std::int32_t> found_;  // where `sought_` occurs, 0-based, without overlaps
};

}  // namespace quorvel
