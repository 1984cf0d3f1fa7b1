// quorvel_window_tests: the tests that drive the real window.

#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>

#include "support/test_folder.h"

int main(int argumentCount, char** arguments) {
  testing::InitGoogleTest(&argumentCount, arguments);
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  const QApplication application(argumentCount, arguments);
  QApplication::setApplicationName("quorvel");
  // Each test opens and closes windows.
  QApplication::setQuitOnLastWindowClosed(false);
  // Qt's file dialogs keep their own settings, in the first folder that they were written to.
  const quorvel::TestFolder settings;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                     QString::fromStdString(settings.Path("")));
  return RUN_ALL_TESTS();
}
