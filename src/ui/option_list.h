// A drop-down list that changes only when it is meant.
//
// While it is closed the wheel of the mouse passes over it, to what can be scrolled. Digits
// choose the number that they make, in the closed list and in the open one; the numbers in such a
// list ascend, and each has a blank in front, which nobody types.
#pragma once

#include <QComboBox>
#include <QString>
#include <QTimer>
#include <vector>

class QFocusEvent;
class QKeyEvent;
class QWheelEvent;

namespace quorvel {

class OptionList : public QComboBox {
 public:
  explicit OptionList(QWidget* parent = nullptr);

  void showPopup() override;

 protected:
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool TakeDigit(const QString& typed);
  [[nodiscard]] std::vector<int> Meant() const;
  void ChooseMeant();

  QString digits_;  // typed without a pause between them
  QTimer pause_;
};

}  // namespace quorvel
