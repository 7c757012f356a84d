#include "puzzle/numbering.h"

#include <algorithm>

#include "base/text.h"

namespace {

// Whether an entry goes on from a cell to the next one in a direction.
bool GoesOn(const Document& document, Pos p, Direction direction) {
  const Pos next = Along(p, direction, 1);
  if (!document.IsWhite(p) || !document.IsWhite(next)) return false;
  const Cell& cell = document.At(p);
  return !(direction == Direction::Across ? cell.barRight : cell.barBelow);
}

// The cells of the run that begins at a cell; none when none begins there.
std::vector<int> RunFrom(const Document& document, Pos p, Direction direction) {
  std::vector<int> cells;
  if (!document.IsWhite(p) ||
      GoesOn(document, Along(p, direction, -1), direction))
    return cells;
  cells.push_back(document.IndexOf(p));
  for (; GoesOn(document, p, direction); p = Along(p, direction, 1))
    cells.push_back(document.IndexOf(Along(p, direction, 1)));
  return cells;
}

}  // namespace

std::string Entry::Name() const {
  return std::to_string(number) + static_cast<char>(direction);
}

const Entry* Numbering::Find(std::string_view name) const {
  const std::string wanted = UpperCase(name);
  const auto found = std::ranges::find(entries, wanted, &Entry::Name);
  return found == entries.end() ? nullptr : &*found;
}

Numbering NumberEntries(const Document& document, int shortest) {
  const std::size_t count = document.cells.size();
  Numbering numbering;
  numbering.numbers.assign(count, 0);
  numbering.across.assign(count, -1);
  numbering.down.assign(count, -1);
  std::vector<Entry> downs;
  int last = 0;
  for (int cell = 0; cell < static_cast<int>(count); ++cell) {
    for (Direction direction : {Direction::Across, Direction::Down}) {
      std::vector<int> run = RunFrom(document, document.PosOf(cell), direction);
      if (static_cast<int>(run.size()) < shortest) continue;
      int& number = numbering.numbers[cell];
      if (number == 0) number = ++last;
      auto& entries =
          direction == Direction::Across ? numbering.entries : downs;
      entries.push_back({number, direction, std::move(run)});
    }
  }
  std::ranges::move(downs, std::back_inserter(numbering.entries));
  for (int i = 0; i < static_cast<int>(numbering.entries.size()); ++i) {
    const Entry& entry = numbering.entries[i];
    auto& through = entry.direction == Direction::Across ? numbering.across
                                                         : numbering.down;
    for (int cell : entry.cells) through[cell] = i;
  }
  return numbering;
}

ClueKey KeyOf(const Document& document, const Entry& entry) {
  return {entry.direction, document.PosOf(entry.cells.front())};
}

std::string AnswerOf(const Document& document, const Entry& entry) {
  std::string answer;
  for (int cell : entry.cells) {
    const std::string& letters = document.cells[cell].solution;
    answer += letters.empty() ? "?" : letters;
  }
  return answer;
}
