#include "files/capacity.h"

#include <algorithm>

#include "base/utf8.h"
#include "files/tidy.h"

namespace {

void FitSolution(std::string& solution, const Capacity& holds) {
  if (!holds.rebus) solution = FirstChar(solution);
  if (holds.letters && !solution.empty() && !holds.letters(solution))
    solution.clear();
}

void FitCell(Cell& cell, const Capacity& holds) {
  if (!holds.holes && cell.kind == Cell::Kind::Void)
    cell.kind = Cell::Kind::Block;
  if (!holds.bars) cell.barRight = cell.barBelow = false;
  FitSolution(cell.solution, holds);
  cell.circled = cell.circled && holds.circles;
  cell.given = cell.given && holds.givens;
}

void FitShades(Document& document, const Capacity& holds) {
  using Shades = Capacity::Shades;
  if (holds.shades == Shades::AnyColour) return;
  const bool none = holds.shades == Shades::None ||
                    (!holds.shadesBesideCircles &&
                     std::ranges::any_of(document.cells, &Cell::circled));
  for (Cell& cell : document.cells) {
    if (none || cell.kind != Cell::Kind::White)
      cell.shade.reset();
    else if (cell.shade)
      cell.shade = kPlainShade;
  }
}

// Only the clues of entries.
void FitClues(Document& document) {
  std::map<ClueKey, Clue> clues;
  for (const Entry& entry : NumberEntries(document).entries) {
    const auto clue = document.clues.find(KeyOf(document, entry));
    if (clue != document.clues.end()) clues.insert(*clue);
  }
  document.clues = std::move(clues);
}

void FitText(std::string& text) {
  std::string fitted;
  for (std::size_t i = 0; i < text.size();) {
    const Utf8Char c = CharAt(text, i);
    AppendChar(fitted, c.code > 0xFF ? '?' : c.code);
    i += c.size;
  }
  text = std::move(fitted);
}

}  // namespace

Document FitInto(const Document& document, const Capacity& holds) {
  Document fitted = document;
  Tidy(fitted);
  for (Cell& cell : fitted.cells) FitCell(cell, holds);
  FitShades(fitted, holds);
  if (!holds.ours) {
    const Document plain;
    FitClues(fitted);
    TakeAnswersFromGrid(fitted);
    fitted.symmetry = plain.symmetry;
    fitted.pins.clear();
    fitted.rejected.clear();
    fitted.ruleSet.clear();
    fitted.extras.clear();
    fitted.cellExtras.clear();
    fitted.clueExtras.clear();
  }
  if (!holds.clues) fitted.clues.clear();
  std::vector<std::string*> texts = {&fitted.author, &fitted.copyright,
                                     &fitted.notes};
  if (!holds.credits)
    for (std::string* text : texts) text->clear();
  if (!holds.unicode) {
    texts.push_back(&fitted.title);
    for (auto& [key, clue] : fitted.clues) texts.push_back(&clue.text);
    for (std::string* text : texts) FitText(*text);
  }
  return fitted;
}

std::string WrittenAnswer(const Document& document, const Entry& entry) {
  for (const int cell : entry.cells)
    if (document.cells[cell].solution.empty()) return "";
  return AnswerOf(document, entry);
}

void TakeAnswersFromGrid(Document& document) {
  for (const Entry& entry : NumberEntries(document).entries) {
    const auto clue = document.clues.find(KeyOf(document, entry));
    if (clue != document.clues.end())
      clue->second.answer = WrittenAnswer(document, entry);
  }
}
