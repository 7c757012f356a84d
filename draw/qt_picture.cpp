#include "draw/qt_picture.h"

#include <QFontMetricsF>
#include <cmath>

namespace {

constexpr double kDotsPerInch = 96;
constexpr double kInchesPerMetre = 1 / 0.0254;
constexpr int kBarReach = 20;  // twips, of a bar beyond its line

QColor ToQt(Colour colour) {
  return {colour.red, colour.green, colour.blue};
}

int LeftOf(int col) {
  return (col - 1) * CellSize;
}

// Whether a cell's look reaches into its neighbours, with which it shares
// lines: they are drawn again with it.
bool ReachesOut(const CellPaint& cell) {
  return !cell.outlined || cell.barRight || cell.barBelow;
}

struct Cells {
  Pos first{1, 1}, last{MaxGridSize, MaxGridSize};
};

// A cell and its neighbours.
Cells Around(Pos p) {
  return {{std::max(1, p.row - 1), std::max(1, p.col - 1)},
          {std::min(MaxGridSize, p.row + 1), std::min(MaxGridSize, p.col + 1)}};
}

template <class Visit>
void ForEachCell(const Cells& cells, Visit visit) {
  for (int row = cells.first.row; row <= cells.last.row; ++row)
    for (int col = cells.first.col; col <= cells.last.col; ++col)
      visit(Pos{row, col});
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

void GridImage::SetScale(double scale) {
  if (scale == scale_) return;
  scale_ = scale;
  StartAnew();
}

void GridImage::Reset(int columns, int rows) {
  drawn_ = Paint();
  drawn_.width = columns;
  drawn_.height = rows;
  image_ = QImage(Size().expandedTo({1, 1}), QImage::Format_RGB32);
  // Sizes in points come out right at every scale.
  const int dots = qRound(kDotsPerInch * scale_ * kInchesPerMetre);
  image_.setDotsPerMeterX(dots);
  image_.setDotsPerMeterY(dots);
  image_.fill(ToQt(ColourBackground));
  PrepareFonts();
}

QRegion GridImage::Update(const Paint& wanted) {
  const bool anew = image_.isNull() || wanted.width != drawn_.width ||
                    wanted.height != drawn_.height;
  if (anew) Reset(wanted.width, wanted.height);
  const std::vector<Pos> changed = Changed(wanted);
  drawn_ = wanted;
  const QRegion region = DrawCells(changed);
  return anew ? QRegion(image_.rect()) : region;
}

std::vector<Pos> GridImage::Changed(const Paint& wanted) const {
  std::array<std::array<bool, MaxGridSize + 1>, MaxGridSize + 1> marked{};
  ForEachCell({}, [&](Pos p) {
    if (wanted[p] == drawn_[p]) return;
    const bool alone = !ReachesOut(wanted[p]) && !ReachesOut(drawn_[p]);
    ForEachCell(alone ? Cells{p, p} : Around(p),
                [&](Pos near) { marked[near.row][near.col] = true; });
  });
  std::vector<Pos> changed;
  ForEachCell({}, [&](Pos p) {
    if (marked[p.row][p.col]) changed.push_back(p);
  });
  return changed;
}

QRegion GridImage::DrawCells(const std::vector<Pos>& cells) {
  // More single cells than this are reported as one area.
  constexpr std::size_t kMostRects = 64;
  if (cells.empty()) return {};
  QRegion changed;
  QRect all;
  QPainter painter(&image_);
  // Cells without an outline first: they share its lines with others.
  for (const bool outlined : {false, true})
    for (const Pos p : cells)
      if (drawn_[p].outlined == outlined) DrawCell(painter, p, drawn_[p]);
  ForEachCell({{1, 1}, {Rows(), Columns()}},
              [&](Pos p) { DrawBars(painter, p, drawn_[p]); });
  for (const Pos p : cells) {
    all |= Box(p);
    if (cells.size() <= kMostRects) changed |= Box(p);
  }
  return cells.size() > kMostRects ? QRegion(all) : changed;
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

void GridImage::DrawOutline(QPainter& painter, Pos p) {
  for (const QRect& side : QRegion(Box(p)) - QRegion(Inside(p)))
    painter.fillRect(side, ToQt(ColourBlackSquare));
}

void GridImage::DrawCell(QPainter& painter, Pos p, const CellPaint& cell) {
  if (cell.outlined) {
    DrawOutline(painter, p);
  } else {
    painter.fillRect(Box(p), ToQt(ColourBackground));
    ForEachCell(Around(p), [&](Pos near) {
      if (drawn_[near].outlined) DrawOutline(painter, near);
    });
  }
  painter.fillRect(Inside(p), ToQt(cell.fill));
  DrawTexts(painter, p, cell);
}

void GridImage::DrawBars(QPainter& painter, Pos p, const CellPaint& cell) {
  if (!cell.barRight && !cell.barBelow) return;
  const int line = std::max(1, qRound(scale_));
  const int reach = std::max(1, Pixel(kBarReach));
  const QRect grid = Box({1, 1}) | Box({Rows(), Columns()});
  const auto draw = [&](const QRect& edge) {
    painter.fillRect(edge.adjusted(-reach, -reach, reach, reach) & grid,
                     ToQt(ColourBlackSquare));
  };
  QRect right = Box(p), below = right;
  right.setLeft(right.right() - line + 1);
  below.setTop(below.bottom() - line + 1);
  if (cell.barRight) draw(right);
  if (cell.barBelow) draw(below);
}

// PictureImage

QSize PictureImage::Size() const {
  const auto side = [this](int cells) {
    return static_cast<int>(std::ceil(PictureSide(cells) * PixelsPerTwip()));
  };
  return {side(Columns()), side(Rows())};
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
  if (cell.circled) DrawCircle(painter, inside);
  if (cell.number > 0) {
    int left = Pixel(LeftOf(p.col) + 50);
    for (char digit : std::to_string(cell.number))
      draw(numbers_, digit, left, Pixel(LeftOf(p.row) + 40));
  }
  const QString text = QString::fromStdString(cell.text);
  if (text.isEmpty()) return;
  const int top = Pixel(LeftOf(p.row) + 60) + letterShift_.y();
  if (text.size() == 1 && text[0].unicode() < letters_.images.size()) {
    int left = Pixel(LeftOf(p.col) + 85) + letterShift_.x();
    draw(letters_, text[0].toLatin1(), left, top);
  } else {
    DrawFitted(painter, inside, top, text);
  }
}

void PictureImage::DrawCircle(QPainter& painter, const QRect& inside) {
  const double width = std::max(1.0, Scale());
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(ToQt(ColourBlackSquare), width));
  painter.drawEllipse(
      QRectF(inside).adjusted(width / 2, width / 2, -width / 2, -width / 2));
  painter.restore();
}

void PictureImage::DrawFitted(QPainter& painter, const QRect& inside, int top,
                              const QString& text) {
  constexpr int kInset = 20;  // twips, left and right
  const QFontMetricsF full(letters_.font, &Image());
  const double room = inside.width() - 2 * Pixel(kInset);
  QFont font = letters_.font;
  font.setPointSizeF(std::max(
      1.0,
      font.pointSizeF() * std::min(1.0, room / full.horizontalAdvance(text))));
  const QFontMetricsF fitted(font, &Image());
  const double middle = top + full.ascent() - full.capHeight() / 2;
  painter.save();
  painter.setClipRect(inside);
  painter.setFont(font);
  painter.setPen(Qt::black);
  painter.drawText(
      QPointF(
          inside.left() + (inside.width() - fitted.horizontalAdvance(text)) / 2,
          middle + fitted.capHeight() / 2),
      text);
  painter.restore();
}

// OverviewImage

void OverviewImage::SetSide(int side) {
  if (side == side_) return;
  side_ = side;
  StartAnew();
}

QSize OverviewImage::Size() const {
  const int side = qRound(side_ * Scale());
  return {side, side};
}

double OverviewImage::PixelsPerTwip() const {
  const int n = std::max(Columns(), Rows());
  return Size().width() / std::round((n - 11.5) * 430 + 5100);
}

void OverviewImage::DrawTexts(QPainter& painter, Pos p, const CellPaint& cell) {
  if (cell.text.empty()) return;
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

QRegion QtPicture::Update() {
  const double scale = image_.Scale();
  QRegion logical;
  for (const QRect& box : image_.Update(paint_)) {
    logical |= QRectF(box.x() / scale, box.y() / scale, box.width() / scale,
                      box.height() / scale)
                   .toAlignedRect();
  }
  return logical;
}

const QImage& QtPicture::Overview(int side, double scale) {
  overview_.SetSide(side);
  overview_.SetScale(scale);
  overview_.Update(paint_);
  return overview_.Image();
}
