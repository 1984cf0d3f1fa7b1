// Takes screenshots of the windows of quorvel:
//
//     quorvel_screenshots DOCUMENT FOLDER SUFFIX
//
// Runs a short session with the document in the real main window, and saves a screenshot of each
// window as FOLDER/window-SUFFIX.png. The session is a list of steps that a timer executes, because
// most windows run a modal event loop until the next step.

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QPixmap>
#include <QShortcut>
#include <QTabWidget>
#include <QTimer>
#include <cstdio>
#include <functional>
#include <utility>
#include <vector>

#include "ui/main_window.h"
#include "ui/text.h"

namespace quorvel {
namespace {

constexpr QSize MAIN_WINDOW_SIZE(1100, 760);
constexpr QPoint MAIN_WINDOW_PLACE(40, 30);
constexpr int SETTLING_MS = 300;  // until a new window has its final layout
constexpr int PATIENCE_MS = 20000;

struct Step {
  const char* window;   // title of the active window
  const char* picture;  // name of its screenshot; empty for none
  std::function<void(QWidget& window)> act;
};

// Calls `act` with a control of the active window.
template <class Control>
std::function<void(QWidget&)> On(const char* name, std::function<void(Control&)> act) {
  return [name, act = std::move(act)](QWidget& window) {
    if (auto* control = window.findChild<Control*>(name)) return act(*control);
    qFatal("no control %s", name);
  };
}

std::function<void(QWidget&)> Click(const char* name) {
  return On<QAbstractButton>(name, [](QAbstractButton& button) { button.click(); });
}

std::function<void(QWidget&)> Fill(const char* name, const char* text) {
  return On<QLineEdit>(name, [text](QLineEdit& box) { box.setText(text); });
}

std::function<void(QWidget&)> GoToTab(int tab) {
  return On<QTabWidget>("tabResults", [tab](QTabWidget& tabs) { tabs.setCurrentIndex(tab); });
}

// Closes a message box with one button.
void Confirm(QWidget& box) { box.findChild<QAbstractButton*>()->click(); }

void Close(QWidget& window) { window.close(); }

void OpenFindBar(QWidget& window) {
  for (QShortcut* shortcut : window.findChildren<QShortcut*>()) {
    if (shortcut->key() == QKeySequence(Qt::CTRL | Qt::Key_F)) emit shortcut->activated();
  }
}

std::vector<Step> Session() {
  return {
      {"Stop words loaded", "message-box", Confirm},
      {"Quorvel", "", Click("cmdListWords")},
      {"Concordance file written", "pop-up", Close},
      {"Quorvel", "main-window", GoToTab(1)},
      {"Quorvel", "", Fill("txbFindWord", "lamp")},
      {"Quorvel", "words-and-lines", GoToTab(0)},
      {"Quorvel", "", OpenFindBar},
      {"Quorvel", "", Fill("txbFind", "lamp")},
      {"Quorvel", "", Click("cmdFindNext")},
      {"Quorvel", "find-bar", Click("cmdFindClose")},
      {"Quorvel", "", Click("cmdSetParameters")},
      {"Quorvel settings", "settings", Click("cmdSelectStopWordsFile_1")},
      {"Stop words", "language-chooser", Click("cmdCancel")},
      {"Quorvel settings", "", Click("cmdClosePanel")},
      {"Quorvel", "", Click("cmdHelp")},
      {"Help for Quorvel", "help", Click("cmdClose")},
      {"Quorvel", "", Click("cmdAbout")},
      {"About Quorvel", "product-information", Click("cmdClose")},
      {"Quorvel", "", Fill("txbExtraKeywords", "lamp* light* oil+can")},
      {"Quorvel", "", Fill("txbFile_1", "lights.txt")},
      {"Quorvel", "", Click("optSearch")},
      {"Quorvel", "", Click("cmdListWords")},
      {"Quorvel", "search", Close},
  };
}

class Photographer : public QObject {
 public:
  Photographer(QString folder, QString suffix)
      : folder_(std::move(folder)), suffix_(std::move(suffix)), steps_(Session()) {
    connect(&looking_, &QTimer::timeout, this, &Photographer::Look);
    connect(&acting_, &QTimer::timeout, this, &Photographer::Act);
    acting_.setSingleShot(true);
    looking_.start(SETTLING_MS);
  }

 private:
  // Executes the next step if its window has been active since the previous call.
  void Look() {
    const Step& step = steps_.at(next_);
    QWidget* window = WindowTitled(step.window);
    const bool isActive = window != nullptr && window->isActiveWindow();
    const bool isReady = isActive && window == seen_;
    if (window != nullptr && !isActive) window->activateWindow();
    seen_ = isActive && !isReady ? window : nullptr;
    looks_ = isReady ? 0 : looks_ + 1;
    if (looks_ > PATIENCE_MS / SETTLING_MS) qFatal("the window '%s' did not come", step.window);
    if (!isReady) return;
    if (*step.picture != '\0') Photograph(*window, step.picture);
    if (next_ + 1 == steps_.size()) looking_.stop();
    acting_.start(0);
  }

  void Act() {
    const Step& step = steps_.at(next_++);
    step.act(*WindowTitled(step.window));
  }

  static QWidget* WindowTitled(const char* title) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->isVisible() && window->windowTitle() == title) return window;
    }
    return nullptr;
  }

  void Photograph(QWidget& window, const QString& name) const {
    const QString path = folder_ + "/" + name + "-" + suffix_ + ".png";
    if (!window.grab().save(path)) qFatal("%s cannot be written", qPrintable(path));
  }

  QString folder_;
  QString suffix_;
  std::vector<Step> steps_;
  std::size_t next_ = 0;
  int looks_ = 0;
  QTimer looking_;
  // A step may open a modal window and return only after that is closed. So the step runs on its
  // own timer, because a timer does not fire again before its handler returns.
  QTimer acting_;
  const QWidget* seen_ = nullptr;  // the active window at the previous call
};

}  // namespace
}  // namespace quorvel

int main(int argumentCount, char** arguments) {
  const QApplication application(argumentCount, arguments);
  QApplication::setCursorFlashTime(0);  // so that the cursor never shows
  const QStringList words = QApplication::arguments();
  if (words.size() != 4) {
    std::fputs("Usage: quorvel_screenshots DOCUMENT FOLDER SUFFIX\n", stderr);
    return 2;
  }
  quorvel::MainWindow window;
  window.resize(quorvel::MAIN_WINDOW_SIZE);
  window.move(quorvel::MAIN_WINDOW_PLACE);
  window.show();
  const quorvel::Photographer photographer(words.at(2), words.at(3));
  QTimer::singleShot(quorvel::SETTLING_MS, &window,
                     [&window, &words] { window.Start(quorvel::PathOf(words.at(1))); });
  return QApplication::exec();
}
