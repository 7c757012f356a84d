#include "view/qt_grid_view.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "view/qt_grid_accessible.h"

namespace {

int ShiftStateOf(Qt::KeyboardModifiers modifiers) {
  int state = kNoShift;
  if (modifiers & Qt::ShiftModifier) state |= kShift;
  if (modifiers & Qt::ControlModifier) state |= kCtrl;
  if (modifiers & Qt::AltModifier) state |= kAlt;
  return state;
}

}  // namespace

GridView::GridView(const State& state, QtPicture& picture, QWidget* parent)
    : QWidget(parent), state_(state), picture_(picture) {
  QAccessible::installFactory(MakeGridAccessible);
  setObjectName("Picture1");
  setAccessibleName(tr("Grid"));
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setContextMenuPolicy(Qt::PreventContextMenu);
}

void GridView::ShowPicture() {
  const int side = (state_.PictureSize + kTwipsPerPixel - 1) / kTwipsPerPixel;
  if (width() != side) resize(side, side);
  picture_.SetScale(devicePixelRatioF());
  const QRegion changed = picture_.Update();
  if (!changed.isEmpty()) update(changed);
}

QRect GridView::BoxOf(Pos cell) const {
  constexpr int kCell = CellSize / kTwipsPerPixel;
  return {(cell.col - 1) * kCell + 2, (cell.row - 1) * kCell + 2, kCell + 1,
          kCell + 1};
}

int GridView::Cells() const {
  return std::min(state_.paint.width, state_.GridSize);
}

Pos GridView::Cursor() const {
  const int n = std::max(1, Cells());
  return {std::clamp(cursor_.row, 1, n), std::clamp(cursor_.col, 1, n)};
}

QString GridView::Describe(Pos cell) const {
  const CellPaint& paint = state_.paint[cell];
  QString text = tr("row %1, column %2: ").arg(cell.row).arg(cell.col);
  if (state_.IsBlack(cell))
    text += tr("block");
  else if (!paint.text.empty())
    text += QString::fromStdString(paint.text);
  else
    text += tr("empty");
  if (paint.number > 0) text += tr(", number %1").arg(paint.number);
  return text;
}

void GridView::paintEvent(QPaintEvent* event) {
  ShowPicture();
  QPainter painter(this);
  painter.fillRect(event->rect(), Qt::white);
  const double scale = devicePixelRatioF();
  const QImage& image = picture_.Image();
  const QRect shown = event->rect();
  painter.drawImage(QRectF(shown), image,
                    QRectF(shown.x() * scale, shown.y() * scale,
                           shown.width() * scale, shown.height() * scale));
  if (!isEnabled() || !hasFocus() || !keyboardUsed_) return;
  painter.setPen(QPen(QColor(30, 110, 220), 2));
  painter.drawRect(BoxOf(Cursor()).adjusted(2, 2, -2, -2));
}

void GridView::mousePressEvent(QMouseEvent*) {
  keyboardUsed_ = false;
  update();
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  const Pos cell = CellAt(at.x() * kTwipsPerPixel, at.y() * kTwipsPerPixel);
  const int n = state_.GridSize;
  if (cell.row >= 1 && cell.col >= 1 && cell.row <= n && cell.col <= n)
    cursor_ = cell;
  emit Clicked({event->button() == Qt::LeftButton ? MouseButton::Left
                                                  : MouseButton::Other,
                ShiftStateOf(event->modifiers()), cell});
}

void GridView::MoveCursor(int down, int right) {
  cursor_ = Cursor();
  update(BoxOf(cursor_));
  if (keyboardUsed_) {
    cursor_.row += down;
    cursor_.col += right;
    cursor_ = Cursor();
  }
  keyboardUsed_ = true;
  update(BoxOf(cursor_));
  Speak(QAccessible::Focus);
  emit CursorMoved(BoxOf(cursor_));
}

void GridView::Speak(QAccessible::Event what) {
  QAccessibleEvent event(this, what);
  const Pos cell = Cursor();
  event.setChild((cell.row - 1) * Cells() + cell.col - 1);
  QAccessible::updateAccessibility(&event);
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const bool shift = event->modifiers() & Qt::ShiftModifier;
  const bool ctrl = event->modifiers() & Qt::ControlModifier;
  const auto key = [&](bool down, int shiftState) {
    MoveCursor(0, 0);
    emit Clicked(
        {down ? MouseButton::Other : MouseButton::Left, shiftState, cursor_});
    Speak(QAccessible::NameChanged);
  };
  constexpr int kFar = MaxGridSize;
  switch (event->key()) {
    case Qt::Key_Left:
      return MoveCursor(0, -1);
    case Qt::Key_Right:
      return MoveCursor(0, 1);
    case Qt::Key_Up:
      return MoveCursor(-1, 0);
    case Qt::Key_Down:
      return MoveCursor(1, 0);
    case Qt::Key_Home:
      return MoveCursor(ctrl ? -kFar : 0, -kFar);
    case Qt::Key_End:
      return MoveCursor(ctrl ? kFar : 0, kFar);
    case Qt::Key_Space:
      return key(false, kShift);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return key(shift, ctrl ? kCtrl : kNoShift);
    default:
      QWidget::keyPressEvent(event);
  }
}

void GridView::focusInEvent(QFocusEvent* event) {
  keyboardUsed_ = event->reason() == Qt::TabFocusReason ||
                  event->reason() == Qt::BacktabFocusReason || keyboardUsed_;
  update();
}

void GridView::focusOutEvent(QFocusEvent*) {
  update();
}
