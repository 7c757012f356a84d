// The program's own progress bar: a bar from the left edge, as wide as
// Value / Max of the control, with a caption over it.
//
// Nothing is clamped: a Value above Max fills the control, and a Max of 0
// leaves the bar as it was.

#pragma once

#include <QColor>
#include <QString>

#include "controls/value_widget.h"

class ProgBar : public ValueWidget {
  Q_OBJECT
  Q_PROPERTY(double Max READ Max WRITE SetMax)
  Q_PROPERTY(double Value READ Value WRITE SetValue)
  Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
  Q_PROPERTY(QColor BarColor READ BarColor WRITE SetBarColor)
  Q_PROPERTY(Qt::Alignment Alignment READ Alignment WRITE SetAlignment)

 public:
  explicit ProgBar(QWidget* parent = nullptr);

  double Max() const override { return max_; }
  void SetMax(double max) { max_ = max; }
  double Value() const override { return value_; }
  void SetValue(double value);  // redraws at once
  QString Caption() const { return caption_; }
  void SetCaption(const QString& caption);
  QColor BarColor() const;  // of the palette's highlight unless set
  void SetBarColor(const QColor& colour);
  Qt::Alignment Alignment() const { return alignment_; }
  void SetAlignment(Qt::Alignment alignment);

  // Of the bar, in pixels.
  double BarWidth() const { return barWidth_; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void FitBar();

  double max_ = 100;
  double value_ = 0;
  double barWidth_ = 0;
  QString caption_;
  QColor barColour_;
  Qt::Alignment alignment_ = Qt::AlignLeft | Qt::AlignVCenter;
};
