#include "view/qt_text.h"

#include <QStringDecoder>

QString FromBytes(std::string_view text) {
  const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
  QStringDecoder decode(QStringDecoder::Utf8);
  const QString decoded = decode(bytes);
  return decode.hasError() ? QString::fromLatin1(bytes) : decoded;
}

QString FromTitle(std::string_view title) {
  return QString::fromLatin1(title.data(),
                             static_cast<qsizetype>(title.size()));
}

std::string ToTitle(const QString& text) {
  return text.toLatin1().toStdString();
}

QString FitForTitle(const QString& text, QString& lost) {
  QString fit;
  // Characters that come as a pair of units are lost as a whole.
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = text[i];
    switch (c.unicode()) {
      case 0x2018:
      case 0x2019:
        fit += '\'';
        break;
      case 0x201C:
      case 0x201D:
        fit += '"';
        break;
      case 0x2013:
      case 0x2014:
        fit += '-';
        break;
      case 0x2026:
        fit += "...";
        break;
      default:
        if (c.unicode() >= 0x20 && c.unicode() <= 0xFF)
          fit += c;
        else
          lost += c;
    }
  }
  return fit;
}
