#include "view/qt_text.h"

#include "base/utf8.h"

QString FromBytes(std::string_view text) {
  return ToQt(FromUnknown(text));
}

QString ToQt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
