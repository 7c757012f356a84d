#include "draw/qt_session.h"

#include <QGuiApplication>
#include <QLoggingCategory>

DrawingSession::DrawingSession() {
  static int argc = 1;
  static char name[] = "kelda-cli";
  static char* argv[] = {name, nullptr};
  // Qt warns of missing desktop settings that no drawing needs.
  QLoggingCategory::setFilterRules("*.warning=false");
  qputenv("QT_QPA_PLATFORM", "offscreen");
  application_ = std::make_unique<QGuiApplication>(argc, argv);
}

DrawingSession::~DrawingSession() = default;
