// quorvel: the program with a window, which shows the concordance of one document.

#include <QApplication>
#include <QTimer>

#include "files/output_file.h"
#include "ui/main_window.h"
#include "ui/product_information.h"
#include "ui/text.h"
#include "ui/translation.h"

int main(int argumentCount, char** arguments) {
  quorvel::OpenMissingStandardStreams();
  quorvel::LetOversizedWritesFail();
  const QApplication application(argumentCount, arguments);
  QApplication::setApplicationName("quorvel");
  QApplication::setDesktopFileName("quorvel");
  QApplication::setWindowIcon(quorvel::ProgramIcon());
  quorvel::LoadTranslation();
  const QStringList words = QApplication::arguments();
  const std::string input = words.size() > 1 ? quorvel::PathOf(words.at(1)) : std::string();
  quorvel::MainWindow window;
  window.show();
  // After this time the window is in its place, so that a message box is centred over it.
  constexpr int PLACED_AFTER_MS = 100;
  QTimer::singleShot(PLACED_AFTER_MS, &window, [&window, &input] { window.Start(input); });
  return QApplication::exec();
}
