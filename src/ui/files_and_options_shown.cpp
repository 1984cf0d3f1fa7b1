// Copies the settings to the controls of the main window and back, and enables the controls.

#include <QFileInfo>

#include "files/file_system.h"
#include "files/path_names.h"
#include "run/run_captions.h"
#include "ui/files_and_options.h"
#include "ui/text.h"
#include "ui/text_box.h"
#include "ui_main_window.h"
#include "unicode/packed_documents.h"
#include "util/time_text.h"

namespace quorvel {
namespace {

// The property of a file box that stores its tool tip for an empty box.
constexpr const char* PLAIN_TIP = "plainTip";

QString SizeLabel(const char* caption, const std::string& path) {
  const std::optional<std::int64_t> length = FileExists(path) ? FileLength(path) : std::nullopt;
  return length ? caption + ShownText(SizeText(*length)) : QString();
}

// Every caption of the List button has an "s", which becomes its mnemonic.
QString WithMnemonic(QString caption) {
  return caption.insert(caption.indexOf('s', 0, Qt::CaseInsensitive), '&');
}

}  // namespace

void FilesAndOptions::FillLists() {
  ui_.cboWordOrder->addItems({"alphabetical", "by frequency"});
  for (int size = 0; size <= LARGEST_CONTEXT_SIZE; ++size) {
    ui_.cboContextSize->addItem(QString(" %1").arg(size));
  }
  // The main window handles a file that is dropped on a box.
  for (QLineEdit* box : txbFile_) box->setAcceptDrops(false);
  for (QLineEdit* box : txbFile_) box->setProperty(PLAIN_TIP, box->toolTip());
}

void FilesAndOptions::TakeControls() {
  ConcordanceSettings& settings = session_.Settings();
  for (std::size_t index = 0; index < FILE_BOXES; ++index) {
    TakePath(txbFile_.at(index)->text(), PathSetting(index));
  }
  settings.mode = ui_.optSearch->isChecked() ? Mode::search : Mode::create;
  settings.wordOrder =
      ui_.cboWordOrder->currentIndex() == 1 ? WordOrder::byFrequency : WordOrder::alphabetical;
  settings.contextSize = std::max(ui_.cboContextSize->currentIndex(), 0);
  settings.showFrequencies = ui_.chkFrequencies->isChecked();
  settings.showLineBreaks = ui_.chkShowLineBreaks->isChecked();
  settings.outputToFileDisabled = ui_.chkDisable->isChecked();
  settings.createIndexFile = ui_.chkCreateIndexFile->isChecked();
  settings.saveStateOnQuit = ui_.chkSaveStateOnQuit->isChecked();
  settings.warnOnOverwrite = ui_.chkWarnOnOverwrite->isChecked();
  settings.inputIsUtf8 = ui_.chkUTF8_0->isChecked();
  settings.extraKeywords = ui_.txbExtraKeywords->text().toStdString();
}

void FilesAndOptions::ShowSettings() {
  const ConcordanceSettings& settings = session_.Settings();
  showing_ = true;
  for (std::size_t index = 0; index < FILE_BOXES; ++index) ShowPath(index);
  for (QRadioButton* button : {ui_.optCreate, ui_.optSearch}) {
    button->setAutoExclusive(modeSelected_);
    const Mode mode = button == ui_.optCreate ? Mode::create : Mode::search;
    button->setChecked(modeSelected_ && settings.mode == mode);
    button->setAutoExclusive(true);
  }
  ui_.cboWordOrder->setCurrentIndex(settings.wordOrder == WordOrder::byFrequency ? 1 : 0);
  ui_.cboContextSize->setCurrentIndex(settings.contextSize);
  ui_.chkFrequencies->setChecked(settings.showFrequencies);
  ui_.chkShowLineBreaks->setChecked(settings.showLineBreaks);
  ui_.chkDisable->setChecked(settings.outputToFileDisabled);
  ui_.chkCreateIndexFile->setChecked(settings.createIndexFile);
  ui_.chkSaveStateOnQuit->setChecked(settings.saveStateOnQuit);
  ui_.chkWarnOnOverwrite->setChecked(settings.warnOnOverwrite);
  ui_.chkUTF8_0->setChecked(settings.inputIsUtf8);
  ui_.chkUnicode->setChecked(settings.reading == Reading::unicode);
  ReplaceText(*ui_.txbExtraKeywords, ShownText(settings.extraKeywords));
  host_.showPanel();
  showing_ = false;
  ShowWhatIsPossible();
  ShowFileSizes();
}

void FilesAndOptions::ShowPath(std::size_t index) {
  QLineEdit* box = txbFile_.at(index);
  const QString shown = ShownPath(PathSetting(index));
  if (box->text() != shown) ReplaceText(*box, shown);
  if (index == INPUT_BOX) ShowFoldedInput();
}

// While the files and options are hidden, their button shows which document is open.
void FilesAndOptions::ShowFoldedInput() {
  constexpr int MOST_SHOWN = 40;  // characters
  QString name = QFileInfo(txbFile_[INPUT_BOX]->text()).fileName();
  if (name.size() > MOST_SHOWN) name = name.left(MOST_SHOWN - 4) + " ...";
  const bool isSaid = ui_.cmdFold->isChecked() && !name.isEmpty();
  ui_.cmdFold->setText(isSaid ? tr("Files and options of %1").arg(name.replace('&', "&&"))
                              : tr("Files and options"));
}

void FilesAndOptions::ShowWhatIsPossible() {
  if (interface_.IsWorking()) return;
  const bool search = ui_.optSearch->isChecked();
  for (const FileBox box : {RESULTS_BOX, KEYWORDS_BOX, CONCORDANCE_BOX}) {
    const bool usable = search == (box != CONCORDANCE_BOX);
    txbFile_.at(box)->setEnabled(usable);
    cmdFile_.at(box)->setEnabled(usable);
    cmdClearFile_.at(box)->setEnabled(usable);
  }
  ui_.lblExtraKeywords->setEnabled(search);
  ui_.txbExtraKeywords->setEnabled(search);
  ui_.cmdClearExtraKeywords->setEnabled(search && !ui_.txbExtraKeywords->text().isEmpty());
  ui_.chkUTF8_0->setEnabled(!ui_.chkUnicode->isChecked());
  ui_.chkDisable->setEnabled(!search);
  ui_.chkCreateIndexFile->setEnabled(!search);
  ui_.lblSearchResultsFileSize->setVisible(search);
  ui_.chkShowLineBreaks->setEnabled(MayShowLineBreaks());
  ConcordanceSettings now;
  now.mode = search ? Mode::search : Mode::create;
  now.outputToFileDisabled = ui_.chkDisable->isChecked();
  ui_.cmdListWords->setText(WithMnemonic(ShownText(ListButtonCaption(now))));
  ui_.cmdViewFile->setEnabled(FileExists(PathSetting(search ? RESULTS_BOX : CONCORDANCE_BOX)));
}

bool FilesAndOptions::MayShowLineBreaks() const {
  const std::string path = PathOf(txbFile_[INPUT_BOX]->text());
  const std::string type = LowerExtensionOf(path);
  return ui_.cboContextSize->currentIndex() > 0 && type.find("htm") == std::string::npos &&
         type != "xml" && !IsPackedName(path, Reading::unicode);
}

void FilesAndOptions::ShowFileSizes() {
  const ConcordanceSettings& settings = session_.Settings();
  const std::string index =
      settings.inputFile.empty() ? std::string() : DefaultIndexFileName(settings.inputFile);
  ui_.lblInputFileSize->setText(SizeLabel("Input filesize: ", settings.inputFile));
  ui_.lblConcordanceFileSize->setText(SizeLabel("Concordance filesize: ", settings.outputFile));
  ui_.lblIndexFileSize->setText(SizeLabel("Index filesize: ", index));
  const QString indexLabel =
      IsRegularFile(index) ? "Index file: " + ShownPath(index) : "Index file:";
  ui_.lblIndexFile->setText(indexLabel);
  ui_.lblIndexFile->setToolTip(indexLabel);
  const auto& listing = session_.CurrentListing();
  const bool isWritten =
      listing != nullptr && listing->ModeOf() == Mode::search && session_.Report().written;
  ui_.lblSearchResultsFileSize->setText(
      isWritten ? SizeLabel("Search results filesize: ", settings.searchResultsFile) : QString());
}

void FilesAndOptions::ShowToolTips() {
  for (QLineEdit* box : txbFile_) {
    box->setToolTip(box->text().isEmpty() ? box->property(PLAIN_TIP).toString() : box->text());
  }
}

const std::string& FilesAndOptions::OutputPath() {
  return PathSetting(session_.Settings().mode == Mode::create ? CONCORDANCE_BOX : RESULTS_BOX);
}

std::string& FilesAndOptions::PathSetting(std::size_t index) {
  ConcordanceSettings& settings = session_.Settings();
  switch (index) {
    case INPUT_BOX:
      return settings.inputFile;
    case RESULTS_BOX:
      return settings.searchResultsFile;
    case KEYWORDS_BOX:
      return settings.keywordsFile;
    default:
      return settings.outputFile;
  }
}

void FilesAndOptions::SetTheFocus() { ui_.cmdListWords->setFocus(); }

}  // namespace quorvel
