#include "files/draw_paint.h"

#include <gmock/gmock.h>

#include "tests/paper_fakes.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// The picture of a 3 x 2 grid.
TextCanvas Drawn(const Paint& paint) {
  TextCanvas canvas(PictureSide(3), PictureSide(2));
  DrawPaint(paint, canvas);
  return canvas;
}

}  // namespace

TEST(DrawPaint, HolesAreLeftOutAndBarsReachBeyondTheirLines) {
  Paint paint(3, 2);
  paint[{1, 3}] = {};
  paint[{2, 1}].barRight = true;
  paint[{2, 2}].barBelow = true;
  paint[{2, 3}].circled = true;
  paint[{1, 1}].fill = ColourGrey;
  const TextCanvas canvas = Drawn(paint);
  EXPECT_EQ(canvas.Calls("box").size(), 6u) << "five cells, one filled";
  EXPECT_THAT(canvas.Calls("fill"),
              ElementsAre("fill 32,32 452,452", "fill 425,425 479,879",
                          "fill 425,845 899,879"));
  EXPECT_THAT(canvas.Calls("circle"),
              ElementsAre("circle 887,467 1277,857 line 15"));
  EXPECT_THAT(canvas.Calls("text"), IsEmpty());
}

TEST(DrawPaint, ANumberStandsClearOfCirclesAndBars) {
  Paint paint(3, 2);
  paint[{1, 1}].number = paint[{1, 2}].number = 12;
  paint[{1, 2}].circled = true;
  paint[{1, 2}].fill = ColourGrey;
  paint[{1, 1}].barRight = true;
  const TextCanvas canvas = Drawn(paint);
  EXPECT_THAT(canvas.Calls("fill"),
              ElementsAre("fill 452,32 872,452", "fill 477,33 635,162",
                          "fill 425,25 479,479"));
  EXPECT_THAT(canvas.Calls("text"),
              ElementsAre("text 50,40 6f 12", "text 484,40 6f 12"));
}

// A letter keeps its place; a longer text is as wide as the cell, and centred.
TEST(DrawPaint, TextsOfSeveralLettersFitTheirCells) {
  Paint paint(3, 2);
  paint[{1, 1}].number = 12;
  paint[{1, 1}].text = "Q";
  paint[{1, 2}].text = "HEART";
  paint[{2, 3}].text = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  const TextCanvas canvas = Drawn(paint);
  const auto texts = canvas.Calls("text");
  ASSERT_EQ(texts.size(), 4u);
  EXPECT_EQ(texts[0], "text 50,40 6f 12");
  EXPECT_EQ(texts[1], "text 101,92 17.3bf Q");
  int x = 0, y = 0;
  double points = 0;
  for (const auto& [text, letters, column] :
       {std::tuple{texts[2], 5, 1}, {texts[3], 26, 2}}) {
    ASSERT_EQ(std::sscanf(text.c_str(), "text %d,%d %lfbf", &x, &y, &points),
              3);
    const double width = letters * points * 12;
    EXPECT_GT(width, 300) << "no smaller than it has to be";
    EXPECT_LT(width, 400);
    EXPECT_NEAR(x + width / 2, column * 420 + 242, 2) << text;
  }
}
