#include "puzzle/statistics.h"

#include "puzzle/numbering.h"

namespace {

void CountCell(const Document& document, int index, Statistics& counts) {
  const Cell& cell = document.cells[index];
  const Pos p = document.PosOf(index);
  counts.blocks += cell.kind == Cell::Kind::Block;
  counts.holes += cell.kind == Cell::Kind::Void;
  counts.shades += cell.shade.has_value();
  if (cell.kind != Cell::Kind::White) return;
  ++counts.whites;
  counts.bars +=
      cell.barRight && document.IsWhite(Along(p, Direction::Across, 1));
  counts.bars +=
      cell.barBelow && document.IsWhite(Along(p, Direction::Down, 1));
  counts.circles += cell.circled;
  counts.givens += cell.given;
  if (cell.solution.empty()) return;
  ++counts.filled;
  ++counts.letters[cell.solution];
}

}  // namespace

Statistics CountStatistics(const Document& document) {
  Statistics counts;
  for (int i = 0; i < static_cast<int>(document.cells.size()); ++i)
    CountCell(document, i, counts);
  int cells = 0;
  for (const Entry& entry : NumberEntries(document).entries) {
    ++counts.words;
    ++counts.lengths[entry.Length()];
    cells += entry.Length();
    const auto clue = document.clues.find(KeyOf(document, entry));
    counts.clues += clue != document.clues.end() && !clue->second.text.empty();
  }
  if (counts.words > 0)
    counts.meanLength = static_cast<double>(cells) / counts.words;
  return counts;
}
