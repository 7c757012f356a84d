#include "controls/message_box.h"

#include <QPushButton>

#include "controls/plain_text.h"

MessageBox::MessageBox(const QString& text, QWidget* parent)
    : QMessageBox(parent) {
  setObjectName("MessageBox");
  setTextFormat(Qt::PlainText);
  setText(PlainBrief(text));
  OfferWhole(text);
}

void MessageBox::SetSecondLine(const QString& text) {
  setInformativeText(PlainBrief(text));
  OfferWhole(text);
}

void MessageBox::OfferWhole(const QString& text) {
  const QString seen = PlainBrief(text).remove(kMayBreak).remove(kJoiner);
  if (seen == text) return;
  setDetailedText(detailedText() + text + '\n');
  // Enter is for the answers, which are added later.
  for (QPushButton* details : findChildren<QPushButton*>())
    details->setAutoDefault(false);
}
