// The four frames of the main window with their controls.

#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <array>

#include "controls/progress_bar.h"
#include "view/qt_binding.h"

// A label that shows as much of its text as fits, and all of it in its tool
// tip.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// The difficulty gauge (Shape1 in Shape2): a bar from easy to impossible.
class Gauge : public ValueWidget {
  Q_OBJECT

 public:
  explicit Gauge(QWidget* parent = nullptr);
  void SetWidth(int twips);
  int BarWidth() const { return barWidth_; }  // in pixels
  // How much of the track is filled, in pixels.
  double Value() const override;
  double Max() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int barWidth_ = 0;
};

// One column of frames.
class Frames4 : public QWidget {
  Q_OBJECT

 public:
  explicit Frames4(CommandBinding& binding, QWidget* parent = nullptr);

  QGroupBox *GridFrame, *DictFrame, *Blacksframe, *SolutionFrame;
  QLineEdit *Text3, *Text4, *Text2;
  std::array<QRadioButton*, 4> DictOpt;
  ElidedLabel* Label3;
  QLabel *Label9, *Label2, *Label1;
  ProgBar* WordProg;
  Gauge* gauge;
  QPushButton *Command1, *Command20;
  // What of the solution frame is greyed out while its frame is disabled;
  // all but Halt.
  QPushButton* Command8;

 private:
  QGroupBox* BuildGrid(CommandBinding& binding);
  QGroupBox* BuildDictionary(CommandBinding& binding);
  QGroupBox* BuildBlacks(CommandBinding& binding);
  QGroupBox* BuildSolution(CommandBinding& binding);
};
