// The overview window: the whole puzzle in miniature.
//
// Whoever owns the miniature draws it; the window says how large it is to be
// and shows it.

#pragma once

#include <QImage>
#include <QString>
#include <QWidget>
#include <functional>

class OverviewForm : public QWidget {
  Q_OBJECT

 public:
  // `draw` makes the miniature for a square of `side` pixels, each of which
  // is `scale` device pixels wide.
  using Draw = std::function<const QImage&(int side, double scale)>;

  explicit OverviewForm(Draw draw, QWidget* parent = nullptr);

  // The puzzle has changed.
  void Refresh() { update(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  Draw draw_;
};
