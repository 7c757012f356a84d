#include "puzzle/symmetry.h"

#include <algorithm>

namespace {

constexpr SymmetryName kNames[] = {
    {Symmetry::HalfTurn, "half-turn", "half turn"},
    {Symmetry::QuarterTurn, "quarter-turn", "quarter turn"},
    {Symmetry::LeftRight, "left-right", "left-right"},
    {Symmetry::UpDown, "up-down", "up-down"},
    {Symmetry::Both, "both", "left-right and up-down"},
    {Symmetry::Diagonal, "diagonal", "diagonal"},
    {Symmetry::AntiDiagonal, "anti-diagonal", "other diagonal"},
    {Symmetry::None, "none", "none"},
};

bool NeedsSquare(Symmetry symmetry) {
  return symmetry == Symmetry::QuarterTurn || symmetry == Symmetry::Diagonal ||
         symmetry == Symmetry::AntiDiagonal;
}

}  // namespace

std::span<const SymmetryName> AllSymmetries() {
  return kNames;
}

const SymmetryName& NameOf(Symmetry symmetry) {
  return *std::ranges::find(kNames, symmetry, &SymmetryName::symmetry);
}

std::optional<Symmetry> FindSymmetry(std::string_view id) {
  const auto* row = std::ranges::find(kNames, id, &SymmetryName::id);
  if (row == std::end(kNames)) return std::nullopt;
  return row->symmetry;
}

bool Suits(Symmetry symmetry, int width, int height) {
  return width == height || !NeedsSquare(symmetry);
}

std::vector<Pos> Images(Symmetry symmetry, int width, int height, Pos cell) {
  std::vector<Pos> images = {cell};
  if (!Suits(symmetry, width, height)) return images;
  const auto add = [&](Pos image) {
    if (std::ranges::find(images, image) == images.end())
      images.push_back(image);
  };
  const auto [row, col] = cell;
  const int up = height + 1 - row, left = width + 1 - col;
  switch (symmetry) {
    case Symmetry::HalfTurn:
      add({up, left});
      break;
    case Symmetry::QuarterTurn:
      add({col, up});
      add({up, left});
      add({left, row});
      break;
    case Symmetry::LeftRight:
      add({row, left});
      break;
    case Symmetry::UpDown:
      add({up, col});
      break;
    case Symmetry::Both:
      add({row, left});
      add({up, col});
      add({up, left});
      break;
    case Symmetry::Diagonal:
      add({col, row});
      break;
    case Symmetry::AntiDiagonal:
      add({left, up});
      break;
    case Symmetry::None:
      break;
  }
  return images;
}

std::vector<Pos> Asymmetries(const Document& document, Symmetry symmetry) {
  std::vector<Pos> cells;
  for (int i = 0; i < static_cast<int>(document.cells.size()); ++i) {
    const Pos cell = document.PosOf(i);
    const auto images = Images(symmetry, document.width, document.height, cell);
    if (std::ranges::any_of(images, [&](Pos image) {
          return document.At(image).kind != document.At(cell).kind;
        }))
      cells.push_back(cell);
  }
  return cells;
}
