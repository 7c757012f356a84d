#include "draw/qt_picture.h"

#include <QFontMetricsF>
#include <cmath>

namespace {

constexpr double kDotsPerInch = 96;
constexpr double kInchesPerMetre = 1 / 0.0254;

QColor ToQt(Colour colour) {
  return {colour.red, colour.green, colour.blue};
}

int LeftOf(int col) {
  return (col - 1) * CellSize;
}

bool IsLetter(char letter) {
  return letter != ' ' && letter != '\0' && letter != '.';
}

}  // namespace

QFont FixedPitchFont() {
  QFont font;
  font.setFamilies(
      {"Courier New", "Liberation Mono", "DejaVu Sans Mono", "monospace"});
  font.setStyleHint(QFont::Monospace);
  return font;
}

// GridImage

void GridImage::Reset(int n, double scale) {
  n_ = n;
  scale_ = scale;
  drawn_.Clear();
  const int side = std::max(1, Side());
  image_ = QImage(side, side, QImage::Format_RGB32);
  // Sizes in points come out right at every scale.
  const int dots = qRound(kDotsPerInch * scale_ * kInchesPerMetre);
  image_.setDotsPerMeterX(dots);
  image_.setDotsPerMeterY(dots);
  image_.fill(ToQt(ColourBackground));
  PrepareFonts();
}

QRegion GridImage::Update(const GridPaint& wanted) {
  // More single cells than this are reported as one area.
  constexpr int kMostRects = 64;
  QRegion changed;
  QRect all;
  int count = 0;
  QPainter painter;
  // Cells without an outline first: they share its lines with others.
  for (const bool outlined : {false, true}) {
    for (int i = 0; i < MaxGridSize * MaxGridSize; ++i) {
      const Pos p{i / MaxGridSize + 1, i % MaxGridSize + 1};
      if (wanted[p] == drawn_[p] || wanted[p].outlined != outlined) continue;
      drawn_[p] = wanted[p];
      if (!painter.isActive()) painter.begin(&image_);
      DrawCell(painter, p, wanted[p]);
      all |= Box(p);
      if (++count <= kMostRects) changed |= Box(p);
    }
  }
  return count > kMostRects ? QRegion(all) : changed;
}

int GridImage::Pixel(int twips) const {
  return static_cast<int>(std::lround(twips * PixelsPerTwip()));
}

QRect GridImage::Box(Pos p) const {
  const int line = std::max(1, qRound(scale_));
  const QPoint from(Pixel(LeftOf(p.col) + GridMargin),
                    Pixel(LeftOf(p.row) + GridMargin));
  const QPoint to(Pixel(LeftOf(p.col + 1) + GridMargin),
                  Pixel(LeftOf(p.row + 1) + GridMargin));
  return {from, to + QPoint(line - 1, line - 1)};
}

QRect GridImage::Inside(Pos p) const {
  const int line = std::max(1, qRound(scale_));
  return Box(p).adjusted(line, line, -line, -line);
}

void GridImage::DrawCell(QPainter& painter, Pos p, const CellPaint& cell) {
  painter.fillRect(Box(p),
                   ToQt(cell.outlined ? ColourBlackSquare : ColourBackground));
  painter.fillRect(Inside(p), ToQt(cell.fill));
  DrawTexts(painter, p, cell);
}

// PictureImage

int PictureImage::Side() const {
  return static_cast<int>(std::ceil((n_ * CellSize + 100) * PixelsPerTwip()));
}

void PictureImage::PrepareFonts() {
  numbers_.font = letters_.font = FixedPitchFont();
  numbers_.font.setPointSizeF(6);
  letters_.font.setPointSizeF(20);
  letters_.font.setBold(true);
  // The fonts that stand for Courier New have larger capitals, which would
  // run into the clue number and over the edge of the cell.  They are drawn
  // as high as Courier New's, about the same middle, and a little higher up,
  // for the tail of the Q.
  constexpr int kRaised = 13;         // twips
  constexpr double kCapital = 0.571;  // of the font size
  const QFontMetricsF full(letters_.font, &Image());
  const double size = 20 * kDotsPerInch / 72 * Scale();
  letters_.font.setPointSizeF(
      20 * std::min(1.0, kCapital * size / full.capHeight()));
  const QFontMetricsF drawn(letters_.font, &Image());
  letterShift_ = {
      qRound((full.horizontalAdvance('M') - drawn.horizontalAdvance('M')) / 2),
      qRound(full.ascent() - drawn.ascent()) - Pixel(kRaised)};
  numbers_.images.fill({});
  letters_.images.fill({});
}

const QImage& PictureImage::Glyphs::Of(char character, const QImage& device) {
  QImage& image = images[static_cast<unsigned char>(character)];
  if (!image.isNull()) return image;
  const QString text{QLatin1Char(character)};
  const QFontMetricsF metrics(font, &device);
  const QSizeF size(metrics.horizontalAdvance(text), metrics.height());
  image = QImage(size.toSize().expandedTo({1, 1}),
                 QImage::Format_ARGB32_Premultiplied);
  image.setDotsPerMeterX(device.dotsPerMeterX());
  image.setDotsPerMeterY(device.dotsPerMeterY());
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setFont(font);
  painter.drawText(QPointF(0, metrics.ascent()), text);
  return image;
}

void PictureImage::DrawTexts(QPainter& painter, Pos p, const CellPaint& cell) {
  const QRect inside = Inside(p);
  const auto draw = [&](Glyphs& glyphs, char character, int& left, int top) {
    const QImage& glyph = glyphs.Of(character, Image());
    const QRect place(QPoint(left, top), glyph.size());
    const QRect shown = place & inside;
    painter.drawImage(shown, glyph, shown.translated(-place.topLeft()));
    left += glyph.width();
  };
  if (cell.number > 0) {
    int left = Pixel(LeftOf(p.col) + 50);
    for (char digit : std::to_string(cell.number))
      draw(numbers_, digit, left, Pixel(LeftOf(p.row) + 40));
  }
  if (IsLetter(cell.letter)) {
    int left = Pixel(LeftOf(p.col) + 85) + letterShift_.x();
    draw(letters_, cell.letter, left,
         Pixel(LeftOf(p.row) + 60) + letterShift_.y());
  }
}

// OverviewImage

int OverviewImage::Side() const {
  return qRound(side_ * scale_);
}

double OverviewImage::PixelsPerTwip() const {
  return Side() / std::round((n_ - 11.5) * 430 + 5100);
}

void OverviewImage::DrawTexts(QPainter& painter, Pos p, const CellPaint& cell) {
  if (!IsLetter(cell.letter)) return;
  const QRect box = Box(p);
  const int arm = std::max(1, box.width() / 6);
  const int width = std::max(1, box.width() / 8);
  const QPoint centre = box.center();
  const QPoint half(width / 2, width / 2);
  const auto bar = [&](int right, int down) {
    painter.fillRect(QRect(centre - QPoint(right, down) - half,
                           QSize(2 * right + width, 2 * down + width)),
                     Qt::black);
  };
  bar(arm, 0);
  bar(0, arm);
}

// QtPicture

QtPicture::QtPicture() {
  GridLines(0);
}

void QtPicture::Clear() {
  paint_.Clear();
}

void QtPicture::GridLines(int n) {
  if (n != n_) redrawn_ = overviewRedrawn_ = true;
  n_ = n;
  for (int row = 1; row <= n; ++row)
    for (int col = 1; col <= n; ++col) paint_[{row, col}].outlined = true;
}

void QtPicture::FillCell(Pos cell, Colour colour) {
  if (GridPaint::Holds(cell)) paint_[cell] = {colour, true, 0, ' '};
}

void QtPicture::CellText(Pos cell, int number, char letter) {
  if (!GridPaint::Holds(cell)) return;
  paint_[cell].number = number;
  paint_[cell].letter = letter;
}

void QtPicture::SetScale(double scale) {
  if (scale == image_.Scale()) return;
  image_.Reset(n_, scale);
  redrawn_ = true;
}

QRegion QtPicture::Update() {
  if (redrawn_) image_.Reset(n_, image_.Scale());
  const QRegion changed = image_.Update(paint_);
  const double scale = image_.Scale();
  QRegion logical;
  if (redrawn_) {
    const int side = static_cast<int>(std::ceil(Image().width() / scale));
    logical = QRect(0, 0, side, side);
  } else {
    for (const QRect& box : changed) {
      logical |= QRectF(box.x() / scale, box.y() / scale, box.width() / scale,
                        box.height() / scale)
                     .toAlignedRect();
    }
  }
  redrawn_ = false;
  return logical;
}

void QtPicture::SetOverview(int side, double scale) {
  overview_.SetSide(side);
  overview_.Reset(n_, scale);
  overviewRedrawn_ = true;
}

bool QtPicture::UpdateOverview() {
  if (overviewRedrawn_) overview_.Reset(n_, overview_.Scale());
  const bool changed = !overview_.Update(paint_).isEmpty();
  const bool result = changed || overviewRedrawn_;
  overviewRedrawn_ = false;
  return result;
}
