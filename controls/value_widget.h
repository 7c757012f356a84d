// A widget that shows a value from 0 to Max, which screen readers are told.

#pragma once

#include <QWidget>

class ValueWidget : public QWidget {
  Q_OBJECT

 public:
  explicit ValueWidget(QWidget* parent = nullptr);

  virtual double Value() const = 0;
  virtual double Max() const = 0;

 protected:
  // Tells screen readers that the value has changed.
  void TellValue();
};
