#include "view/qt_frames.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QPainter>
#include <algorithm>

#include "controls/plain_text.h"
#include "draw/qt_picture.h"

namespace {

constexpr int kGaugeTrack = 45 * 30 / kTwipsPerPixel;  // its widest bar

QGroupBox* Frame(const char* name, const QString& caption) {
  auto* frame = new QGroupBox(Plain(caption));
  frame->setObjectName(name);
  return frame;
}

QGridLayout* LayoutOf(QGroupBox* frame) {
  auto* layout = new QGridLayout(frame);
  layout->setContentsMargins(7, 5, 7, 7);
  layout->setSpacing(5);
  layout->setColumnStretch(0, 1);
  layout->setColumnStretch(1, 1);
  return layout;
}

QLineEdit* Edit(const char* name, const QString& spokenName, int width = 0) {
  auto* edit = new QLineEdit;
  edit->setObjectName(name);
  edit->setAccessibleName(Plain(spokenName));
  if (width > 0) edit->setMaximumWidth(width);
  edit->setMinimumWidth(40);
  return edit;
}

template <class Label = QLabel>
Label* NewLabel(const char* name, const QString& text = "") {
  auto* label = new Label(Plain(text));
  label->setObjectName(name);
  return label;
}

// Adds a button if the table has its row.
QPushButton* Add(QGridLayout* layout, QPushButton* button, int row, int column,
                 int columns = 1) {
  if (button) {
    button->setMinimumWidth(40);
    layout->addWidget(button, row, column, 1, columns);
  }
  return button;
}

}  // namespace

// ElidedLabel

QSize ElidedLabel::minimumSizeHint() const {
  return {40, fontMetrics().height()};
}

QSize ElidedLabel::sizeHint() const {
  return minimumSizeHint();
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(
      palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled,
                      QPalette::WindowText));
  painter.drawText(rect(), static_cast<int>(alignment()),
                   fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
}

// Gauge

Gauge::Gauge(QWidget* parent) : ValueWidget(parent) {
  setObjectName("Shape1");
  setFixedSize(kGaugeTrack + 2, 12);
}

void Gauge::SetWidth(int twips) {
  const int width = twips / kTwipsPerPixel;
  if (width == barWidth_) return;
  barWidth_ = width;
  update();
  TellValue();
}

double Gauge::Value() const {
  return std::min(barWidth_, kGaugeTrack);
}

double Gauge::Max() const {
  return kGaugeTrack;
}

void Gauge::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  // From green to red along the track.
  const int shown = static_cast<int>(Value());
  const int hue = 120 - 120 * shown / kGaugeTrack;
  painter.fillRect(1, 1, shown, height() - 2, QColor::fromHsv(hue, 170, 200));
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

// Frames4

Frames4::Frames4(CommandBinding& binding, QWidget* parent) : QWidget(parent) {
  setFixedWidth(146);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(8);
  layout->addWidget(GridFrame = BuildGrid(binding));
  layout->addWidget(DictFrame = BuildDictionary(binding));
  layout->addWidget(Blacksframe = BuildBlacks(binding));
  layout->addWidget(SolutionFrame = BuildSolution(binding));
  layout->addStretch();
}

QGroupBox* Frames4::BuildGrid(CommandBinding& binding) {
  auto* frame = Frame("GridFrame", "GRID");
  auto* layout = LayoutOf(frame);
  auto* size = NewLabel("Label5", "&Size");
  layout->addWidget(size, 0, 0);
  layout->addWidget(Text3 = Edit("Text3", tr("Size"), 60), 0, 1);
  size->setBuddy(Text3);
  Add(layout, binding.Button("Command2", 'D'), 1, 0);
  Add(layout, binding.Button("Command22", 'C'), 1, 1);
  Add(layout, binding.Button("Command7", 'P'), 2, 0, 2);
  return frame;
}

QGroupBox* Frames4::BuildDictionary(CommandBinding& binding) {
  auto* frame = Frame("DictFrame", "DICTIONARY");
  auto* layout = LayoutOf(frame);
  constexpr const char* kOptions[] = {"DictOpt(0)", "DictOpt(1)", "DictOpt(2)",
                                      "DictOpt(3)"};
  auto* options = new QVBoxLayout;
  options->setSpacing(1);
  for (int i = 0; i < 4; ++i) {
    DictOpt[i] = binding.Option(kOptions[i], "123u"[i]);
    options->addWidget(DictOpt[i]);
  }
  layout->addLayout(options, 0, 0, 1, 2);
  layout->addWidget(Label3 = NewLabel<ElidedLabel>("Label3"), 2, 0, 1, 2);
  layout->addWidget(Label9 = NewLabel("Label9"), 3, 0, 1, 2);
  auto* word = NewLabel("WordLabel", tr("&Word"));
  auto* line = new QHBoxLayout;
  line->addWidget(word);
  line->addWidget(Text4 = Edit("Text4", tr("Word to look up")));
  word->setBuddy(Text4);
  layout->addLayout(line, 4, 0, 1, 2);
  Add(layout, binding.Button("Command6", 'F'), 5, 0, 2);
  Add(layout, binding.Button("Command4", 'M'), 6, 0, 2);
  return frame;
}

QGroupBox* Frames4::BuildBlacks(CommandBinding& binding) {
  auto* frame = Frame("Blacksframe", "BLACK SQUARES");
  auto* layout = LayoutOf(frame);
  Command1 = Add(layout, binding.Button("Command1", 'I'), 0, 0);
  Add(layout, binding.Button("Command19", 'h'), 0, 1);
  auto* count = NewLabel("Label4", tr("&Number of blacks"));
  layout->addWidget(count, 1, 0, 1, 2);
  Text2 = Edit("Text2", tr("Number of black squares"), 60);
  Text2->setToolTip(
      tr("Black squares in the grid. Type a number before inserting to say "
         "how many there shall be"));
  count->setBuddy(Text2);
  layout->addWidget(Text2, 2, 0);
  layout->addWidget(Label2 = NewLabel("Label2"), 2, 1);
  return frame;
}

QGroupBox* Frames4::BuildSolution(CommandBinding& binding) {
  auto* frame = Frame("SolutionFrame", "SOLUTION");
  auto* layout = LayoutOf(frame);
  Command20 = Add(layout, binding.Button("Command20", 'o'), 0, 0);
  Command8 = Add(layout, binding.Button("Command8", 'a'), 0, 1);
  Add(layout, binding.Button("Command18", 'r'), 1, 0, 2);
  WordProg = new ProgBar;
  WordProg->setObjectName("WordProg");
  WordProg->setAccessibleName(tr("Progress of the fill"));
  layout->addWidget(WordProg, 2, 0, 1, 2);
  layout->addWidget(Label1 = NewLabel("Label1"), 3, 0, 1, 2);
  auto* scale = NewLabel("Label6", "Easy        Impossible");
  QFont small = scale->font();
  small.setPointSizeF(small.pointSizeF() * 0.8);
  scale->setFont(small);
  layout->addWidget(scale, 4, 0, 1, 2, Qt::AlignHCenter);
  layout->addWidget(gauge = new Gauge, 5, 0, 1, 2, Qt::AlignHCenter);
  gauge->setToolTip(tr("How hard the grid is to fill"));
  gauge->setAccessibleName(tr("Difficulty"));
  return frame;
}
