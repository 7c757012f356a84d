#include "draw/qt_picture.h"

#include <gtest/gtest.h>

#include <random>

namespace {

CellPaint RandomCell(std::mt19937& random) {
  const auto oneIn = [&](unsigned n) { return random() % n == 0; };
  constexpr const char* kTexts[] = {"", "A", "Q", "\u00c9", "\u03a9", "HEART"};
  CellPaint cell;
  cell.outlined = !oneIn(5);
  if (!cell.outlined) return cell;
  if (oneIn(5)) cell.fill = ColourBlackSquare;
  if (oneIn(3)) cell.number = static_cast<int>(random() % 400);
  cell.text = kTexts[random() % std::size(kTexts)];
  cell.circled = oneIn(4);
  cell.barRight = oneIn(4);
  cell.barBelow = oneIn(4);
  return cell;
}

template <class Image>
QImage DrawnAnew(const Paint& paint, double scale) {
  Image image;
  image.SetScale(scale);
  image.Update(paint);
  return image.Image();
}

// Updates an image while cells change and holds it against one drawn anew;
// what changed must lie where the update says.
template <class Image>
void ChangeAtRandom(double scale) {
  std::mt19937 random(7);
  Paint paint(6, 4);
  Image image;
  image.SetScale(scale);
  image.Update(paint);
  for (int round = 0; round < 150; ++round) {
    for (unsigned changes = 1 + random() % 3; changes > 0; --changes)
      paint[{1 + static_cast<int>(random() % 4),
             1 + static_cast<int>(random() % 6)}] = RandomCell(random);
    QImage before = image.Image().copy();
    QPainter painter(&before);
    for (const QRect& box : image.Update(paint))
      painter.drawImage(box, image.Image(), box);
    painter.end();
    ASSERT_EQ(image.Image(), DrawnAnew<Image>(paint, scale)) << round;
    ASSERT_EQ(image.Image(), before) << "changed elsewhere, " << round;
  }
}

}  // namespace

TEST(GridImage, AnUpdateLooksAsIfDrawnAnew) {
  for (const double scale : {1.0, 1.5, 3.0}) {
    ChangeAtRandom<PictureImage>(scale);
    ChangeAtRandom<OverviewImage>(scale);
  }
}

TEST(GridImage, RepaintingTheSameCostsNothing) {
  Paint paint(5, 3);
  PictureImage image;
  EXPECT_EQ(image.Update(paint), QRegion(0, 0, 147, 91));
  EXPECT_TRUE(image.Update(paint).isEmpty());
  paint[{2, 2}].text = "A";
  EXPECT_EQ(image.Update(paint), QRegion(30, 30, 29, 29));
}

TEST(GridImage, BarsHolesAndCirclesCanBeSeen) {
  Paint paint(3, 3);
  paint[{1, 1}] = {};
  paint[{2, 2}].barRight = true;
  paint[{3, 3}].circled = true;
  const QImage drawn = DrawnAnew<PictureImage>(paint, 1);
  const auto dark = [&](int x, int y) { return qGray(drawn.pixel(x, y)) < 80; };
  EXPECT_FALSE(dark(2, 10)) << "the left line of the hole";
  EXPECT_TRUE(dark(30, 10)) << "the left line of its neighbour";
  EXPECT_TRUE(dark(57, 44) && dark(58, 44) && dark(59, 44)) << "the bar";
  EXPECT_FALSE(dark(57, 10)) << "a line without a bar";
  EXPECT_TRUE(dark(59, 72)) << "the left of the circle";
}
