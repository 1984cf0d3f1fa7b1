// The main window, which puts its parts together: the session that it owns, the files and options
// (files_and_options.h), the run and its listing (run_control.h), the conversation
// (window_interface.h), and the way to the other windows.
//
// What a run does and says is decided in the core. A handler is named for its control and the
// event.
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

  // Takes up the settings of the last session, and then, where `path` is not empty, that
  // file as the input. To be called once the window is shown, since it may ask something.
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
  QTimer timer1_;  // keeps the controls current
};

}  // namespace quorvel
