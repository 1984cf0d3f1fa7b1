#include "ui/run_control.h"

#include <QTimer>

#include "ui/files_and_options.h"
#include "ui/word_lines.h"
#include "ui_main_window.h"

namespace quorvel {

void RunControl::cmdListWords_Click() {
  if (interface_.IsWorking()) {
    (void)ConfirmStop();
    return;
  }
  files_.TakeControls();
  ui_.lblSearchResultsFileSize->clear();
  interface_.HideLostCharacters();
  // The run writes its progress into this tab. The other tab releases its memory during the run.
  const int tab = ui_.tabResults->currentIndex();
  ui_.tabResults->setCurrentWidget(ui_.tabListing);
  wordLines_.Release();
  Work(session_.Settings().inputFile, [this] {
    session_.RunConcordance();
    files_.ShowSettings();
  });
  ui_.tabResults->setCurrentIndex(tab);
  files_.SetTheFocus();
}

void RunControl::ListAgain() {
  files_.TakeControls();
  if (!interface_.IsWorking()) {
    Work(session_.Settings().inputFile, [this] { session_.ListAgain(); });
  }
  files_.SetTheFocus();
}

void RunControl::Work(const std::string& file, const std::function<void()>& work) {
  if (interface_.IsWorking()) return work();
  EnableControls(false);
  interface_.BeginWork();
  session_.Enter(file, work);
  interface_.EndWork();
  wordLines_.Show(session_.CurrentListing());
  EnableControls(true);
  files_.ShowWhatIsPossible();
  files_.ShowFileSizes();
  interface_.ShowPendingPopUp();
  QWidget* const window = ui_.txbOutput->window();
  if (closesAfterWork_) QTimer::singleShot(0, window, [window] { window->close(); });
}

bool RunControl::ConfirmStop() {
  const Message question = {"Do you really wish to stop?", "Stop", Icon::none, Buttons::yesNo,
                            Answer::no};
  if (interface_.Ask(question) != Answer::yes) return false;
  interface_.RequestStop();
  return true;
}

void RunControl::EnableControls(bool enabled) {
  panel_.setEnabled(enabled);
  wordLines_.setEnabled(enabled);
  for (QWidget* control : ui_.scrollArea->findChildren<QWidget*>()) {
    const bool takesInput = qobject_cast<QAbstractButton*>(control) != nullptr ||
                            qobject_cast<QLineEdit*>(control) != nullptr ||
                            qobject_cast<QComboBox*>(control) != nullptr;
    if (takesInput && !wordLines_.isAncestorOf(control)) control->setEnabled(enabled);
  }
}

}  // namespace quorvel
