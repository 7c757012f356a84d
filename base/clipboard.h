// The system's clipboard.

#pragma once

#include <string>

// Takes bitmaps of the grid picture.
class BitmapClipboard {
 public:
  virtual ~BitmapClipboard() = default;

  // Puts the grid picture's pixels on the clipboard.
  virtual void CopyPicture() = 0;
  // The clipboard's bitmap as the bytes of a .bmp file.
  virtual std::string Bitmap() = 0;
  virtual void Empty() = 0;
};
