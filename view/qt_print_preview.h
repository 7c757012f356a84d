// The pages of the printed sheet on the screen.

#pragma once

#include <QDialog>
#include <QPrinter>

#include "draw/qt_pages.h"

class QPrintPreviewWidget;

// Ends accepted when the pages are to be printed.
class PreviewDialog : public QDialog {
 public:
  PreviewDialog(QWidget* parent, const Paper& paper, const DrawPages& draw);

  const QPrintPreviewWidget& Pages() const { return *pages_; }

 private:
  void AddButtons();

  QPrinter printer_;  // only the measure of the pages
  QPrintPreviewWidget* pages_;
};
