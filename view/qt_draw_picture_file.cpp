#include "view/qt_draw_picture_file.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <cmath>

#include "files/canvas_picture.h"
#include "view/qt_draw_canvas.h"
#include "view/qt_draw_svg.h"

namespace {

constexpr double kTwipsPerPixel = 15;
constexpr int kMostPixels = 10000;
constexpr double kInchesPerMeter = 1 / 0.0254;

QImage Draw(const State& state, const PictureChoice& choice) {
  const int side = PicturePixels(state.GridSize, choice.scale);
  QImage image(side, side, QImage::Format_RGB32);
  image.fill(Qt::white);
  image.setDotsPerMeterX(std::lround(96 * choice.scale * kInchesPerMeter));
  image.setDotsPerMeterY(image.dotsPerMeterX());
  QPainter painter(&image);
  painter.setRenderHint(QPainter::TextAntialiasing);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(choice.scale / kTwipsPerPixel, choice.scale / kTwipsPerPixel);
  const int twips = PictureSide(state.GridSize);
  PainterCanvas canvas(painter, twips, twips, [] {});
  CanvasPicture picture(canvas);
  DrawPuzzle(state, picture, choice.letters);
  return image;
}

std::string Vectors(const State& state, const PictureChoice& choice) {
  const int twips = PictureSide(state.GridSize);
  SvgCanvas canvas(twips, twips);
  CanvasPicture picture(canvas);
  DrawPuzzle(state, picture, choice.letters);
  SvgPage page;
  page.width = page.height = twips;
  page.shownScale = choice.scale;
  return canvas.File(page, state.Text5);
}

}  // namespace

int PicturePixels(int gridSize, double scale) {
  // The small addition keeps a product that is whole from falling below.
  return static_cast<int>(PictureSide(gridSize) * scale / kTwipsPerPixel +
                          1e-6);
}

double LargestPictureScale(int gridSize) {
  return kMostPixels * kTwipsPerPixel / PictureSide(gridSize);
}

std::string PictureFile(const State& state, const PictureChoice& choice) {
  if (choice.kind == PictureKind::Svg) return Vectors(state, choice);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  Draw(state, choice)
      .save(&buffer, choice.kind == PictureKind::Bmp ? "BMP" : "PNG");
  return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}
