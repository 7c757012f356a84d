#include "draw/qt_canvas.h"

#include <cmath>

namespace {

QColor ColourOf(Colour colour) {
  return QColor(colour.red, colour.green, colour.blue);
}

}  // namespace

PainterCanvas::PainterCanvas(QPainter& painter, int width, int height,
                             std::function<void()> newPage)
    : SizedCanvas(width, height),
      painter_(painter),
      newPage_(std::move(newPage)),
      toPixels_(painter.device()->devType() == QInternal::Image) {}

QRect PainterCanvas::Pixels(const Box& box) const {
  const QTransform& transform = painter_.transform();
  const QPointF first = transform.map(QPointF(box.left, box.top));
  const QPointF last = transform.map(QPointF(box.right, box.bottom));
  const auto pixel = [](double x) { return static_cast<int>(std::lround(x)); };
  return QRect(QPoint(pixel(first.x()), pixel(first.y())),
               QPoint(pixel(last.x()) - 1, pixel(last.y()) - 1));
}

void PainterCanvas::Outline(const Box& box, Colour colour, int width) {
  if (!toPixels_) {
    painter_.setPen(QPen(ColourOf(colour), width, Qt::SolidLine, Qt::SquareCap,
                         Qt::MiterJoin));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRect(
        QRectF(QPointF(box.left, box.top), QPointF(box.right, box.bottom)));
    return;
  }
  const QRect r = Pixels(box);
  const int w = std::max(
      1, static_cast<int>(std::lround(width * painter_.transform().m11())));
  painter_.save();
  painter_.resetTransform();
  const int left = r.left() - w / 2, top = r.top() - w / 2;
  const QColor ink = ColourOf(colour);
  painter_.fillRect(left, top, r.width() + w, w, ink);
  painter_.fillRect(left, top + r.height(), r.width() + w, w, ink);
  painter_.fillRect(left, top, w, r.height() + w, ink);
  painter_.fillRect(left + r.width(), top, w, r.height() + w, ink);
  painter_.restore();
}

void PainterCanvas::Fill(const Box& box, Colour colour) {
  if (!toPixels_) {
    painter_.fillRect(
        QRectF(QPointF(box.left, box.top), QPointF(box.right, box.bottom)),
        ColourOf(colour));
    return;
  }
  painter_.save();
  const QRect pixels = Pixels(box);
  painter_.resetTransform();
  painter_.fillRect(pixels, ColourOf(colour));
  painter_.restore();
}

void PainterCanvas::Circle(const Box& box, Colour colour, int width) {
  painter_.setPen(QPen(ColourOf(colour), width));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawEllipse(
      QRectF(QPointF(box.left, box.top), QPointF(box.right, box.bottom)));
}

void PainterCanvas::Text(int x, int y, std::string_view text,
                         const TextStyle& style) {
  const FontBook::Entry& entry = fonts_.Of(style);
  painter_.setPen(Qt::black);
  painter_.setFont(entry.font);
  painter_.drawText(QPointF(x, y + entry.metrics.ascent()), FromText(text));
}
