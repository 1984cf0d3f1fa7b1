// The document itself, with a place in it marked.
//
// It may have hundreds of megabytes, so the box holds the part around the place that is shown, and
// takes the next one where it is scrolled to an end of that.
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

  // Shows a document from its beginning; nothing for null.
  void Show(std::shared_ptr<const Document> document);

  // Marks a place in it, 0-based, and shows it.
  void Mark(const TextSpan& place);

  // Finding in all of it.
  [[nodiscard]] FindTarget Finding();

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
  [[nodiscard]] bool Find(const QString& text, Progress& progress);
  void GoOnFinding(bool backward);
  [[nodiscard]] FindCount CountFound() const;
  [[nodiscard]] std::size_t SelectedPlace() const;
  void Select(const TextSpan& place);
  [[nodiscard]] int PositionOf(std::size_t place) const;
  [[nodiscard]] std::size_t PlaceOf(const QTextCursor& cursor) const;
  [[nodiscard]] std::u16string_view Text() const;

  std::shared_ptr<const Document> document_;
  std::size_t begin_ = 0;  // of the part that is in the box
  std::size_t end_ = 0;
  TextSpan marked_{0, 0};
  QString sought_;
  std::vector<std::int32_t> found_;  // the places of `sought_`, 0-based, none within another
};

}  // namespace quorvel
