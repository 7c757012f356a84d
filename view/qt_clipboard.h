// The desktop's clipboard, for bitmaps of the window's grid picture.

#pragma once

#include "base/clipboard.h"
#include "draw/qt_picture.h"

class QtBitmapClipboard : public BitmapClipboard {
 public:
  explicit QtBitmapClipboard(QtPicture& picture) : picture_(picture) {}

  void CopyPicture() override;
  std::string Bitmap() override;
  void Empty() override;

 private:
  QtPicture& picture_;
  QImage copy_;  // in case that the clipboard does not take it
};

// The bytes of a .bmp file.
std::string BitmapFile(const QImage& image);
