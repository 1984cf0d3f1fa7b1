#include "ui/settings_panel.h"

#include <QFileDialog>
#include <QKeyEvent>
#include <utility>

#include "lists/languages.h"
#include "run/stop_word_choice.h"
#include "run/word_lists.h"
#include "ui/language_chooser.h"
#include "ui/pop_up.h"
#include "ui/text.h"
#include "ui/text_box.h"
#include "ui_settings_panel.h"

namespace quorvel {
namespace {

constexpr const char* SETTINGS_FILTER = "Settings files (*.lvz)";

// The index in the language chooser of the language whose stop words are at `path`, or the index of
// English for any other file.
int LanguageInUse(const std::string& path) {
  if (path.ends_with(ALL_LANGUAGES.stopWordsFile)) return static_cast<int>(LANGUAGES.size());
  for (std::size_t i = 0; i < LANGUAGES.size(); ++i) {
    if (path.ends_with(LANGUAGES.at(i).stopWordsFile)) return static_cast<int>(i);
  }
  return 0;
}

}  // namespace

SettingsPanel::SettingsPanel(Session& session, Conversation& ui, PanelHost host, QWidget* parent)
    : QDialog(parent),
      session_(session),
      conversation_(ui),
      host_(std::move(host)),
      ui_(std::make_unique<Ui::SettingsPanel>()) {
  ui_->setupUi(this);
  FillLists();
  ConnectOptions();
  ConnectButtons();
}

SettingsPanel::~SettingsPanel() = default;

// In a text box Enter does not close the panel, because the text may have a fault.
void SettingsPanel::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isEnter || qobject_cast<QLineEdit*>(focusWidget()) == nullptr) {
    QDialog::keyPressEvent(event);
  }
}

void SettingsPanel::ShowSettings() {
  const ConcordanceSettings& settings = session_.Settings();
  showing_ = true;
  ui_->chkAllowWordsWithHyphens->setChecked(settings.allowWordsWithHyphens);
  ui_->chkAllowWordsWithNumerals->setChecked(settings.allowWordsWithNumerals);
  ui_->chkIgnoreInfrequentWords->setChecked(settings.ignoreInfrequentWords);
  ui_->chkIgnoreLists->setChecked(settings.ignoreLists);
  ui_->cboThresholdFrequency->setCurrentIndex(settings.thresholdFrequency - SMALLEST_THRESHOLD);
  ReplaceText(*ui_->txbStopWordsFile, ShownPath(settings.stopWordsFile));
  ReplaceText(*ui_->txbExtraStopWords, ShownText(settings.extraStopWords));
  showing_ = false;
}

void SettingsPanel::FillLists() {
  for (int count = SMALLEST_THRESHOLD; count <= LARGEST_THRESHOLD; ++count) {
    ui_->cboThresholdFrequency->addItem(QString(" %1").arg(count));
  }
}

void SettingsPanel::ConnectOptions() {
  const auto keep = [this](QCheckBox* box, bool ConcordanceSettings::*field) {
    connect(box, &QCheckBox::toggled, this, [this, field](bool ticked) {
      if (showing_) return;
      session_.Settings().*field = ticked;
      FocusCloseButton();
    });
  };
  keep(ui_->chkAllowWordsWithHyphens, &ConcordanceSettings::allowWordsWithHyphens);
  keep(ui_->chkAllowWordsWithNumerals, &ConcordanceSettings::allowWordsWithNumerals);
  keep(ui_->chkIgnoreInfrequentWords, &ConcordanceSettings::ignoreInfrequentWords);
  connect(ui_->chkIgnoreLists, &QCheckBox::toggled, this, &SettingsPanel::chkIgnoreLists_Click);
  connect(ui_->cboThresholdFrequency, &QComboBox::currentIndexChanged, this, [this](int place) {
    if (showing_ || place < 0) return;
    session_.Settings().thresholdFrequency = place + SMALLEST_THRESHOLD;
    FocusCloseButton();
  });
  connect(ui_->txbStopWordsFile, &QLineEdit::editingFinished, this,
          &SettingsPanel::txbStopWordsFile_LostFocus);
  connect(ui_->txbExtraStopWords, &QLineEdit::editingFinished, this,
          &SettingsPanel::txbExtraStopWords_LostFocus);
}

void SettingsPanel::ConnectButtons() {
  const auto onClick = [this](QPushButton* button, auto handler) {
    connect(button, &QPushButton::clicked, this, handler);
  };
  onClick(ui_->cmdSelectStopWordsFile_0, [this] { cmdSelectStopWordsFile_Click(0); });
  onClick(ui_->cmdSelectStopWordsFile_1, [this] { cmdSelectStopWordsFile_Click(1); });
  onClick(ui_->cmdListStopWords, [this] { cmdListStopWords_Click(); });
  onClick(ui_->cmdClearStopWordsFile, [this] { cmdClearStopWordsFile_Click(); });
  onClick(ui_->cmdSaveLoadState_0, [this] { SaveToFile(); });
  onClick(ui_->cmdSaveLoadState_1, [this] { LoadFromFile(); });
  onClick(ui_->cmdInitialize, [this] { cmdInitialize_Click(); });
  onClick(ui_->cmdQuitProgram, [this] { cmdQuitProgram_Click(); });
  onClick(ui_->cmdClosePanel, [this] { close(); });
}

// Lists are skipped when the page is read, so the document must be read again.
void SettingsPanel::chkIgnoreLists_Click(bool ticked) {
  if (showing_) return;
  session_.Settings().ignoreLists = ticked;
  session_.DropWordsAtHand();
  FocusCloseButton();
}

void SettingsPanel::cmdSelectStopWordsFile_Click(int index) {
  std::string path;
  if (index == 1) {
    const int language = ChooseLanguage(this, LanguageInUse(session_.Settings().stopWordsFile));
    if (language < 0) return;
    const auto place = static_cast<std::size_t>(language);
    path = StopWordsPath(place < LANGUAGES.size() ? LANGUAGES.at(place) : ALL_LANGUAGES);
  } else {
    const QString chosen =
        QFileDialog::getOpenFileName(this, "Specify file of stop words (words to ignore)", {},
                                     "Any file containing only text (*.*)(*)");
    if (!chosen.isEmpty()) path = PathOf(chosen);
  }
  if (!path.empty()) {
    ReplaceText(*ui_->txbStopWordsFile, ShownPath(path));
    session_.Settings().stopWordsFile = path;
    host_.work(path, [this, &path] {
      StopWordList& list = session_.Lists().stopWords;
      AttemptToReadStopWords(path, session_.Settings(), list, conversation_);
    });
    ConcealNumWords(session_.Lists().stopWords, true);
  }
  FocusCloseButton();
}

void SettingsPanel::cmdListStopWords_Click() {
  txbStopWordsFile_LostFocus();  // Alt+L presses the button while the box has the focus
  if (HasStopWords()) ListStopWords(session_.Lists().stopWords, conversation_);
  StayAt(*ui_->cmdListStopWords);
}

// Reads the stop words if their path was typed and they have not been read yet. Returns false if
// they cannot be read.
bool SettingsPanel::HasStopWords() {
  if (session_.Lists().stopWords.loaded || session_.Settings().stopWordsFile.empty()) return true;
  bool read = false;
  host_.work(session_.Settings().stopWordsFile, [this, &read] {
    read = session_.ReadNamedStopWords();
    if (read) conversation_.SetOutput("");  // removes "Reading ..."
  });
  return read;
}

void SettingsPanel::cmdClearStopWordsFile_Click() {
  ReplaceText(*ui_->txbStopWordsFile, {});
  session_.Settings().stopWordsFile.clear();
  EraseStopWords(session_.Lists().stopWords);
  host_.clearStopWordsOutput();
}

void SettingsPanel::cmdInitialize_Click() {
  constexpr int SHOWN_MS = 2000;
  InitializeVariables(session_.Settings(), true);
  host_.settingsReplaced(true);
  PopUpInForm(*ui_->cmdInitialize, {"Settings reinitialized", ui_->cmdInitialize->size(), SHOWN_MS},
              QPoint(0, 0));
  StayAt(*ui_->cmdInitialize);
}

void SettingsPanel::SaveToFile() {
  QFileDialog dialog(this, "Specify file to save settings to", {}, SETTINGS_FILTER);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix("lvz");
  if (dialog.exec() != QDialog::Accepted) return;
  host_.takeControls();
  const std::optional<std::string> error =
      session_.SaveSettings(PathOf(dialog.selectedFiles().constFirst()));
  if (error && !error->empty()) conversation_.Tell(*error, "Save settings");
}

void SettingsPanel::LoadFromFile() {
  const QString chosen = QFileDialog::getOpenFileName(this, "Specify file to load settings from.",
                                                      {}, SETTINGS_FILTER);
  if (chosen.isEmpty()) return;
  host_.takeControls();
  const std::optional<RestoredState> restored = session_.LoadSettings(PathOf(chosen), false);
  if (!restored) return;
  if (!restored->errorText.empty()) {
    conversation_.Tell(restored->errorText, "Load settings");
    InitializeVariables(session_.Settings(), false);
  }
  host_.settingsReplaced(restored->modeSelected || !restored->errorText.empty());
  StayAt(*ui_->cmdSaveLoadState_1);
}

void SettingsPanel::cmdQuitProgram_Click() {
  if (conversation_.Ask({"Really quit?", "Quit", Icon::none, Buttons::yesNo, Answer::yes}) ==
      Answer::yes) {
    host_.quit();
  }
}

void SettingsPanel::txbStopWordsFile_LostFocus() {
  if (!ui_->txbStopWordsFile->isModified()) return;
  if (ui_->txbStopWordsFile->text().trimmed().isEmpty()) return cmdClearStopWordsFile_Click();
  ReplaceText(*ui_->txbStopWordsFile, ui_->txbStopWordsFile->text().trimmed());
  TakePath(ui_->txbStopWordsFile->text(), session_.Settings().stopWordsFile);
  session_.Lists().stopWords.loaded = false;
}

void SettingsPanel::txbExtraStopWords_LostFocus() {
  if (!ui_->txbExtraStopWords->isModified()) return;
  session_.Settings().extraStopWords =
      TidyExtraStopWords(ui_->txbExtraStopWords->text().toStdString(), session_.AlphabetNow());
  ReplaceText(*ui_->txbExtraStopWords, ShownText(session_.Settings().extraStopWords));
  (void)CheckAllowedExtraChars(session_.Settings(), conversation_);
}

void SettingsPanel::FocusCloseButton() { StayAt(*ui_->cmdClosePanel); }

// The main window may have taken the focus meanwhile.
void SettingsPanel::StayAt(QWidget& control) {
  activateWindow();
  control.setFocus();
}

}  // namespace quorvel
