#include "ui/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFontDatabase>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>

#include "files/file_system.h"
#include "files/path_names.h"
#include "input/input_file.h"
#include "lists/languages.h"
#include "lists/stop_words.h"
#include "output/index_file.h"
#include "output/listing.h"
#include "run/run_driver.h"
#include "run/stop_word_choice.h"
#include "settings/settings_file.h"
#include "ui/file_viewer.h"
#include "ui/find_bar.h"
#include "ui/pop_up.h"
#include "ui/product_information.h"
#include "ui/settings_panel.h"
#include "ui/text.h"
#include "ui/text_box.h"
#include "ui_main_window.h"
#include "util/ansi.h"
#include "util/progress_bar.h"
#include "util/silent_interface.h"
#include "util/time_text.h"

namespace quorvel {
namespace {

constexpr QSize FIRST_SIZE(1000, 720);  // in logical pixels, where the screen has room for it
constexpr int KEEPING_CURRENT_MS = 500;
constexpr int SECOND_MS = 1000;

// The property of a file box that keeps its tool tip for as long as the box holds no path.
constexpr const char* PLAIN_TIP = "plainTip";

// As large as `widest` takes: a label that may grow would have the whole window laid out anew
// with each text of a run.
void FixSize(QLabel& label, const QFont& font, const QString& widest) {
  const QFontMetrics metrics(font);
  label.setFont(font);
  label.setFixedSize(metrics.horizontalAdvance(widest), metrics.height());
}

// The line that is being typed in, if any.
QWidget* FocusedEdit() { return qobject_cast<QLineEdit*>(QApplication::focusWidget()); }

}  // namespace

MainWindow::MainWindow() : ui_(std::make_unique<Ui::MainWindow>()) {
  ui_->setupUi(this);
  txbFile_ = {ui_->txbFile_0, ui_->txbFile_1, ui_->txbFile_2, ui_->txbFile_3};
  cmdFile_ = {ui_->cmdFile_0, ui_->cmdFile_1, ui_->cmdFile_2, ui_->cmdFile_3};
  cmdClearFile_ = {ui_->cmdClearFile_0, ui_->cmdClearFile_1, ui_->cmdClearFile_2,
                   ui_->cmdClearFile_3};
  interface_ = std::make_unique<WindowInterface>(
      ConversationControls{this,
                           ui_->txbOutput,
                           ui_->cmdListWords,
                           ui_->txbFile_3,
                           {ui_->lblNumberOfWords, ui_->lblNumOccurrences, ui_->lblKeywordsFound,
                            ui_->lblTotalNumOccurrences, ui_->lblTwirler}});
  findBar_ = new FindBar({ui_->findBar, ui_->txbFind, ui_->lblFindCount, ui_->txbOutput}, this);
  panel_ = new SettingsPanel(
      state_, *interface_,
      {[this] { TakeControls(); }, [this](const std::string& path) { ReadStopWords(path); },
       [this] { return PrepareStopWords(); },
       [this](bool modeSelected) { TakeLoadedSettings(modeSelected); },
       [this] {
         if (ui_->txbOutput->toPlainText().contains("stop")) ui_->txbOutput->clear();
       },
       [this] { close(); }},
      this);
  Initialization();
  ConnectFiles();
  ConnectOptions();
  ConnectButtons();
  AddShortcuts();
}

MainWindow::~MainWindow() = default;

void MainWindow::Initialization() {
  setAcceptDrops(true);
  resize(FIRST_SIZE.boundedTo(screen()->availableSize() * 9 / 10));
  const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  ui_->txbOutput->setFont(fixed);
  FixSize(*ui_->lblTotalNumOccurrences, fixed, ProgressCaption(PROGRESS_BAR_WIDTH).c_str());
  FixSize(*ui_->lblTwirler, fixed, " ");
  ui_->txbOutput->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  ui_->findBar->hide();
  ui_->cboWordOrder->addItems({"alphabetical", "by frequency"});
  for (int size = 0; size <= LARGEST_CONTEXT_SIZE; ++size) {
    ui_->cboContextSize->addItem(QString(" %1").arg(size));
  }
  // A file dropped on a box is meant for the window.
  for (QLineEdit* box : txbFile_) box->setAcceptDrops(false);
  for (QLineEdit* box : txbFile_) box->setProperty(PLAIN_TIP, box->toolTip());
  ui_->txbOutput->setAcceptDrops(false);
  InitializeVariables(state_.settings, false);
  ShowSettings();
}

void MainWindow::Start(const std::string& path) {
  if (!RestoreSavedState(state_.settings, {}, true).errorText.empty()) {
    InitializeVariables(state_.settings, false);
  }
  TakeRestoredLists();
  if (!path.empty()) state_.settings.inputFile = path;
  ShowSettings();
  SetInput(path.empty() ? InputOrigin::restored : InputOrigin::chosen);
  timer1_.start(KEEPING_CURRENT_MS);
  SetTheFocus();
}

void MainWindow::TakeLoadedSettings(bool modeSelected) {
  modeSelected_ = modeSelected;
  TakeRestoredLists();
  SetInput(InputOrigin::restored);
  if (state_.settings.mode == Mode::search) optSearch_Click();
}

// No list that was read before is that of the settings that came now. Stop words go with the
// input that is yet to be set, but those of all six languages stay in use.
void MainWindow::TakeRestoredLists() {
  const std::string& path = state_.settings.stopWordsFile;
  StopWordList& stopWords = state_.lists.stopWords;
  EraseSearchWords(state_.lists.keywords);
  stopWords.loaded = false;
  SilentInterface nobody;
  const bool all = path.ends_with(ALL_LANGUAGES.stopWordsFile) && FileExists(path);
  if (all) (void)ReadStopWordsFile(path, stopWords, nobody);
}

void MainWindow::ConnectOptions() {
  const auto onChange = [this](auto* control, auto signal, auto handler) {
    connect(control, signal, this, [this, handler] {
      if (showing_) return;
      FinishEditing();
      handler();
    });
  };
  onChange(ui_->optCreate, &QRadioButton::toggled, [this] {
    if (ui_->optCreate->isChecked()) optCreate_Click();
  });
  onChange(ui_->optSearch, &QRadioButton::toggled, [this] {
    if (ui_->optSearch->isChecked()) optSearch_Click();
  });
  onChange(ui_->cboWordOrder, &QComboBox::currentIndexChanged, [this] { Relist(); });
  onChange(ui_->cboContextSize, &QComboBox::currentIndexChanged,
           [this] { cboContextSize_Click(); });
  onChange(ui_->chkFrequencies, &QCheckBox::toggled, [this] { Relist(); });
  onChange(ui_->chkShowLineBreaks, &QCheckBox::toggled, [this] { Relist(); });
  onChange(ui_->chkDisable, &QCheckBox::toggled, [this] {
    TakeControls();
    ShowWhatIsPossible();
  });
  for (QCheckBox* box :
       {ui_->chkCreateIndexFile, ui_->chkSaveStateOnQuit, ui_->chkWarnOnOverwrite}) {
    onChange(box, &QCheckBox::toggled, [this] { SetTheFocus(); });
  }
}

void MainWindow::ConnectButtons() {
  const auto onClick = [this](QAbstractButton* button, auto handler) {
    connect(button, &QAbstractButton::clicked, this, [this, handler] {
      FinishEditing();
      handler();
    });
  };
  connect(ui_->cmdListWords, &QAbstractButton::clicked, this, [this] {
    if (FinishEditing()) cmdListWords_Click();  // else the run would tell of the same fault
  });
  onClick(ui_->cmdViewFile, [this] { cmdViewFile_Click(); });
  onClick(ui_->cmdSetParameters, [this] { cmdSetParameters_Click(); });
  onClick(ui_->cmdSaveState, [this] { cmdSaveState_Click(); });
  onClick(ui_->cmdQuit, [this] { close(); });
  onClick(ui_->cmdHelp, [this] { ViewHelp(*this, *interface_); });
  onClick(ui_->cmdAbout, [this] { ShowProductInformation(this); });
  onClick(ui_->cmdFindNext, [this] { findBar_->FindNext(); });
  onClick(ui_->cmdFindPrevious, [this] { findBar_->FindPrevious(); });
  onClick(ui_->cmdFindClose, [this] { findBar_->Close(); });
  connect(ui_->txbOutput, &QPlainTextEdit::textChanged, this, [this] {
    if (!ui_->lblListingShown->isHidden()) ShowPartShown(0, 0, false);
  });
  connect(&timer1_, &QTimer::timeout, this, &MainWindow::Timer1_Timer);
  connect(&timer2_, &QTimer::timeout, this, &MainWindow::Timer2_Timer);
}

// A press of a key does what a press of its button does, and so nothing while that is
// not to be pressed.
void MainWindow::AddShortcuts() {
  const auto press = [this](QAbstractButton* button, const std::vector<QKeySequence>& keys) {
    for (const QKeySequence& key : keys) {
      connect(new QShortcut(key, this), &QShortcut::activated, button, &QAbstractButton::click);
    }
  };
  press(ui_->cmdHelp, {Qt::Key_F1});
  press(ui_->cmdFile_0, {Qt::CTRL | Qt::Key_O});
  press(ui_->cmdQuit, {Qt::CTRL | Qt::Key_Q});
  const auto list = [this] {
    if (!interface_->IsWorking()) ui_->cmdListWords->click();
  };
  for (const QKeySequence& key : {QKeySequence(Qt::Key_F5), QKeySequence(Qt::CTRL | Qt::Key_Return),
                                  QKeySequence(Qt::CTRL | Qt::Key_Enter)}) {
    connect(new QShortcut(key, this), &QShortcut::activated, this, list);
  }
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] {
    if (interface_->IsWorking()) {
      ui_->cmdListWords->click();
    } else if (ui_->findBar->isVisible()) {
      findBar_->Close();
    }
  });
  connect(new QShortcut(Qt::CTRL | Qt::Key_F, this), &QShortcut::activated, findBar_,
          &FindBar::Open);
  connect(new QShortcut(Qt::Key_F3, this), &QShortcut::activated, findBar_,
          [this] { findBar_->FindAgain(false); });
  connect(new QShortcut(Qt::SHIFT | Qt::Key_F3, this), &QShortcut::activated, findBar_,
          [this] { findBar_->FindAgain(true); });
}

void MainWindow::cmdFile_Click(int index) {
  if (index == INPUT_BOX) {
    ChooseInputFile();
  } else if (index == KEYWORDS_BOX) {
    ChooseKeywordsFile();
  } else if (index == RESULTS_BOX) {
    ChooseOutputFile(RESULTS_BOX, "Specify output file", txbFile_[RESULTS_BOX]->text());
  } else if (txbFile_[INPUT_BOX]->text().trimmed().isEmpty()) {
    interface_->Tell("An input file must be specified before a concordance file.", STANDARD_TITLE,
                     Icon::information);
  } else {
    TakeControls();
    ChooseOutputFile(CONCORDANCE_BOX, "Specify concordance (output) file",
                     ShownPath(DefaultConcordanceFileName(state_.settings.inputFile)));
  }
}

void MainWindow::ChooseInputFile() {
  const QString chosen = QFileDialog::getOpenFileName(
      this, "Specify input file", txbFile_[INPUT_BOX]->text(),
      "A text file or a docx file (*.txt *.docx *.htm *.html *.xhtml);;All files (*)");
  if (chosen.isEmpty()) return;
  ReplaceText(*txbFile_[INPUT_BOX], chosen);
  PathChosen(INPUT_BOX);
}

void MainWindow::ChooseKeywordsFile() {
  const QString chosen =
      QFileDialog::getOpenFileName(this, "Specify keywords file", txbFile_[KEYWORDS_BOX]->text());
  if (chosen.isEmpty()) return;
  ReplaceText(*txbFile_[KEYWORDS_BOX], chosen);
  PathChosen(KEYWORDS_BOX);
}

// Whether an existing file may be replaced is asked, where the user wants it, when it is
// to be written.
void MainWindow::ChooseOutputFile(FileBox box, const QString& title, const QString& proposal) {
  const QString chosen = QFileDialog::getSaveFileName(this, title, proposal, {}, nullptr,
                                                      QFileDialog::DontConfirmOverwrite);
  if (chosen.isEmpty()) return;
  ReplaceText(*txbFile_.at(box), chosen);
  PathChosen(box);
}

void MainWindow::PathChosen(int index) {
  TakeControls();
  if (index == INPUT_BOX) SetInput(InputOrigin::chosen);
  if (index == KEYWORDS_BOX) {
    EraseSearchWords(state_.lists.keywords);
    const bool named = !state_.settings.keywordsFile.empty();
    if (named && state_.settings.mode == Mode::search) ReadKeywords();
  }
  ShowWhatIsPossible();
  ShowFileSizes();
  SetTheFocus();
}

// Sees to all that follows a new input, which stands in the settings: what is known of
// the last one goes, and what this one brings is looked at. A restored input keeps the
// names that were restored with it.
void MainWindow::SetInput(InputOrigin origin) {
  ConcordanceSettings& settings = state_.settings;
  state_.words = {};
  EmptyWordTable(state_.table);
  CountIncludedWords(state_.table);
  if (!settings.inputFile.empty() && CheckChosenInput()) {
    const bool chosen = origin == InputOrigin::chosen;
    if (chosen || settings.outputFile.empty()) {
      settings.outputFile = DefaultConcordanceFileName(settings.inputFile);
    }
    if (chosen) settings.outputToFileDisabled = false;
    Work([this, &settings, chosen] {
      const bool ownList = !chosen && FileExists(settings.stopWordsFile);
      if (ownList) {
        AttemptToReadStopWords(settings.stopWordsFile, settings, state_.lists.stopWords,
                               *interface_);
      } else {
        ChooseStopWords(state_, *interface_);
      }
      ReadIndexFile(state_, true, *interface_);
    });
  }
  ShowSettings();
}

// Tells the user what stands in the way of the input; then its box is emptied.
bool MainWindow::CheckChosenInput() {
  const std::string path = state_.settings.inputFile;
  if (IsConcordanceFileName(path)) {
    RefuseInput("This is an QVL concordance file.", "Invalid input");
    return false;
  }
  if (IsIndexFileName(path)) {
    RefuseInput("This is an QVL index file.", "Invalid input");
    return false;
  }
  const bool isDocx = LowerExtensionOf(path) == "docx";
  if (!isDocx) interface_->AppendOutput("Checking file ...\r\n");
  CheckOptions options;
  options.quiet = isDocx;
  const InputCheck check = CheckInputFile(path, options, state_.macNoticeShown, *interface_);
  if (!check.accepted) {
    state_.settings.inputFile.clear();
    return false;
  }
  state_.settings.inputIsUtf8 = check.isUtf8;
  if (isDocx && !IsWordDocument(path)) {
    RefuseInput("The file " + path +
                    "\r\nhas a 'docx' extension but does not appear to be an MS Word 'docx' file.",
                STANDARD_TITLE);
    return false;
  }
  return true;
}

void MainWindow::RefuseInput(const std::string& text, const char* title) {
  interface_->Tell(text, title);
  state_.settings.inputFile.clear();
}

void MainWindow::ReadKeywords() {
  Work([this] {
    std::string& path = state_.settings.keywordsFile;
    KeywordLists& keywords = state_.lists.keywords;
    if (AttemptToReadSearchWords(path, keywords, *interface_)) return;
    EraseSearchWords(keywords);
    if (!interface_->StopRequested()) path.clear();  // another one is to be chosen
  });
  ShowPath(KEYWORDS_BOX);
}

void MainWindow::ReadStopWords(const std::string& path) {
  Work([this, &path] {
    AttemptToReadStopWords(path, state_.settings, state_.lists.stopWords, *interface_);
  });
}

void MainWindow::optCreate_Click() {
  modeSelected_ = true;
  TakeControls();
  ShowWhatIsPossible();
}

void MainWindow::optSearch_Click() {
  modeSelected_ = true;
  TakeControls();
  if (state_.settings.inputFile.empty()) {
    interface_->Tell("Input file not specified.", STANDARD_TITLE);
    ui_->optCreate->setChecked(true);
    return;
  }
  ShowWhatIsPossible();
  if (FileExists(state_.settings.keywordsFile)) ReadKeywords();
  if (state_.settings.keywordsFile.empty() && state_.settings.extraKeywords.empty()) {
    interface_->Tell("Specify a keywords file or type one or more extra keywords.", "Search",
                     Icon::information);
  }
}

void MainWindow::cboContextSize_Click() {
  TakeControls();
  ShowWhatIsPossible();
  Relist();
}

void MainWindow::cmdListWords_Click() {
  if (interface_->IsWorking()) {
    (void)ConfirmStop();
    return;
  }
  TakeControls();
  RunOrList();
}

void MainWindow::RunOrList() {
  secondsOfRun_ = 0;
  ui_->lblTimeElapsed->clear();
  ui_->lblSearchResultsFileSize->clear();
  timer2_.start(SECOND_MS);
  Work([this] {
    interface_->OfferStop(true);
    if (state_.settings.mode == Mode::search || ReadTypedStopWords()) {
      interface_->OfferStop(true);
      listedMode_ = state_.settings.mode;
      if (RunConcordance(state_, *interface_) == RunOutcome::done) ShowLengthOfListing();
    }
    timer2_.stop();
    ShowSettings();
  });
  SetTheFocus();
}

// A path that was typed is read when it is needed.
bool MainWindow::ReadTypedStopWords() {
  const std::string& path = state_.settings.stopWordsFile;
  StopWordList& stopWords = state_.lists.stopWords;
  return stopWords.loaded || path.empty() || ReadStopWordsFile(path, stopWords, *interface_);
}

// Has them read, where they are those of a path that was typed, so that they can be shown.
bool MainWindow::PrepareStopWords() {
  if (state_.lists.stopWords.loaded || state_.settings.stopWordsFile.empty()) return true;
  bool read = false;
  Work([this, &read] {
    read = ReadTypedStopWords();
    if (read) interface_->SetOutput("");  // not "Reading ..." any more
  });
  return read;
}

// Lists the words of the last run again, as the options are now.
void MainWindow::Relist() {
  TakeControls();
  if (!interface_->IsWorking() && state_.settings.mode == listedMode_) {
    Work([this] {
      interface_->OfferStop(true);
      interface_->ClearStop();
      if (ListWords(state_, *interface_) != ListingOutcome::nothing) ShowLengthOfListing();
    });
  }
  SetTheFocus();
}

// Does what may take long: only the Stop button is live meanwhile, where it is offered.
void MainWindow::Work(const std::function<void()>& work) {
  if (interface_->IsWorking()) return work();
  EnableControls(false);
  interface_->BeginWork();
  work();
  interface_->EndWork();
  EnableControls(true);
  ShowWhatIsPossible();
  ShowFileSizes();
  interface_->ShowPendingPopUp();
  if (closeAfterWork_) QTimer::singleShot(0, this, [this] { close(); });
}

bool MainWindow::ConfirmStop() {
  const Message question = {"Do you really wish to stop?", "Stop", Icon::none, Buttons::yesNo,
                            Answer::no};
  if (interface_->Ask(question) != Answer::yes) return false;
  interface_->RequestStop();
  return true;
}

void MainWindow::cmdViewFile_Click() {
  TakeControls();
  const std::string path =
      PathSetting(state_.settings.mode == Mode::create ? CONCORDANCE_BOX : RESULTS_BOX);
  ViewFile(*this, path, ShownPath(path), *interface_);
}

void MainWindow::cmdSetParameters_Click() {
  panel_->ShowSettings();
  panel_->show();
  panel_->raise();
  panel_->activateWindow();
}

void MainWindow::cmdSaveState_Click() {
  constexpr int SHOWN_MS = 2000;
  TakeControls();
  const std::string error = SaveState(state_.settings, {});
  if (error.empty()) {
    PopUpInForm(*ui_->cmdSetParameters, {"Settings saved", ui_->cmdSetParameters->size(), SHOWN_MS},
                QPoint(0, 0));
  } else {
    interface_->Tell(error, STANDARD_TITLE);
  }
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (interface_->IsWorking()) {
    event->ignore();
    closeAfterWork_ = ConfirmStop();
    return;
  }
  if (ui_->chkSaveStateOnQuit->isChecked()) cmdSaveState_Click();
  event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls() && !interface_->IsWorking()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  if (urls.isEmpty() || !urls.constFirst().isLocalFile() || interface_->IsWorking()) return;
  event->acceptProposedAction();
  const QString path = urls.constFirst().toLocalFile();
  // Whoever dragged the file waits for the drop to end, so what it brings is asked later.
  QTimer::singleShot(0, this, [this, path] {
    ReplaceText(*txbFile_[INPUT_BOX], path);
    PathChosen(INPUT_BOX);
  });
}

void MainWindow::Timer1_Timer() {
  if (interface_->IsWorking()) return;
  for (QLineEdit* box : txbFile_) {
    box->setToolTip(box->text().isEmpty() ? box->property(PLAIN_TIP).toString() : box->text());
  }
  // What was left behind while a button was pressed that then did nothing.
  const bool isBusy = QApplication::activeModalWidget() != nullptr || ShownPopUp() != nullptr;
  if (!isBusy && FocusedEdit() == nullptr) FinishEditing();
  ShowWhatIsPossible();
  ShowFileSizes();
}

void MainWindow::Timer2_Timer() {
  constexpr int SECONDS_BEFORE_SHOWN = 3;
  ++secondsOfRun_;
  interface_->SetLabel(Label::numberOfWords,
                       "Number of words: " + GroupedNumber(state_.table.WordCount()));
  if (secondsOfRun_ < SECONDS_BEFORE_SHOWN) return;
  ui_->lblTimeElapsed->setText("Time elapsed: " +
                               ShownText(ElapsedText(secondsOfRun_, false, false)));
  ui_->lblTimeElapsed->setVisible(true);
}

}  // namespace quorvel
