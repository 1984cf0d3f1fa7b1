// Runs in the main window: the List button starts and stops them.
//
// While the core works, events run when it yields, and every control except the Stop button is
// disabled.
#pragma once

#include <functional>

#include "run/session.h"
#include "ui/window_interface.h"

class QWidget;

namespace Ui {
class MainWindow;
}

namespace quorvel {

class FilesAndOptions;
class WordLines;

class RunControl {
 public:
  RunControl(Ui::MainWindow& form, Session& session, WindowInterface& interface,
             FilesAndOptions& files, QWidget& panel, WordLines& wordLines)
      : ui_(form),
        session_(session),
        interface_(interface),
        files_(files),
        panel_(panel),
        wordLines_(wordLines) {}

  // The List button: starts a run or, during one, asks whether to stop it.
  void cmdListWords_Click();

  // Lists the same words again with the current options.
  void ListAgain();

  // Does work on a file that may take long. Only the Stop button is enabled meanwhile, if the work
  // can be stopped.
  void Work(const std::string& file, const std::function<void()>& work);

  // Asks whether to stop the work, and requests the stop if the user agrees. Returns whether it
  // did.
  bool ConfirmStop();

  // Closes the window when the work has ended.
  void CloseAfterWork() { closesAfterWork_ = true; }

 private:
  void EnableControls(bool enabled);

  Ui::MainWindow& ui_;
  Session& session_;
  WindowInterface& interface_;
  FilesAndOptions& files_;
  QWidget& panel_;  // the settings panel
  WordLines& wordLines_;
  bool closesAfterWork_ = false;
};

}  // namespace quorvel
