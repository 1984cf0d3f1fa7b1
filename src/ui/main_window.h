// The main window. It owns the session and connects its parts: the files and options
// (files_and_options.h), the run and its listing (run_control.h), the conversation
// (window_interface.h) and the other windows.
//
// The core decides what a run does and says. A handler is named after its control and the event.
#pragma once

#include <QMainWindow>
#include <QTimer>
#include <memory>
#include <string>

#include "run/session.h"
#include "ui/settings_panel.h"
#include "ui/window_interface.h"

namespace Ui {
class MainWindow;
}

namespace quorvel {

class FilesAndOptions;
class FindBar;
class RunControl;
class WordLines;

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  MainWindow();
  ~MainWindow() override;

  // Loads the settings of the last session. Then, if `path` is not empty, makes that file the
  // input. Call it when the window is shown, because it may ask questions.
  void Start(const std::string& path);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void Initialization();
  void ConnectButtons();
  void AddShortcuts();
  void LeaveOut(const QStringList& words);
  [[nodiscard]] PanelHost HostOfPanel();

  void cmdViewFile_Click();
  void cmdSetParameters_Click();
  void cmdSaveState_Click();
  void Timer1_Timer();

  std::unique_ptr<Ui::MainWindow> ui_;
  FindBar* findBar_ = nullptr;
  std::unique_ptr<WindowInterface> interface_;
  std::unique_ptr<Session> session_;
  FilesAndOptions* files_ = nullptr;
  SettingsPanel* panel_ = nullptr;
  WordLines* wordLines_ = nullptr;
  std::unique_ptr<RunControl> run_;
  QTimer timer1_;  // updates the controls
};

}  // namespace quorvel
