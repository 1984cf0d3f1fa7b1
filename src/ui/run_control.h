// The run and its listing in the main window: the List button, what is under way, and its end.
//
// While the core works events run at its yields, and every control but the Stop button is disabled.
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

  // Lists the words of the listing on the screen as the options are now.
  void ListAgain();

  // Does what may take long: only the Stop button is live meanwhile, where it is offered.
  void Work(const std::string& file, const std::function<void()>& work);

  // Asks whether to stop what is under way, and does.
  bool ConfirmStop();

  // Closes the window when what is under way has ended.
  void CloseAfterWork() { closesAfterWork_ = true; }

 private:
  void EnableControls(bool enabled);

  Ui::MainWindow& ui_;
  Session& session_;
  WindowInterface& interface_;
  FilesAndOptions& files_;
  QWidget& panel_;  // beside the main window
  WordLines& wordLines_;
  bool closesAfterWork_ = false;
};

}  // namespace quorvel
