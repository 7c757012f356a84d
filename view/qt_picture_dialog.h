// What a saved picture of the puzzle is to be like.

#pragma once

#include <QDialog>

#include "files/publisher.h"

class QCheckBox;
class QDoubleSpinBox;
class QLabel;
class QRadioButton;

class PictureDialog : public QDialog {
 public:
  PictureDialog(QWidget* parent, int gridSize);

  PictureChoice Choice() const;

 private:
  void ShowSize();

  int gridSize_;
  QRadioButton* png_;
  QRadioButton* svg_;
  QDoubleSpinBox* scale_;
  QLabel* size_;
  QCheckBox* letters_;
};
