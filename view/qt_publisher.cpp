#include "view/qt_publisher.h"

#include "draw/qt_picture_file.h"
#include "draw/qt_printer.h"
#include "view/qt_picture_dialog.h"
#include "view/qt_print_preview.h"

std::string QtPublisher::Pdf(std::string_view title, const DrawPages& draw) {
  return PagesAsPdf(DefaultPaper(), title, draw);
}

std::optional<PictureChoice> QtPublisher::AskPicture(int gridSize) {
  PictureDialog dialog(parent_, gridSize);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Choice();
}

std::string QtPublisher::PictureFile(const Paint& paint, std::string_view title,
                                     const PictureChoice& choice) {
  return ::PictureFile(paint, title, choice);
}

bool QtPublisher::Preview(const DrawPages& draw) {
  PreviewDialog dialog(parent_, DefaultPaper(), draw);
  return dialog.exec() == QDialog::Accepted;
}
