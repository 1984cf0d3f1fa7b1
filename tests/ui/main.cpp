// quorvel_window_tests: the tests that drive the real window.

#include <gtest/gtest.h>

#include <QApplication>

int main(int argumentCount, char** arguments) {
  testing::InitGoogleTest(&argumentCount, arguments);
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  const QApplication application(argumentCount, arguments);
  QApplication::setApplicationName("quorvel");
  // Windows come and go with the tests.
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
