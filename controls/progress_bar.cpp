#include "controls/progress_bar.h"

#include <QPainter>
#include <QPalette>

#include "controls/plain_text.h"

ProgBar::ProgBar(QWidget* parent) : ValueWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ProgBar::SetValue(double value) {
  value_ = value;
  FitBar();
  update();
  TellValue();
}

void ProgBar::SetCaption(const QString& caption) {
  if (caption == caption_) return;
  caption_ = caption;
  setAccessibleDescription(Plain(caption));
  update();
}

QColor ProgBar::BarColor() const {
  return barColour_.isValid() ? barColour_
                              : palette().color(QPalette::Highlight);
}

void ProgBar::SetBarColor(const QColor& colour) {
  barColour_ = colour;
  update();
}

void ProgBar::SetAlignment(Qt::Alignment alignment) {
  alignment_ = alignment;
  update();
}

QSize ProgBar::sizeHint() const {
  return {120, fontMetrics().height() + 4};
}

QSize ProgBar::minimumSizeHint() const {
  return {40, fontMetrics().height() + 2};
}

void ProgBar::FitBar() {
  if (max_ != 0) barWidth_ = width() * value_ / max_;
}

void ProgBar::resizeEvent(QResizeEvent*) {
  FitBar();
}

void ProgBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  const QRectF bar = QRectF(0, 0, barWidth_, height()) & QRectF(rect());
  painter.fillRect(bar, BarColor());
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
  // The caption is readable on the bar and beside it.
  const QRect text = rect().adjusted(5, 0, -5, 0);
  const auto write = [&](const QRectF& clip, QPalette::ColorRole role) {
    painter.setClipRect(clip);
    painter.setPen(palette().color(role));
    painter.drawText(text, static_cast<int>(alignment_), caption_);
  };
  write(bar, QPalette::HighlightedText);
  write(QRectF(rect()).adjusted(bar.width(), 0, 0, 0), QPalette::Text);
}
