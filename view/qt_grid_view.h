// The grid picture (Picture1) as a widget: shows the picture's image and
// turns clicks and keys into edits of cells.
//
// By keyboard: arrows move a cell cursor, Space makes the cell and its mirror
// black, Enter shows the word that starts there (with Shift the one down),
// Ctrl+Enter and Ctrl+Shift+Enter ask for another word.

#pragma once

#include <QAccessible>
#include <QWidget>
#include <functional>

#include "draw/qt_picture.h"
#include "view/cell_editing.h"

class GridView : public QWidget {
  Q_OBJECT

 public:
  GridView(const State& state, QtPicture& picture, QWidget* parent = nullptr);

  // Brings the widget up to date with the picture.
  void ShowPicture();

  // How many cells a row and a column have.
  int Cells() const;
  // The cell under the keyboard cursor.
  Pos Cursor() const;
  // What is in a cell, in words: "row 2, column 3: A, number 5", or "block"
  // or "empty" in place of the letter.
  QString Describe(Pos cell) const;
  QRect BoxOf(Pos cell) const;  // in pixels

 signals:
  // A mouse button was released at a cell, or a key asked for the same.
  void Clicked(const Click& click);
  // The cursor moved; the cell should be in view.
  void CursorMoved(QRect box);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void MoveCursor(int down, int right);
  // Tells assistive technology of the cell under the cursor.
  void Speak(QAccessible::Event what);

  const State& state_;
  QtPicture& picture_;
  Pos cursor_{1, 1};
  bool keyboardUsed_ = false;
};
