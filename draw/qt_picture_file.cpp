#include "draw/qt_picture_file.h"

#include <QBuffer>
#include <QImage>
#include <cmath>

#include "draw/qt_picture.h"
#include "draw/qt_svg.h"
#include "files/canvas_picture.h"

namespace {

constexpr int kMostPixels = 10000;

// The very pixels of the window's grid picture.
QImage Draw(const State& state, const PictureChoice& choice) {
  QtPicture picture;
  picture.SetScale(choice.scale);
  DrawPuzzle(state, picture, choice.letters);
  picture.Update();
  return picture.Image();
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
  return static_cast<int>(
      std::ceil(PictureSide(gridSize) * (scale / kTwipsPerPixel)));
}

double LargestPictureScale(int gridSize) {
  return double(kMostPixels) * kTwipsPerPixel / PictureSide(gridSize);
}

std::string PictureFile(const State& state, const PictureChoice& choice) {
  if (choice.kind == PictureKind::Svg) return Vectors(state, choice);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  Draw(state, choice)
      .save(&buffer, choice.kind == PictureKind::Bmp ? "BMP" : "PNG");
  return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}
