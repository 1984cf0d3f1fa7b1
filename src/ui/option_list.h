// A drop-down list that does not change by accident.
//
// The mouse wheel does not change a closed list. It scrolls the window instead. Typed digits choose
// a number, in the closed and in the open list. The numbers in the list are ascending, and each
// begins with a blank, which the user does not type.
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

  QString digits_;  // typed since the last pause
  QTimer pause_;
};

}  // namespace quorvel
