#include "controls/overview_window.h"

#include <QKeyEvent>
#include <QPainter>

OverviewForm::OverviewForm(Draw draw, QWidget* parent)
    : QWidget(parent, Qt::Window), draw_(std::move(draw)) {
  setObjectName("Form2");
  setWindowTitle(tr("Puzzle Overview"));
  setAccessibleName(tr("Puzzle in miniature"));
  resize(320, 320);
  setMinimumSize(120, 120);
}

void OverviewForm::paintEvent(QPaintEvent*) {
  const int side = std::min(width(), height());
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  const QImage& image = draw_(side, devicePixelRatioF());
  painter.drawImage(
      QRect((width() - side) / 2, (height() - side) / 2, side, side), image);
}

void OverviewForm::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}
