#include "files/cell_reader.h"

#include "files/losses.h"

void SetBar(Document& document, Pos cell, Side side) {
  const Pos above = Along(cell, Direction::Down, -1);
  const Pos left = Along(cell, Direction::Across, -1);
  if (side == Side::Right) document.At(cell).barRight = true;
  if (side == Side::Bottom) document.At(cell).barBelow = true;
  if (side == Side::Top && document.Holds(above))
    document.At(above).barBelow = true;
  if (side == Side::Left && document.Holds(left))
    document.At(left).barRight = true;
}

void OddCells::TellIn(Reading& reading) const {
  for (const auto& [what, cells] : cells_)
    reading.passedOver.push_back(
        Counted(cells.size(), "cell " + what, "cells " + what,
                "at " + CellName(reading.document.PosOf(cells.front()))));
}
