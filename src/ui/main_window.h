// The main window: the files and options of a run, its listing, and the way to the
// other windows.
//
// It owns the state of the program and passes it down to the core; what a run does and
// says is decided there. A handler is named for its control and the event.
#pragma once

#include <QMainWindow>
#include <QTimer>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "engine/run_state.h"
#include "ui/window_interface.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace Ui {
class MainWindow;
}

namespace quorvel {

class FindBar;
class SettingsPanel;

// The file boxes, in the order of their control arrays.
enum FileBox { INPUT_BOX, RESULTS_BOX, KEYWORDS_BOX, CONCORDANCE_BOX, FILE_BOXES };

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  MainWindow();
  ~MainWindow() override;

  // Takes up the settings of the last session, and then, where `path` is not empty, that
  // file as the input. To be called once the window is shown, since it may ask something.
  void Start(const std::string& path);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  enum class InputOrigin { chosen, restored };

  void Initialization();
  void TakeLoadedSettings(bool modeSelected);
  void TakeRestoredLists();
  void ConnectFiles();
  void ConnectOptions();
  void ConnectButtons();
  void AddShortcuts();

  void cmdFile_Click(int index);
  void cmdClearFile_Click(int index);
  void txbFile_LostFocus(int index);
  bool txbExtraKeywords_LostFocus();
  bool TakeExtraKeywords();
  void optCreate_Click();
  void optSearch_Click();
  void cboContextSize_Click();
  void cmdListWords_Click();
  void cmdViewFile_Click();
  void cmdSetParameters_Click();
  void cmdSaveState_Click();
  void Timer1_Timer();
  void Timer2_Timer();

  void ChooseInputFile();
  void ChooseKeywordsFile();
  void ChooseOutputFile(FileBox box, const QString& title, const QString& proposal);
  void PathChosen(int index);
  bool FinishEditing();
  void SetInput(InputOrigin origin);
  bool CheckChosenInput();
  void RefuseInput(const std::string& text, const char* title);
  void ReadKeywords();
  void ReadStopWords(const std::string& path);

  void Work(const std::function<void()>& work);
  void EnableControls(bool enabled);
  void RunOrList();
  bool ReadTypedStopWords();
  bool PrepareStopWords();
  void Relist();
  bool ConfirmStop();

  void TakeControls();
  void ShowSettings();
  void ShowPath(int index);
  void ShowWhatIsPossible();
  void ShowFileSizes();
  void ShowLengthOfListing();
  void ShowPartShown(std::int64_t shown, std::int64_t whole, bool fileHoldsAll);
  [[nodiscard]] bool MayShowLineBreaks() const;
  [[nodiscard]] std::string& PathSetting(int index);
  void SetTheFocus();

  std::unique_ptr<Ui::MainWindow> ui_;
  std::array<QLineEdit*, FILE_BOXES> txbFile_{};
  std::array<QPushButton*, FILE_BOXES> cmdFile_{};
  std::array<QPushButton*, FILE_BOXES> cmdClearFile_{};
  std::unique_ptr<WindowInterface> interface_;
  RunState state_;
  SettingsPanel* panel_ = nullptr;
  FindBar* findBar_ = nullptr;
  QTimer timer1_;  // keeps the controls current
  QTimer timer2_;  // counts the seconds of a run
  int secondsOfRun_ = 0;
  Mode listedMode_ = Mode::create;  // of the run that the listing comes from
  bool modeSelected_ = true;        // a settings file may select neither
  bool showing_ = false;            // the controls are being set, not used
  bool closeAfterWork_ = false;
};

}  // namespace quorvel
