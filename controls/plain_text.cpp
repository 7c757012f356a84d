#include "controls/plain_text.h"

#include <QStringList>
#include <QTextDocument>

namespace {

constexpr int kMostLines = 20;
constexpr QChar kRest(0x2026);  // "..."

// The beginning and the end of a list, and what stands for its middle.
QStringList FewLines(const QStringList& lines) {
  constexpr int kLast = 4;
  if (lines.size() <= kMostLines) return lines;
  return lines.mid(0, kMostLines - kLast - 1) + QStringList(QString(kRest)) +
         lines.mid(lines.size() - kLast);
}

QString FewCharacters(const QString& text) {
  constexpr int kMost = 600, kLast = 150;
  if (text.size() <= kMost) return text;
  return text.left(kMost - kLast - 1) + kRest + text.right(kLast);
}

// Lets words of more characters than this wrap.
QString WithBreaks(const QString& text) {
  constexpr int kLongestWord = 60;
  QString wrapped;
  int length = 0;
  for (const QChar c : text) {
    length = c.isSpace() ? 0 : length + 1;
    if (length > kLongestWord && !c.isLowSurrogate()) {
      wrapped += kMayBreak;
      length = 1;
    }
    wrapped += c;
  }
  return wrapped;
}

QStringList Folded(const QString& line) {
  constexpr int kWidth = 80;
  QStringList lines;
  for (int from = 0; from == 0 || from < line.size(); from += kWidth)
    lines += line.mid(from, kWidth);
  return lines;
}

}  // namespace

QString Plain(const QString& text) {
  if (!Qt::mightBeRichText(text)) return text;
  return QString(text)
      .replace('<', QString('<') + kJoiner)
      .replace('&', QString('&') + kJoiner);
}

QString PlainTip(const QString& text) {
  QStringList lines;
  for (const QString& line : FewLines(text.split('\n'))) lines += Folded(line);
  return Plain(FewLines(lines).join('\n'));
}

QString PlainBrief(const QString& text) {
  const QString few = FewCharacters(FewLines(text.split('\n')).join('\n'));
  return Plain(WithBreaks(few));
}
