#include "ui/files_and_options.h"

#include <QFileDialog>
#include <QGuiApplication>
#include <utility>

#include "files/file_system.h"
#include "files/path_names.h"
#include "run/word_lists.h"
#include "ui/preferences.h"
#include "ui/recent_documents.h"
#include "ui/text.h"
#include "ui/text_box.h"
#include "ui_main_window.h"

// What the controls do. What they show is in files_and_options_shown.cpp.

namespace quorvel {
namespace {

bool IsMouseDown() { return QGuiApplication::mouseButtons() != Qt::NoButton; }

}  // namespace

FilesAndOptions::FilesAndOptions(Ui::MainWindow& form, Session& session, WindowInterface& interface,
                                 FilesHost host, QWidget* window)
    : QObject(window),
      ui_(form),
      session_(session),
      interface_(interface),
      host_(std::move(host)),
      window_(window),
      txbFile_{form.txbFile_0, form.txbFile_1, form.txbFile_2, form.txbFile_3},
      cmdFile_{form.cmdFile_0, form.cmdFile_1, form.cmdFile_2, form.cmdFile_3},
      cmdClearFile_{form.cmdClearFile_0, form.cmdClearFile_1, form.cmdClearFile_2,
                    form.cmdClearFile_3} {
  FillLists();
  ConnectFiles();
  ConnectOptions();
  Fold(KeptFolding());
}

void FilesAndOptions::ConnectFiles() {
  for (std::size_t index = 0; index < FILE_BOXES; ++index) {
    connect(cmdFile_.at(index), &QPushButton::clicked, this, [this, index] {
      FinishEditing();
      cmdFile_Click(index);
    });
    connect(cmdClearFile_.at(index), &QPushButton::clicked, this,
            [this, index] { cmdClearFile_Click(index); });
    connect(txbFile_.at(index), &QLineEdit::editingFinished, this,
            [this, index] { txbFile_LostFocus(index); });
  }
  OfferRecentDocuments(*ui_.cmdRecent, [this](const std::string& path) {
    FinishEditing();
    ChooseInput(path);
  });
  connect(ui_.txbExtraKeywords, &QLineEdit::returnPressed, this, [this] {
    if (TakeExtraKeywords()) SetTheFocus();
  });
  connect(ui_.txbExtraKeywords, &QLineEdit::editingFinished, this,
          &FilesAndOptions::txbExtraKeywords_LostFocus);
  connect(ui_.cmdClearExtraKeywords, &QPushButton::clicked, this, [this] {
    ReplaceText(*ui_.txbExtraKeywords, {});
    (void)TakeExtraKeywords();
  });
}

void FilesAndOptions::ConnectOptions() {
  const auto onChange = [this](auto* control, auto signal, auto handler) {
    connect(control, signal, this, [this, handler] {
      if (showing_) return;
      FinishEditing();
      handler();
    });
  };
  onChange(ui_.optCreate, &QRadioButton::toggled, [this] {
    if (ui_.optCreate->isChecked()) optCreate_Click();
  });
  onChange(ui_.optSearch, &QRadioButton::toggled, [this] {
    if (ui_.optSearch->isChecked()) optSearch_Click();
  });
  onChange(ui_.cboWordOrder, &QComboBox::currentIndexChanged, [this] { host_.listAgain(); });
  onChange(ui_.cboContextSize, &QComboBox::currentIndexChanged, [this] { host_.listAgain(); });
  onChange(ui_.chkFrequencies, &QCheckBox::toggled, [this] { host_.listAgain(); });
  onChange(ui_.chkShowLineBreaks, &QCheckBox::toggled, [this] { host_.listAgain(); });
  onChange(ui_.chkUnicode, &QCheckBox::toggled, [this] { chkUnicode_Click(); });
  onChange(ui_.cmdFold, &QToolButton::clicked, [this] { cmdFold_Click(); });
  onChange(ui_.chkDisable, &QCheckBox::toggled, [this] {
    TakeControls();
    ShowWhatIsPossible();
  });
  for (QCheckBox* box : {ui_.chkCreateIndexFile, ui_.chkSaveStateOnQuit, ui_.chkWarnOnOverwrite}) {
    onChange(box, &QCheckBox::toggled, [this] { SetTheFocus(); });
  }
}

QString FilesAndOptions::InputFilter(bool isUnicode) {
  if (!isUnicode) return "A text file or a docx file (*.txt *.docx *.htm *.html *.xhtml)";
  return tr("A text file or a document (%1)").arg("*.txt *.docx *.odt *.epub *.htm *.html *.xhtml");
}

void FilesAndOptions::cmdFile_Click(std::size_t index) {
  if (index == INPUT_BOX) {
    ChooseFile(INPUT_BOX, "Specify input file",
               InputFilter(ui_.chkUnicode->isChecked()) + ";;" + tr("All files (*)"));
  } else if (index == KEYWORDS_BOX) {
    ChooseFile(KEYWORDS_BOX, "Specify keywords file", {});
  } else if (index == RESULTS_BOX) {
    ChooseOutputFile(RESULTS_BOX, "Specify output file", txbFile_[RESULTS_BOX]->text());
  } else if (txbFile_[INPUT_BOX]->text().trimmed().isEmpty()) {
    interface_.Tell("An input file must be specified before a concordance file.", STANDARD_TITLE,
                    Icon::information);
  } else {
    TakeControls();
    ChooseOutputFile(CONCORDANCE_BOX, "Specify concordance (output) file",
                     ShownPath(DefaultConcordanceFileName(session_.Settings().inputFile)));
  }
}

void FilesAndOptions::ChooseFile(FileBox box, const QString& title, const QString& filter) {
  const QString chosen =
      QFileDialog::getOpenFileName(window_, title, txbFile_.at(box)->text(), filter);
  if (chosen.isEmpty()) return;
  ReplaceText(*txbFile_.at(box), chosen);
  PathChosen(box);
}

// The dialog does not ask before an existing file is replaced. The run asks when it writes the
// file, if the user wants that.
void FilesAndOptions::ChooseOutputFile(FileBox box, const QString& title, const QString& proposal) {
  const QString chosen = QFileDialog::getSaveFileName(window_, title, proposal, {}, nullptr,
                                                      QFileDialog::DontConfirmOverwrite);
  if (chosen.isEmpty()) return;
  ReplaceText(*txbFile_.at(box), chosen);
  PathChosen(box);
}

void FilesAndOptions::ChooseInput(const std::string& path) {
  PathSetting(INPUT_BOX) = path;  // the box may not be able to show this path
  ReplaceText(*txbFile_[INPUT_BOX], ShownPath(path));
  PathChosen(INPUT_BOX);
}

void FilesAndOptions::PathChosen(std::size_t index) {
  TakeControls();
  if (index == INPUT_BOX) SetInput(Session::InputOrigin::chosen);
  if (index == KEYWORDS_BOX) {
    EraseSearchWords(session_.Lists().keywords);
    const ConcordanceSettings& settings = session_.Settings();
    if (!settings.keywordsFile.empty() && settings.mode == Mode::search) ReadKeywords();
  }
  ShowWhatIsPossible();
  ShowFileSizes();
  SetTheFocus();
}

// While a mouse button is down, the edit is finished when it is released. A message box that
// appeared before that would receive the release instead of the clicked button.
void FilesAndOptions::txbFile_LostFocus(std::size_t index) {
  QLineEdit* box = txbFile_.at(index);
  if (showing_ || !box->isModified() || IsMouseDown()) return;
  ReplaceText(*box, box->text().trimmed());
  PathChosen(index);
}

bool FilesAndOptions::FinishEditing() {
  for (std::size_t index = 0; index < FILE_BOXES; ++index) txbFile_LostFocus(index);
  return txbExtraKeywords_LostFocus();
}

void FilesAndOptions::cmdClearFile_Click(std::size_t index) {
  ReplaceText(*txbFile_.at(index), {});
  TakeControls();
  if (index == INPUT_BOX) SetInput(Session::InputOrigin::restored);
  if (index == KEYWORDS_BOX) {
    EraseSearchWords(session_.Lists().keywords);
    if (ui_.txbOutput->toPlainText().contains("keywords loaded from")) interface_.SetOutput("");
  }
  ShowWhatIsPossible();
  ShowFileSizes();
}

void FilesAndOptions::SetInput(Session::InputOrigin origin) {
  interface_.HideLostCharacters();
  const std::string& input = session_.Settings().inputFile;
  host_.work(input, [this, origin] { session_.SetInput(origin); });
  if (!input.empty()) KeepInput(input);
  ShowSettings();
}

void FilesAndOptions::TakeLoadedSettings(bool modeSelected) {
  modeSelected_ = modeSelected;
  session_.TakeLoadedSettings();
  SetInput(Session::InputOrigin::restored);
  if (session_.Settings().mode == Mode::search) optSearch_Click();
}

void FilesAndOptions::ReadKeywords() {
  std::string& path = session_.Settings().keywordsFile;
  host_.work(path, [this, &path] {
    KeywordLists& keywords = session_.Lists().keywords;
    if (AttemptToReadSearchWords(path, session_.AlphabetNow(), keywords, interface_)) return;
    EraseSearchWords(keywords);
    if (!interface_.StopRequested()) path.clear();  // the user must choose another file
  });
  ShowPath(KEYWORDS_BOX);
}

bool FilesAndOptions::txbExtraKeywords_LostFocus() {
  return showing_ || !ui_.txbExtraKeywords->isModified() || IsMouseDown() || TakeExtraKeywords();
}

// Returns false, after telling the user, if the keywords have a fault.
bool FilesAndOptions::TakeExtraKeywords() {
  ui_.txbExtraKeywords->setModified(false);  // because a message box also ends the editing
  TakeControls();
  ConcordanceSettings& settings = session_.Settings();
  const bool taken = GetExtraKeywords(settings, session_.Lists().keywords, interface_);
  ReplaceText(*ui_.txbExtraKeywords, ShownText(settings.extraKeywords));
  ShowWhatIsPossible();
  return taken;
}

void FilesAndOptions::optCreate_Click() {
  modeSelected_ = true;
  TakeControls();
  ShowWhatIsPossible();
}

void FilesAndOptions::optSearch_Click() {
  modeSelected_ = true;
  TakeControls();
  const ConcordanceSettings& settings = session_.Settings();
  if (settings.inputFile.empty()) {
    interface_.Tell("Input file not specified.", STANDARD_TITLE);
    ui_.optCreate->setChecked(true);
    return;
  }
  ShowWhatIsPossible();
  if (FileExists(settings.keywordsFile)) ReadKeywords();
  if (settings.keywordsFile.empty() && settings.extraKeywords.empty()) {
    interface_.Tell("Specify a keywords file or type one or more extra keywords.", "Search",
                    Icon::information);
  }
}

// Takes effect with the next run. The current listing keeps the reading that it was made with.
void FilesAndOptions::chkUnicode_Click() {
  TakeControls();
  const Reading reading = ui_.chkUnicode->isChecked() ? Reading::unicode : Reading::windows1252;
  session_.ChangeReading(reading);
  KeepReading(reading);
  ShowWhatIsPossible();
}

void FilesAndOptions::cmdFold_Click() {
  Fold(ui_.cmdFold->isChecked());
  KeepFolding(ui_.cmdFold->isChecked());
}

void FilesAndOptions::Fold(bool folded) {
  for (QWidget* part :
       {static_cast<QWidget*>(ui_.grpFiles), static_cast<QWidget*>(ui_.grpOptions), ui_.sizesRow}) {
    part->setHidden(folded);
  }
  ui_.cmdFold->setChecked(folded);
  ui_.cmdFold->setArrowType(folded ? Qt::RightArrow : Qt::DownArrow);
  ShowFoldedInput();
}

}  // namespace quorvel
