// What is typed into the boxes of the main window: when it counts, and how it is cleared.

#include <QGuiApplication>

#include "output/listing.h"
#include "ui/main_window.h"
#include "ui/text.h"
#include "ui/text_box.h"
#include "ui_main_window.h"

namespace quorvel {
namespace {

bool IsMouseDown() { return QGuiApplication::mouseButtons() != Qt::NoButton; }

}  // namespace

void MainWindow::ConnectFiles() {
  for (int index = 0; index < FILE_BOXES; ++index) {
    const auto i = static_cast<std::size_t>(index);
    connect(cmdFile_.at(i), &QPushButton::clicked, this, [this, index] {
      FinishEditing();
      cmdFile_Click(index);
    });
    connect(cmdClearFile_.at(i), &QPushButton::clicked, this,
            [this, index] { cmdClearFile_Click(index); });
    connect(txbFile_.at(i), &QLineEdit::editingFinished, this,
            [this, index] { txbFile_LostFocus(index); });
  }
  connect(ui_->txbExtraKeywords, &QLineEdit::returnPressed, this, [this] {
    if (TakeExtraKeywords()) SetTheFocus();
  });
  connect(ui_->txbExtraKeywords, &QLineEdit::editingFinished, this,
          &MainWindow::txbExtraKeywords_LostFocus);
  connect(ui_->cmdClearExtraKeywords, &QPushButton::clicked, this, [this] {
    ReplaceText(*ui_->txbExtraKeywords, {});
    (void)TakeExtraKeywords();
  });
}

// Where a button is being pressed the edit is finished when it is let go: a box that
// came up meanwhile would keep the button from hearing of that.
void MainWindow::txbFile_LostFocus(int index) {
  QLineEdit* box = txbFile_.at(static_cast<std::size_t>(index));
  if (showing_ || !box->isModified() || IsMouseDown()) return;
  ReplaceText(*box, box->text().trimmed());
  PathChosen(index);
}

// Takes up what was typed and not yet looked at. False where the user was told of a fault in the
// extra keywords.
bool MainWindow::FinishEditing() {
  for (int index = 0; index < FILE_BOXES; ++index) txbFile_LostFocus(index);
  return txbExtraKeywords_LostFocus();
}

void MainWindow::cmdClearFile_Click(int index) {
  ReplaceText(*txbFile_.at(static_cast<std::size_t>(index)), {});
  TakeControls();
  switch (index) {
    case INPUT_BOX:
      SetInput(InputOrigin::restored);
      break;
    case RESULTS_BOX:
      ui_->lblSearchResultsFileSize->clear();
      break;
    case KEYWORDS_BOX:
      EraseSearchWords(state_.lists.keywords);
      if (ui_->txbOutput->toPlainText().contains("keywords loaded from")) ui_->txbOutput->clear();
      break;
    default:
      break;
  }
  ShowWhatIsPossible();
  ShowFileSizes();
}

bool MainWindow::txbExtraKeywords_LostFocus() {
  return showing_ || !ui_->txbExtraKeywords->isModified() || IsMouseDown() || TakeExtraKeywords();
}

// False, with the user told, where they have a fault.
bool MainWindow::TakeExtraKeywords() {
  ui_->txbExtraKeywords->setModified(false);  // a message that comes now ends the editing, too
  TakeControls();
  const bool taken = GetExtraKeywords(state_.settings, state_.lists.keywords, *interface_);
  ReplaceText(*ui_->txbExtraKeywords, ShownText(state_.settings.extraKeywords));
  ShowWhatIsPossible();
  return taken;
}

}  // namespace quorvel
