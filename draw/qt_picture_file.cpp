#include "draw/qt_picture_file.h"

#include <QBuffer>
#include <QImage>
#include <cmath>

#include "draw/qt_picture.h"
#include "draw/qt_svg.h"
#include "files/draw_paint.h"

namespace {

constexpr int kMostPixels = 10000;

// The very pixels of the window's grid picture.
QImage Draw(const Paint& paint, double scale) {
  PictureImage picture;
  picture.SetScale(scale);
  picture.Update(paint);
  return picture.Image();
}

std::string Vectors(const Paint& paint, std::string_view title, double scale) {
  SvgPage page;
  page.width = PictureSide(paint.width);
  page.height = PictureSide(paint.height);
  page.shownScale = scale;
  SvgCanvas canvas(page.width, page.height);
  DrawPaint(paint, canvas);
  return canvas.File(page, title);
}

}  // namespace

int PicturePixels(int gridSize, double scale) {
  return static_cast<int>(
      std::ceil(PictureSide(gridSize) * (scale / kTwipsPerPixel)));
}

double LargestPictureScale(int gridSize) {
  return double(kMostPixels) * kTwipsPerPixel / PictureSide(gridSize);
}

std::string PictureFile(const Paint& paint, std::string_view title,
                        const PictureChoice& choice) {
  if (choice.kind == PictureKind::Svg)
    return Vectors(paint, title, choice.scale);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  Draw(paint, choice.scale)
      .save(&buffer, choice.kind == PictureKind::Bmp ? "BMP" : "PNG");
  return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}
