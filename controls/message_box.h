// The program's message box: its texts are shown as they stand, and however
// long they are it fits the screen.  What is left out of a long text is
// behind "Show Details", where all of it can be scrolled and copied.

#pragma once

#include <QMessageBox>

class MessageBox : public QMessageBox {
 public:
  explicit MessageBox(const QString& text, QWidget* parent = nullptr);

  // A line below the text.
  void SetSecondLine(const QString& text);

 private:
  // Puts a text that is shown in part behind "Show Details".
  void OfferWhole(const QString& text);
};
