// Drawing without a window or a display.

#pragma once

#include <memory>

class QGuiApplication;

// Fonts and painting are there while this lives.  There may be one at a time.
class DrawingSession {
 public:
  DrawingSession();
  ~DrawingSession();

 private:
  std::unique_ptr<QGuiApplication> application_;
};
