#include "files/clue_reader.h"

#include <algorithm>

#include "files/capacity.h"
#include "files/losses.h"

namespace {

std::string NameOf(const ListedClue& clue) {
  return clue.label + static_cast<char>(clue.direction);
}

}  // namespace

std::string WithEnumeration(const std::string& text,
                            const std::string& enumeration) {
  const std::string end = "(" + enumeration + ")";
  if (text.ends_with(end)) return text;
  return text.empty() ? end : text + " " + end;
}

ClueReader::ClueReader(const Document& document,
                       std::vector<std::string> labels)
    : numbering_(NumberEntries(document)), labels_(std::move(labels)) {
  for (const Entry& entry : numbering_.entries)
    entries_[KeyOf(document, entry)] = &entry;
  for (std::size_t i = 0; i < labels_.size(); ++i)
    if (!labels_[i].empty())
      places_.emplace(labels_[i], document.PosOf(static_cast<int>(i)));
}

// Across entries come in reading order, and so do Down entries.
std::optional<ClueKey> ClueReader::NextInOrder(Direction direction) {
  int left = taken_[direction]++;
  for (const auto& [key, entry] : entries_)
    if (key.direction == direction && left-- == 0) return key;
  return std::nullopt;
}

std::optional<ClueKey> ClueReader::KeyOfLabel(const ListedClue& clue) const {
  std::optional<ClueKey> found;
  const auto [begin, end] = places_.equal_range(clue.label);
  for (auto place = begin; place != end; ++place) {
    const ClueKey key{clue.direction, place->second};
    if (entries_.contains(key)) return key;
    if (!found) found = key;
  }
  if (!places_.empty()) return found;
  for (const auto& [key, entry] : entries_)
    if (key.direction == clue.direction &&
        std::to_string(entry->number) == clue.label)
      return key;
  return std::nullopt;
}

std::optional<ClueKey> ClueReader::KeyFor(const ListedClue& clue) {
  if (clue.label.empty() && clue.cells.empty())
    return NextInOrder(clue.direction);
  const auto byLabel = KeyOfLabel(clue);
  if (clue.cells.empty() || (byLabel && entries_.contains(*byLabel)))
    return byLabel;
  const Pos first = clue.cells.front();
  return ClueKey{clue.direction,
                 {first.row + 1 - firstIndex_, first.col + 1 - firstIndex_}};
}

void ClueReader::Place(const ListedClue& clue, Reading& reading) {
  Document& document = reading.document;
  const auto key = KeyFor(clue);
  const std::string name = "clue " + NameOf(clue) + ", " + clue.text;
  if (!key || !document.Holds(key->first)) {
    reading.passedOver.push_back("the " + name + ", has no place in the grid");
    return;
  }
  const auto entry = entries_.find(*key);
  const bool isEntry = entry != entries_.end();
  const std::string answer = clue.answer ? *clue.answer
                             : isEntry ? WrittenAnswer(document, *entry->second)
                                       : "";
  if (!isEntry) withoutEntry_.push_back(NameOf(clue));
  if (isEntry && !clue.cells.empty() &&
      static_cast<int>(clue.cells.size()) != entry->second->Length())
    otherCells_.push_back(NameOf(clue));
  if (!clue.text.empty() &&
      !document.clues.try_emplace(*key, Clue{clue.text, answer}).second)
    reading.passedOver.push_back("a second " + name);
  else if (!clue.extras.empty())
    document.clueExtras.try_emplace(*key, clue.extras);
}

void ClueReader::TellLabels(Reading& reading) const {
  std::vector<int> odd;
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    const int number = numbering_.numbers[i];
    if (labels_[i] != (number == 0 ? "" : std::to_string(number)))
      odd.push_back(static_cast<int>(i));
  }
  if (odd.empty()) return;
  reading.passedOver.push_back(
      places_.empty()
          ? "the cells have no numbers"
          : Counted(odd.size(), "cell that is not numbered as usual",
                    "cells that are not numbered as usual",
                    "at " + CellName(reading.document.PosOf(odd.front()))));
}

void ClueReader::TakeInto(Reading& reading) {
  TellLabels(reading);
  for (const ListedClue& clue : clues_)
    for (const Pos p : clue.cells)
      if (p.row == 0 || p.col == 0) firstIndex_ = 0;
  for (const ListedClue& clue : clues_) {
    if (!clue.text.empty() || !clue.extras.empty())
      Place(clue, reading);
    else if (clue.label.empty())
      NextInOrder(clue.direction);
  }
  if (!otherCells_.empty())
    reading.passedOver.push_back(
        Counted(otherCells_.size(), "clue for other cells than an entry's",
                "clues for other cells than an entry's", otherCells_[0]));
  if (!withoutEntry_.empty())
    reading.passedOver.push_back(
        Counted(withoutEntry_.size(), "clue that belongs to no entry",
                "clues that belong to no entry", withoutEntry_[0]));
}
