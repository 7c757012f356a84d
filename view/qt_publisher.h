// The desktop program's files and pages.

#pragma once

#include "files/publisher.h"

class QWidget;

class QtPublisher : public Publisher {
 public:
  // Its windows belong to a parent.
  explicit QtPublisher(QWidget* parent) : parent_(parent) {}

  std::string Pdf(std::string_view title, const DrawPages& draw) override;
  std::optional<PictureChoice> AskPicture(int gridSize) override;
  std::string PictureFile(const Paint& paint, std::string_view title,
                          const PictureChoice& choice) override;
  bool Preview(const DrawPages& draw) override;

 private:
  QWidget* parent_;
};
