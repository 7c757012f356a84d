#include "view/qt_print_preview.h"

#include <QDialogButtonBox>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

PreviewDialog::PreviewDialog(QWidget* parent, const Paper& paper,
                             const DrawPages& draw)
    : QDialog(parent), printer_(QPrinter::HighResolution) {
  setObjectName("PrintPreview");
  setWindowTitle("Print Preview");
  // A printer of its own resolution and paper would measure otherwise.
  printer_.setOutputFormat(QPrinter::PdfFormat);
  pages_ = new QPrintPreviewWidget(&printer_, this);
  pages_->setAccessibleName("Pages of the printed sheet");
  connect(
      pages_, &QPrintPreviewWidget::paintRequested, this,
      [paper, draw](QPrinter* printer) { PaintPages(*printer, paper, draw); });
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(pages_);
  AddButtons();
  resize(QSize(760, 900).boundedTo(screen()->availableSize() * 0.9));
  pages_->fitInView();
}

void PreviewDialog::AddButtons() {
  auto* buttons = new QDialogButtonBox(this);
  const auto add = [&](const char* name, const QString& caption, auto action) {
    QPushButton* button =
        buttons->addButton(caption, QDialogButtonBox::ActionRole);
    button->setObjectName(name);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, action);
  };
  add("zoomOut", "Zoom &Out", [this] { pages_->zoomOut(); });
  add("zoomIn", "Zoom &In", [this] { pages_->zoomIn(); });
  add("allPages", "&All Pages", [this] { pages_->setAllPagesViewMode(); });
  add("singlePage", "&Single Page", [this] {
    pages_->setSinglePageViewMode();
    pages_->fitInView();
  });
  add("print", "&Print", [this] { accept(); });
  connect(buttons->addButton(QDialogButtonBox::Close), &QPushButton::clicked,
          this, &QDialog::reject);
  layout()->addWidget(buttons);
}
