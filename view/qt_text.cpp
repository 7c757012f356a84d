#include "view/qt_text.h"

#include "base/utf8.h"

QString FromBytes(std::string_view text) {
  return QString::fromStdString(FromUnknown(text));
}

std::string ToTitle(const QString& text) {
  const std::string title = text.toStdString();
  const auto bytes = ToLatin1(title);
  return bytes && FromUnknown(*bytes) == title ? *bytes : title;
}
