#include "puzzle/numbering.h"

#include <algorithm>

#include "base/text.h"

namespace {

// The entries of a row or column; they have no numbers yet.
void AddEntriesOfLine(const Document& document, Pos first, Direction direction,
                      int shortest, std::vector<Entry>& entries) {
  const bool across = direction == Direction::Across;
  const auto at = [&](int k) { return Along(first, direction, k - 1); };
  const std::vector<Run> runs = FindRuns(
      across ? document.width : document.height,
      [&](int k) { return document.IsWhite(at(k)); },
      [&](int k) {
        const Cell& cell = document.At(at(k));
        return across ? cell.barRight : cell.barBelow;
      });
  for (const Run& run : runs) {
    if (run.length < shortest) continue;
    Entry& entry = entries.emplace_back();
    entry.direction = direction;
    for (int k = run.start; k < run.start + run.length; ++k)
      entry.cells.push_back(document.IndexOf(at(k)));
  }
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
  Numbering numbering;
  auto& [numbers, entries, across, down] = numbering;
  for (int row = 1; row <= document.height; ++row)
    AddEntriesOfLine(document, {row, 1}, Direction::Across, shortest, entries);
  for (int col = 1; col <= document.width; ++col)
    AddEntriesOfLine(document, {1, col}, Direction::Down, shortest, entries);

  const std::size_t count = document.cells.size();
  numbers.assign(count, 0);
  for (const Entry& entry : entries) numbers[entry.cells.front()] = 1;
  int last = 0;
  for (int& number : numbers)
    if (number != 0) number = ++last;
  for (Entry& entry : entries) entry.number = numbers[entry.cells.front()];
  std::ranges::sort(entries, {}, [](const Entry& entry) {
    return std::pair(entry.direction, entry.number);
  });

  across.assign(count, -1);
  down.assign(count, -1);
  for (int i = 0; i < static_cast<int>(entries.size()); ++i) {
    auto& through = entries[i].direction == Direction::Across ? across : down;
    for (int cell : entries[i].cells) through[cell] = i;
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
