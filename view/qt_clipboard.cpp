#include "view/qt_clipboard.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>

void QtBitmapClipboard::CopyPicture() {
  picture_.Update();
  copy_ = picture_.Image();
  QGuiApplication::clipboard()->setImage(copy_);
}

std::string QtBitmapClipboard::Bitmap() {
  const QImage pasted = QGuiApplication::clipboard()->image();
  return BitmapFile(pasted.isNull() ? copy_ : pasted);
}

void QtBitmapClipboard::Empty() {
  QGuiApplication::clipboard()->clear();
  copy_ = QImage();
}

std::string BitmapFile(const QImage& image) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "BMP");
  return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}
