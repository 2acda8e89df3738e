#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>

#include "desktop/look/style.h"

// All tests of the window share the one application object that a process can have, without a
// display unless one is asked for.
int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  tallyfold::desktop::InstallStyle(application);
  return RUN_ALL_TESTS();
}
