// The files and options of the main window: the controls that show the settings and from which they
// are taken, and what each of them does when it is used.
//
// A handler is named for its control and the event.
#pragma once

#include <QObject>
#include <array>
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
enum FileBox { INPUT_BOX, RESULTS_BOX, KEYWORDS_BOX, CONCORDANCE_BOX, FILE_BOXES };

// What they want of the window around them.
struct FilesHost {
  // Do what may take long, on a file.
  std::function<void(const std::string&, const std::function<void()>&)> work;
  std::function<void()> listAgain;
  std::function<void()> showPanel;  // put the settings into the settings panel, too
};

class FilesAndOptions : public QObject {
  Q_OBJECT

 public:
  FilesAndOptions(Ui::MainWindow& form, Session& session, WindowInterface& interface,
                  FilesHost host, QWidget* window);

  // Puts the controls into the settings, and the settings into the controls.
  void TakeControls();
  void ShowSettings();

  // Takes up what was typed and not yet looked at. False where the user was told of a fault in the
  // extra keywords.
  bool FinishEditing();

  // Makes a file the input, as if it had been chosen in the dialog.
  void ChooseInput(const std::string& path);

  // Takes up settings that are others as a whole; a settings file may select no mode.
  void TakeLoadedSettings(bool modeSelected);

  // Looks at the input in the settings, and shows what came of that.
  void SetInput(Session::InputOrigin origin);

  // Enables what the mode, the input and the options allow.
  void ShowWhatIsPossible();
  void ShowFileSizes();

  // Shows the whole path of each file as its box's tool tip.
  void ShowToolTips();

  // The path of the file that a run in the mode of now writes.
  [[nodiscard]] const std::string& OutputPath();

  void SetTheFocus();

 private:
  void FillLists();
  void ConnectFiles();
  void ConnectOptions();

  void cmdFile_Click(int index);
  void cmdClearFile_Click(int index);
  void txbFile_LostFocus(int index);
  bool txbExtraKeywords_LostFocus();
  bool TakeExtraKeywords();
  void optCreate_Click();
  void optSearch_Click();
  void cboContextSize_Click();
  void chkUnicode_Click();
  void cmdFold_Click();

  [[nodiscard]] static QString InputFilter(bool isUnicode);
  void ChooseFile(FileBox box, const QString& title, const QString& filter);
  void ChooseOutputFile(FileBox box, const QString& title, const QString& proposal);
  void PathChosen(int index);
  void ReadKeywords();
  void Fold(bool folded);
  void ShowFoldedInput();
  void ShowPath(int index);
  [[nodiscard]] bool MayShowLineBreaks() const;
  [[nodiscard]] std::string& PathSetting(int index);

  Ui::MainWindow& ui_;
  Session& session_;
  WindowInterface& interface_;
  FilesHost host_;
  QWidget* window_;
  std::array<QLineEdit*, FILE_BOXES> txbFile_{};
  std::array<QPushButton*, FILE_BOXES> cmdFile_{};
  std::array<QPushButton*, FILE_BOXES> cmdClearFile_{};
  bool modeSelected_ = true;  // a settings file may select neither
  bool showing_ = false;      // the controls are being set, not used
};

}  // namespace quorvel
