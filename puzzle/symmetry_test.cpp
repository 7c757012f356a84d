#include "puzzle/symmetry.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

TEST(Symmetry, ImagesOfACell) {
  const struct {
    Symmetry symmetry;
    std::vector<Pos> images;
  } kCases[] = {
      {Symmetry::HalfTurn, {{1, 2}, {5, 4}}},
      {Symmetry::QuarterTurn, {{1, 2}, {2, 5}, {5, 4}, {4, 1}}},
      {Symmetry::LeftRight, {{1, 2}, {1, 4}}},
      {Symmetry::UpDown, {{1, 2}, {5, 2}}},
      {Symmetry::Both, {{1, 2}, {1, 4}, {5, 2}, {5, 4}}},
      {Symmetry::Diagonal, {{1, 2}, {2, 1}}},
      {Symmetry::AntiDiagonal, {{1, 2}, {4, 5}}},
      {Symmetry::None, {{1, 2}}},
  };
  for (const auto& [symmetry, images] : kCases) {
    EXPECT_EQ(Images(symmetry, 5, 5, {1, 2}), images) << NameOf(symmetry).id;
    EXPECT_THAT(Images(symmetry, 5, 5, {3, 3}), SizeIs(1));
  }
  EXPECT_THAT(Images(Symmetry::HalfTurn, 4, 3, {1, 1}),
              ElementsAre(Pos{1, 1}, Pos{3, 4}));
  EXPECT_THAT(Images(Symmetry::QuarterTurn, 4, 3, {1, 1}),
              ElementsAre(Pos{1, 1}));
}

// Images belong together: each has the same ones.
TEST(Symmetry, ImagesAreMutual) {
  for (const SymmetryName& name : AllSymmetries())
    for (int row = 1; row <= 6; ++row)
      for (int col = 1; col <= 6; ++col)
        for (const Pos image : Images(name.symmetry, 6, 6, {row, col}))
          EXPECT_THAT(Images(name.symmetry, 6, 6, image),
                      testing::UnorderedElementsAreArray(
                          Images(name.symmetry, 6, 6, {row, col})));
}

TEST(Symmetry, CellsThatBreakIt) {
  Document document(3, 3);
  document.At({1, 1}).kind = Cell::Kind::Block;
  EXPECT_THAT(Asymmetries(document, Symmetry::HalfTurn),
              UnorderedElementsAre(Pos{1, 1}, Pos{3, 3}));
  EXPECT_THAT(Asymmetries(document, Symmetry::Diagonal), IsEmpty());
  EXPECT_THAT(Asymmetries(document, Symmetry::None), IsEmpty());
  document.At({3, 3}).kind = Cell::Kind::Void;
  EXPECT_THAT(Asymmetries(document, Symmetry::HalfTurn), SizeIs(2));
}

}  // namespace
