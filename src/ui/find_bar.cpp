#include "ui/find_bar.h"

#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QTextCursor>
#include <QTextDocument>
#include <initializer_list>
#include <utility>

#include "ui_find_bar.h"

namespace quorvel {
namespace {

FindCount CountInBox(const QPlainTextEdit& box, const QString& text) {
  const int selected = box.textCursor().hasSelection() ? box.textCursor().selectionStart() : -1;
  FindCount count;
  const QString all = box.toPlainText();
  for (qsizetype place = all.indexOf(text, 0, Qt::CaseInsensitive); place >= 0;
       place = all.indexOf(text, place + text.size(), Qt::CaseInsensitive)) {
    ++count.all;
    if (place == selected) count.selected = count.all;
  }
  return count;
}

void AddKeys(FindBar& find, QWidget& window) {
  const auto onKey = [&find, &window](const QKeySequence& key, auto act) {
    QObject::connect(new QShortcut(key, &window), &QShortcut::activated, &find, act);
  };
  onKey(Qt::CTRL | Qt::Key_F, [&find] { find.Open(); });
  onKey(Qt::Key_F3, [&find] { find.FindAgain(false); });
  onKey(Qt::SHIFT | Qt::Key_F3, [&find] { find.FindAgain(true); });
}

// Tab goes from the text to the controls of its find bar.
void SetTabOrder(QWidget& text, const Ui::FindBar& form) {
  QWidget* last = &text;
  for (QWidget* next : std::initializer_list<QWidget*>{form.txbFind, form.cmdFindNext,
                                                       form.cmdFindPrevious, form.cmdFindClose}) {
    QWidget::setTabOrder(std::exchange(last, next), next);
  }
}

}  // namespace

FindBar::FindBar(FindControls controls, QObject* parent)
    : QObject(parent), controls_(std::move(controls)) {
  connect(controls_.text, &QLineEdit::textChanged, this, &FindBar::ShowCount);
  connect(controls_.text, &QLineEdit::returnPressed, this,
          [this] { Find(QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier)); });
  ShowSearchesPart(false);
}

QPlainTextEdit& FindBar::Box() const {
  return target_.box != nullptr ? *target_.box : *controls_.output;
}

void FindBar::SetTarget(const FindTarget& target) {
  target_ = target;
  ShowWhere();
}

void FindBar::Open() {
  controls_.bar->show();
  const QString selected = Box().textCursor().selectedText();
  if (!selected.isEmpty()) controls_.text->setText(selected);
  controls_.text->selectAll();
  controls_.text->setFocus();
  ShowCount();
}

void FindBar::Close() const {
  controls_.bar->hide();
  Box().setFocus();
}

bool FindBar::IsOpen() const { return controls_.bar->isVisible(); }

void FindBar::FindAgain(bool backward) {
  if (controls_.text->text().isEmpty()) return Open();
  Find(backward);
}

void FindBar::ShowSearchesPart(bool part) {
  searchesPart_ = part;
  ShowWhere();
}

void FindBar::ShowWhere() {
  const FindHints& hints = controls_.hints;
  controls_.text->setPlaceholderText(target_.box != nullptr ? target_.hint
                                     : searchesPart_        ? hints.part
                                                            : hints.all);
  ShowCount();
}

void FindBar::Find(bool backward) {
  const QString text = controls_.text->text();
  if (text.isEmpty()) return;
  if (target_.box != nullptr) {
    goesBackward_ = backward;
    return ShowCount();
  }
  const QTextDocument::FindFlags flags =
      backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
  if (!controls_.output->find(text, flags)) {
    controls_.output->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
    controls_.output->find(text, flags);
  }
  ShowCount();
}

void FindBar::ShowCount() {
  const QString text = controls_.text->text();
  if (!text.isEmpty() && target_.box != nullptr) {
    return work_.Do([this](Progress& progress) { FindInTarget(progress); });
  }
  work_.Stop();
  goesBackward_.reset();
  if (text.isEmpty()) return controls_.count->clear();
  SayFound(CountInBox(*controls_.output, text), searchesPart_);
}

// Events run during the search, because the text may be long.
void FindBar::FindInTarget(Progress& progress) {
  const QString text = controls_.text->text();
  const FindTarget target = target_;  // copied, because events may change it
  controls_.count->setText(tr("..."));
  if (!target.find(text, progress) || progress.StopRequested()) return;
  if (const auto goesBackward = std::exchange(goesBackward_, {})) target.goOn(*goesBackward);
  SayFound(target.count(), false);
}

// "3 of 12" if one of the places is selected, otherwise "12 found".
void FindBar::SayFound(const FindCount& count, bool isPart) const {
  const QString place = isPart ? tr("%1 of %2 in what is shown") : tr("%1 of %2");
  const QString all = isPart ? tr("%1 found in what is shown") : tr("%1 found");
  controls_.count->setText(count.selected > 0 ? place.arg(count.selected).arg(count.all)
                                              : all.arg(count.all));
}

FindBar* AddFindBar(QWidget& bar, QPlainTextEdit& output, const FindHints& hints, QWidget& window) {
  Ui::FindBar form;
  form.setupUi(&bar);
  bar.hide();
  form.txbFind->setAccessibleName(hints.all);
  SetTabOrder(output, form);
  auto* find = new FindBar({&bar, form.txbFind, form.lblFindCount, &output, hints}, &bar);
  QObject::connect(form.cmdFindNext, &QPushButton::clicked, find, &FindBar::FindNext);
  QObject::connect(form.cmdFindPrevious, &QPushButton::clicked, find, &FindBar::FindPrevious);
  QObject::connect(form.cmdFindClose, &QToolButton::clicked, find, &FindBar::Close);
  AddKeys(*find, window);
  return find;
}

}  // namespace quorvel
