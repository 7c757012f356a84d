// The review of a grid (puzzle/review.h): what its shape alone tells.

#include <algorithm>
#include <set>

#include "puzzle/review_parts.h"
#include "puzzle/symmetry.h"

namespace {

using Severity = Finding::Severity;

void CheckSize(Subject& subject) {
  const auto& [width, height] =
      std::pair(subject.document.width, subject.document.height);
  const auto& sizes = subject.rules.sizes;
  if (sizes.empty() ||
      std::ranges::find(sizes, RuleSet::Size{width, height}) != sizes.end())
    return;
  std::string wanted;
  for (const RuleSet::Size& size : sizes) {
    if (!wanted.empty()) wanted += " or ";
    wanted += std::to_string(size.width) + " x " + std::to_string(size.height);
  }
  subject.Find(Severity::Broken, "sizes",
               "the grid is " + std::to_string(width) + " x " +
                   std::to_string(height) + " instead of " + wanted);
}

void CheckSymmetry(Subject& subject) {
  const auto& wanted = subject.rules.symmetries;
  if (wanted.empty()) return;
  std::vector<Pos> least;
  for (const Symmetry symmetry : wanted) {
    std::vector<Pos> cells = Asymmetries(subject.document, symmetry);
    if (cells.empty()) return;
    if (least.empty() || cells.size() < least.size()) least = cells;
  }
  subject.Find(Severity::Broken, "symmetries",
               Plural(static_cast<int>(least.size()), "cell") +
                   " without the block or the space opposite",
               least);
}

void CheckCounts(Subject& subject) {
  const auto check = [&](const char* rule, int count, int most,
                         const std::string& noun) {
    if (most == 0 || count <= most) return;
    subject.Find(Severity::Broken, rule,
                 Plural(count, noun) + ", " + std::to_string(count - most) +
                     " more than " + std::to_string(most));
  };
  const auto blocks = std::ranges::count(subject.document.cells,
                                         Cell::Kind::Block, &Cell::kind);
  check("mostWords", static_cast<int>(subject.numbering.entries.size()),
        subject.rules.mostWords, "word");
  check("mostBlocks", static_cast<int>(blocks), subject.rules.mostBlocks,
        "block");
}

void CheckLengths(Subject& subject) {
  const RuleSet& rules = subject.rules;
  for (const Entry& entry : subject.numbering.entries) {
    const std::string length = "has " + Plural(entry.Length(), "cell");
    if (entry.Length() < rules.leastLength) {
      subject.FindEntry(
          Severity::Broken, "leastLength", entry,
          length + ", less than " + std::to_string(rules.leastLength));
    }
    if (rules.mostLength > 0 && entry.Length() > rules.mostLength) {
      subject.FindEntry(
          Severity::Broken, "mostLength", entry,
          length + ", more than " + std::to_string(rules.mostLength));
    }
  }
}

void CheckAllChecked(Subject& subject) {
  if (!subject.rules.allChecked) return;
  std::vector<Pos> unchecked;
  for (int i = 0; i < static_cast<int>(subject.document.cells.size()); ++i) {
    const Pos cell = subject.document.PosOf(i);
    if (subject.document.IsWhite(cell) && subject.EntriesThrough(i) < 2)
      unchecked.push_back(cell);
  }
  if (unchecked.empty()) return;
  subject.Find(
      Severity::Broken, "allChecked",
      Plural(static_cast<int>(unchecked.size()), "cell") + " in one word only",
      unchecked);
}

void CheckShareChecked(Subject& subject) {
  const RuleSet& rules = subject.rules;
  for (const Entry& entry : subject.numbering.entries) {
    int checked = 0, run = 0, longest = 0;
    for (int cell : entry.cells) {
      const bool isChecked = subject.EntriesThrough(cell) == 2;
      checked += isChecked;
      run = isChecked ? 0 : run + 1;
      longest = std::max(longest, run);
    }
    if (checked < rules.leastCheckedShare * entry.Length()) {
      subject.FindEntry(Severity::Broken, "leastCheckedShare", entry,
                        "has only " + std::to_string(checked) + " of " +
                            Plural(entry.Length(), "cell") + " checked");
    }
    if (rules.mostUnchecked > 0 && longest > rules.mostUnchecked) {
      subject.FindEntry(Severity::Broken, "mostUnchecked", entry,
                        "has " + Plural(longest, "unchecked cell") +
                            " in a row, more than " +
                            std::to_string(rules.mostUnchecked));
    }
  }
}

// The cells that entries connect with the first white one.
std::set<int> Reached(const Subject& subject, int first) {
  std::set<int> reached = {first};
  std::vector<int> open = {first};
  while (!open.empty()) {
    const int cell = open.back();
    open.pop_back();
    for (const Direction direction : kDirections) {
      const int entry = subject.numbering.EntryAt(cell, direction);
      if (entry < 0) continue;
      for (int next : subject.numbering.entries[entry].cells)
        if (reached.insert(next).second) open.push_back(next);
    }
  }
  return reached;
}

void CheckConnected(Subject& subject) {
  if (!subject.rules.connected) return;
  const Document& document = subject.document;
  std::vector<int> white;
  for (int i = 0; i < static_cast<int>(document.cells.size()); ++i)
    if (document.IsWhite(document.PosOf(i))) white.push_back(i);
  if (white.empty()) return;
  const std::set<int> reached = Reached(subject, white.front());
  std::vector<Pos> apart;
  for (int cell : white)
    if (!reached.contains(cell)) apart.push_back(document.PosOf(cell));
  if (apart.empty()) return;
  subject.Find(Severity::Broken, "connected",
               Plural(static_cast<int>(apart.size()), "cell") +
                   " not connected with the first",
               apart);
}

void CheckEmpty(Subject& subject) {
  std::vector<Pos> empty;
  for (int i = 0; i < static_cast<int>(subject.document.cells.size()); ++i) {
    const Pos cell = subject.document.PosOf(i);
    if (subject.document.IsWhite(cell) &&
        subject.document.cells[i].solution.empty())
      empty.push_back(cell);
  }
  if (empty.empty()) return;
  subject.Find(
      Severity::Warning, "empty",
      Plural(static_cast<int>(empty.size()), "cell") + " without a letter",
      empty);
}

}  // namespace

void ReviewGrid(Subject& subject) {
  CheckSize(subject);
  CheckSymmetry(subject);
  CheckCounts(subject);
  CheckLengths(subject);
  CheckAllChecked(subject);
  CheckShareChecked(subject);
  CheckConnected(subject);
  CheckEmpty(subject);
}
