// The files and options of the main window: the controls that show and change the settings, and
// what each of them does when it is used.
//
// A handler is named after its control and the event.
#pragma once

#include <QObject>
#include <array>
#include <cstddef>
#include <functional>
#include <string>

#include "run/session.h"
#include "ui/window_interface.h"

class QLineEdit;
class QPushButton;

namespace Ui {
class MainWindow;
}

namespace quorvel {

// The file boxes, in the order of their control arrays.
enum FileBox : std::size_t { INPUT_BOX, RESULTS_BOX, KEYWORDS_BOX, CONCORDANCE_BOX, FILE_BOXES };

// What the files and options need from the main window.
struct FilesHost {
  // Does work on a file that may take long.
  std::function<void(const std::string&, const std::function<void()>&)> work;
  std::function<void()> listAgain;
  std::function<void()> showPanel;  // show the settings in the settings panel too
};

class FilesAndOptions : public QObject {
  Q_OBJECT

 public:
  FilesAndOptions(Ui::MainWindow& form, Session& session, WindowInterface& interface,
                  FilesHost host, QWidget* window);

  // Copies the controls to the settings, and the settings to the controls.
  void TakeControls();
  void ShowSettings();

  // Handles text that was typed into a box and not handled yet. Returns false, after telling the
  // user, if the extra keywords have a fault.
  bool FinishEditing();

  // Makes a file the input, as if it were chosen in the dialog.
  void ChooseInput(const std::string& path);

  // Shows settings that were loaded or reset. `modeSelected` is false if a settings file selects no
  // mode.
  void TakeLoadedSettings(bool modeSelected);

  // Checks the input file of the settings and shows the result.
  void SetInput(Session::InputOrigin origin);

  // Enables the controls that the mode, the input and the options allow.
  void ShowWhatIsPossible();
  void ShowFileSizes();

  // Shows the full path of each file as the tool tip of its box.
  void ShowToolTips();

  // The path of the file that a run in the current mode writes.
  [[nodiscard]] const std::string& OutputPath();

  // Gives the focus to the List button.
  void SetTheFocus();

 private:
  void FillLists();
  void ConnectFiles();
  void ConnectOptions();

  void cmdFile_Click(std::size_t index);
  void cmdClearFile_Click(std::size_t index);
  void txbFile_LostFocus(std::size_t index);
  bool txbExtraKeywords_LostFocus();
  bool TakeExtraKeywords();
  void optCreate_Click();
  void optSearch_Click();
  void chkUnicode_Click();
  void cmdFold_Click();

  [[nodiscard]] static QString InputFilter(bool isUnicode);
  void ChooseFile(FileBox box, const QString& title, const QString& filter);
  void ChooseOutputFile(FileBox box, const QString& title, const QString& proposal);
  void PathChosen(std::size_t index);
  void ReadKeywords();
  void Fold(bool folded);
  void ShowFoldedInput();
  void ShowPath(std::size_t index);
  [[nodiscard]] bool MayShowLineBreaks() const;
  [[nodiscard]] std::string& PathSetting(std::size_t index);

  Ui::MainWindow& ui_;
  Session& session_;
  WindowInterface& interface_;
  FilesHost host_;
  QWidget* window_;
  std::array<QLineEdit*, FILE_BOXES> txbFile_{};
  std::array<QPushButton*, FILE_BOXES> cmdFile_{};
  std::array<QPushButton*, FILE_BOXES> cmdClearFile_{};
  bool modeSelected_ = true;  // a settings file may select no mode
  bool showing_ = false;      // the controls are being set, not used
};

}  // namespace quorvel
