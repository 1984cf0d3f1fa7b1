#include "ui/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFontDatabase>
#include <QMimeData>
#include <QShortcut>

#include "ui/document_pane.h"
#include "ui/file_viewer.h"
#include "ui/files_and_options.h"
#include "ui/find_bar.h"
#include "ui/pop_up.h"
#include "ui/preferences.h"
#include "ui/product_information.h"
#include "ui/run_control.h"
#include "ui/settings_panel.h"
#include "ui/text.h"
#include "ui/window_place.h"
#include "ui/word_lines.h"
#include "ui_main_window.h"
#include "util/progress_bar.h"

namespace quorvel {
namespace {

constexpr QSize FIRST_SIZE(1000, 720);  // in logical pixels, if the screen is large enough
constexpr int KEEPING_CURRENT_MS = 500;

// Makes the label just large enough for `widest`. If its size could change, every text of a run
// would cause a new layout of the whole window.
void FixSize(QLabel& label, const QFont& font, const QString& widest) {
  const QFontMetrics metrics(font);
  label.setFont(font);
  label.setFixedSize(metrics.horizontalAdvance(widest), metrics.height());
}

}  // namespace

MainWindow::MainWindow() : ui_(std::make_unique<Ui::MainWindow>()) {
  ui_->setupUi(this);
  findBar_ =
      AddFindBar(*ui_->findBar, *ui_->txbOutput,
                 {tr("Find in the listing"), tr("Find in what is shown of the listing")}, *this);
  interface_ = std::make_unique<WindowInterface>(ConversationControls{
      .window = this,
      .output = ui_->txbOutput,
      .stopButton = ui_->cmdListWords,
      .outputFileBox = ui_->txbFile_3,
      .labels = {ui_->lblNumberOfWords, ui_->lblNumOccurrences, ui_->lblKeywordsFound},
      .progressBar = ui_->lblTotalNumOccurrences,
      .busyIndicator = ui_->lblTwirler,
      .timeElapsed = ui_->lblTimeElapsed,
      .listingShown = ui_->lblListingShown,
      .lossBar = ui_->lossBar,
      .lostCharacters = ui_->lblLost,
      .readUnicode = ui_->cmdReadUnicode,
      .findBar = findBar_});
  session_ = std::make_unique<Session>(*interface_);
  files_ = new FilesAndOptions(
      *ui_, *session_, *interface_,
      {.work = [this](const std::string& file,
                      const std::function<void()>& work) { run_->Work(file, work); },
       .listAgain = [this] { run_->ListAgain(); },
       .showPanel = [this] { panel_->ShowSettings(); }},
      this);
  panel_ = new SettingsPanel(*session_, *interface_, HostOfPanel(), this);
  wordLines_ =
      new WordLines(*session_, *interface_,
                    {.mayLeaveOut = [this] { return session_->Settings().mode == Mode::create; },
                     .leaveOut = [this](const QStringList& words) { LeaveOut(words); }},
                    this);
  ui_->tabResults->addTab(wordLines_, tr("Words and lines"));
  connect(ui_->tabResults, &QTabWidget::currentChanged, this, [this] {
    const bool isListing = ui_->tabResults->currentWidget() != wordLines_;
    findBar_->SetTarget(isListing ? FindTarget{} : wordLines_->Document().Finding());
  });
  // After a click on the tab the user can type a word at once. After a key the focus stays on the
  // tab.
  connect(
      ui_->tabResults, &QTabWidget::tabBarClicked, this,
      [this] {
        if (wordLines_->isVisible()) wordLines_->setFocus();
      },
      Qt::QueuedConnection);
  run_ = std::make_unique<RunControl>(*ui_, *session_, *interface_, *files_, *panel_, *wordLines_);
  Initialization();
  ConnectButtons();
  AddShortcuts();
}

MainWindow::~MainWindow() = default;

PanelHost MainWindow::HostOfPanel() {
  return {
      .takeControls = [this] { files_->TakeControls(); },
      .work = [this](const std::string& file,
                     const std::function<void()>& work) { run_->Work(file, work); },
      .settingsReplaced = [this](bool modeSelected) { files_->TakeLoadedSettings(modeSelected); },
      .clearStopWordsOutput =
          [this] {
            if (ui_->txbOutput->toPlainText().contains("stop")) interface_->SetOutput("");
          },
      .quit = [this] { close(); }};
}

void MainWindow::Initialization() {
  setAcceptDrops(true);
  RestorePlace(*this, FIRST_SIZE);
  wordLines_->Restore(KeptState(RESULT_PARTS));
  ui_->tabResults->setCurrentIndex(KeptState(RESULT_TAB).toInt());
  const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  ui_->txbOutput->setFont(fixed);
  FixSize(*ui_->lblTotalNumOccurrences, fixed, ProgressCaption(PROGRESS_BAR_WIDTH).c_str());
  FixSize(*ui_->lblTwirler, fixed, " ");
  ui_->txbOutput->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  ui_->txbOutput->setAcceptDrops(false);
  files_->ShowSettings();
}

// Adds the words to the extra stop words and lists again.
void MainWindow::LeaveOut(const QStringList& words) {
  files_->TakeControls();
  std::string& extra = session_->Settings().extraStopWords;
  for (const QString& word : words) extra += (extra.empty() ? "" : " ") + word.toStdString();
  files_->ShowSettings();
  run_->cmdListWords_Click();
}

void MainWindow::Start(const std::string& path) {
  ConcordanceSettings& settings = session_->Settings();
  session_->ChangeReading(KeptReading());
  const std::optional<RestoredState> state = session_->LoadSettings({}, true);
  if (!state || !state->errorText.empty()) InitializeVariables(settings, false);
  session_->TakeLoadedSettings();
  if (!path.empty()) settings.inputFile = path;
  files_->ShowSettings();
  using enum Session::InputOrigin;
  files_->SetInput(path.empty() ? restored : chosen);
  timer1_.start(KEEPING_CURRENT_MS);
  files_->SetTheFocus();
}

void MainWindow::ConnectButtons() {
  const auto onClick = [this](QAbstractButton* button, auto handler) {
    connect(button, &QAbstractButton::clicked, this, [this, handler] {
      files_->FinishEditing();
      handler();
    });
  };
  connect(ui_->cmdListWords, &QAbstractButton::clicked, this, [this] {
    // Otherwise the run would report the same fault again.
    if (files_->FinishEditing()) run_->cmdListWords_Click();
  });
  onClick(ui_->cmdReadUnicode, [this] {
    ui_->chkUnicode->setChecked(true);
    run_->cmdListWords_Click();
  });
  onClick(ui_->cmdViewFile, [this] { cmdViewFile_Click(); });
  onClick(ui_->cmdSetParameters, [this] { cmdSetParameters_Click(); });
  onClick(ui_->cmdSaveState, [this] { cmdSaveState_Click(); });
  onClick(ui_->cmdQuit, [this] { close(); });
  onClick(ui_->cmdHelp, [this] { ViewHelp(*this, *interface_); });
  onClick(ui_->cmdAbout, [this] { ShowProductInformation(this); });
  connect(&timer1_, &QTimer::timeout, this, &MainWindow::Timer1_Timer);
}

// A key clicks its button, and so does nothing while the button is disabled.
void MainWindow::AddShortcuts() {
  const auto onKey = [this](const QKeySequence& key, auto act) {
    connect(new QShortcut(key, this), &QShortcut::activated, this, act);
  };
  onKey(Qt::Key_F1, [this] { ui_->cmdHelp->click(); });
  onKey(Qt::CTRL | Qt::Key_O, [this] { ui_->cmdFile_0->click(); });
  onKey(Qt::CTRL | Qt::Key_Q, [this] { ui_->cmdQuit->click(); });
  onKey(Qt::Key_F9, [this] { ui_->cmdFold->click(); });
  const auto list = [this] {
    if (!interface_->IsWorking()) ui_->cmdListWords->click();
  };
  onKey(Qt::Key_F5, list);
  onKey(Qt::CTRL | Qt::Key_Return, list);
  onKey(Qt::CTRL | Qt::Key_Enter, list);
  onKey(Qt::Key_Escape, [this] {
    if (interface_->IsWorking()) {
      ui_->cmdListWords->click();
    } else if (findBar_->IsOpen()) {
      findBar_->Close();
    }
  });
}

void MainWindow::cmdViewFile_Click() {
  files_->TakeControls();
  const std::string path = files_->OutputPath();
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
  files_->TakeControls();
  const std::optional<std::string> error = session_->SaveSettings({});
  if (!error) return;
  if (error->empty()) {
    PopUpInForm(*ui_->cmdSetParameters, {"Settings saved", ui_->cmdSetParameters->size(), SHOWN_MS},
                QPoint(0, 0));
  } else {
    interface_->Tell(*error, STANDARD_TITLE);
  }
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (interface_->IsWorking()) {
    event->ignore();
    // Do not ask while a question of the run is open.
    const bool isAsking = QApplication::activeModalWidget() != nullptr;
    if (!isAsking && run_->ConfirmStop()) run_->CloseAfterWork();
    return;
  }
  KeepPlace(*this);
  KeepState(RESULT_PARTS, wordLines_->State());
  KeepState(RESULT_TAB, QByteArray::number(ui_->tabResults->currentIndex()));
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
  const std::string path = PathOf(urls.constFirst().toLocalFile());
  // The program that the file comes from waits until the drop ends, so questions about the file
  // must come later.
  QTimer::singleShot(0, this, [this, path] { files_->ChooseInput(path); });
}

void MainWindow::Timer1_Timer() {
  if (interface_->IsWorking()) return;
  files_->ShowToolTips();
  // Finish an edit that was not finished because a mouse button was down.
  const bool isBusy = QApplication::activeModalWidget() != nullptr || ShownPopUp() != nullptr;
  const bool isTyping = qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr;
  if (!isBusy && !isTyping) files_->FinishEditing();
  files_->ShowWhatIsPossible();
  files_->ShowFileSizes();
}

}  // namespace quorvel
