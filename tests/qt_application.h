// The application object that tests of windows and pictures need: one for the
// whole run, made by the first test that asks, without a display unless the
// environment names a platform.

#pragma once

#include <QApplication>

inline void NeedApplication() {
  if (QCoreApplication::instance()) return;
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  static int argc = 1;
  static char name[] = "test";
  static char* argv[] = {name, nullptr};
  static QApplication application(argc, argv);
}
