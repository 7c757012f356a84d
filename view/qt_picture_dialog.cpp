#include "view/qt_picture_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <cmath>

#include "controls/plain_text.h"
#include "draw/qt_picture_file.h"

namespace {

template <class Widget>
Widget* Named(Widget* widget, const char* name) {
  widget->setObjectName(name);
  return widget;
}

}  // namespace

PictureDialog::PictureDialog(QWidget* parent, int gridSize)
    : QDialog(parent),
      gridSize_(gridSize),
      png_(Named(new QRadioButton("P&NG, pixels"), "png")),
      svg_(Named(new QRadioButton("S&VG, sharp at every size"), "svg")),
      scale_(Named(new QDoubleSpinBox, "scale")),
      size_(Named(new QLabel, "size")),
      letters_(Named(new QCheckBox("With &letters"), "letters")) {
  setObjectName("PictureDialog");
  setWindowTitle("Save as Picture");
  png_->setChecked(true);
  letters_->setChecked(true);
  scale_->setDecimals(1);
  scale_->setSingleStep(0.5);
  scale_->setRange(kLeastPictureScale,
                   std::floor(LargestPictureScale(gridSize) * 10) / 10);
  scale_->setValue(1);
  scale_->setAccessibleName("Scale, 1 is as on the screen");
  connect(scale_, &QDoubleSpinBox::valueChanged, this, [this] { ShowSize(); });
  auto* size = new QHBoxLayout;
  size->addWidget(scale_);
  size->addWidget(size_);
  auto* layout = new QFormLayout(this);
  layout->addRow("Kind", png_);
  layout->addRow("", svg_);
  layout->addRow("&Scale", size);
  qobject_cast<QLabel*>(layout->labelForField(size))->setBuddy(scale_);
  layout->addRow("", letters_);
  auto* buttons =
      new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addRow(buttons);
  ShowSize();
}

void PictureDialog::ShowSize() {
  const int pixels = PicturePixels(gridSize_, scale_->value());
  size_->setText(Plain(QString("%1 x %1 pixels").arg(pixels)));
}

PictureChoice PictureDialog::Choice() const {
  return {svg_->isChecked() ? PictureKind::Svg : PictureKind::Png,
          scale_->value(), letters_->isChecked()};
}
