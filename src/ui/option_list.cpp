#include "ui/option_list.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QWheelEvent>

namespace quorvel {

OptionList::OptionList(QWidget* parent) : QComboBox(parent) {
  connect(&pause_, &QTimer::timeout, this, &OptionList::ChooseMeant);
}

void OptionList::showPopup() {
  QComboBox::showPopup();
  view()->installEventFilter(this);  // the open list receives the keys
}

void OptionList::wheelEvent(QWheelEvent* event) { event->ignore(); }

void OptionList::keyPressEvent(QKeyEvent* event) {
  if (!TakeDigit(event->text())) QComboBox::keyPressEvent(event);
}

void OptionList::focusOutEvent(QFocusEvent* event) {
  ChooseMeant();
  QComboBox::focusOutEvent(event);
}

bool OptionList::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && TakeDigit(dynamic_cast<QKeyEvent*>(event)->text())) {
    return true;
  }
  return QComboBox::eventFilter(watched, event);
}

// A closed list waits while another digit may follow, because a choice moves the focus elsewhere.
bool OptionList::TakeDigit(const QString& typed) {
  if (typed.size() != 1 || !typed.front().isDigit()) return false;
  digits_ += typed;
  if (Meant().empty()) digits_ = typed;
  const std::vector<int> meant = Meant();
  if (meant.empty()) {
    digits_.clear();
    return false;
  }
  pause_.start(QApplication::keyboardInputInterval());
  if (view()->isVisible()) {
    view()->setCurrentIndex(model()->index(meant.front(), modelColumn()));
  } else if (meant.size() == 1) {
    ChooseMeant();
  }
  return true;
}

// The 0-based indices of the numbers that begin with the typed digits. The shortest number is
// first.
std::vector<int> OptionList::Meant() const {
  std::vector<int> places;
  for (int place = 0; place < count(); ++place) {
    if (itemText(place).startsWith(' ' + digits_)) places.push_back(place);
  }
  return places;
}

void OptionList::ChooseMeant() {
  pause_.stop();
  const bool isChoice = !digits_.isEmpty() && !view()->isVisible();
  const std::vector<int> meant = Meant();
  digits_.clear();
  if (isChoice) setCurrentIndex(meant.front());
}

}  // namespace quorvel
