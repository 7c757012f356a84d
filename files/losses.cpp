#include "files/losses.h"

#include <cassert>
#include <functional>

#include "base/utf8.h"

namespace {

using CellDiffers = std::function<bool(const Cell&, const Cell&)>;

// A text in quotes, its line breaks as "\n"; a long one is cut.
std::string Quoted(std::string_view text) {
  constexpr std::size_t kLongest = 60;
  std::string quoted;
  while (!text.empty() && quoted.size() < kLongest) {
    const auto character = FirstChar(text);
    quoted += character == "\n" ? "\\n" : character == "\r" ? "\\r" : character;
    text.remove_prefix(character.size());
  }
  return "\"" + quoted + (text.empty() ? "\"" : "...\"");
}

class Comparison {
 public:
  Comparison(const Document& document, const Document& kept)
      : document_(document), kept_(kept), names_(NumberEntries(document)) {}

  std::vector<Loss> All() {
    Cells();
    Texts();
    Clues();
    Settings();
    Extras();
    return std::move(losses_);
  }

 private:
  void Add(std::string text) { losses_.push_back({std::move(text)}); }

  // Tells of the cells that differ; `at` writes the place of the first.
  void AddCells(std::string_view one, std::string_view many,
                const CellDiffers& differs,
                const std::function<std::string(Pos)>& at) {
    int count = 0;
    std::string first;
    for (int i = 0; i < static_cast<int>(document_.cells.size()); ++i) {
      if (!differs(document_.cells[i], kept_.cells[i])) continue;
      if (count++ == 0) first = at(document_.PosOf(i));
    }
    if (count > 0) Add(Counted(count, one, many, first));
  }

  void Cells() {
    const auto at = [](Pos p) { return "at " + CellName(p); };
    AddCells(
        "hole", "holes",
        [](const Cell& a, const Cell& b) { return a.kind != b.kind; }, at);
    AddCells(
        "cell's letters", "cells' letters",
        [](const Cell& a, const Cell& b) { return a.solution != b.solution; },
        [&](Pos p) {
          return Quoted(document_.At(p).solution) + " at " + CellName(p);
        });
    Bars();
    AddCells(
        "circle", "circles",
        [](const Cell& a, const Cell& b) { return a.circled != b.circled; },
        at);
    AddCells(
        "given letter", "given letters",
        [](const Cell& a, const Cell& b) { return a.given != b.given; }, at);
    AddCells(
        "shade", "shades",
        [](const Cell& a, const Cell& b) { return a.shade && !b.shade; }, at);
    AddCells(
        "shade's colour", "shades' colours",
        [](const Cell& a, const Cell& b) {
          return b.shade && a.shade != b.shade;
        },
        at);
  }

  void Bars() {
    int count = 0;
    std::string first;
    for (int i = 0; i < static_cast<int>(document_.cells.size()); ++i) {
      const Cell& cell = document_.cells[i];
      const Cell& kept = kept_.cells[i];
      const bool right = cell.barRight != kept.barRight;
      const bool below = cell.barBelow != kept.barBelow;
      if (count == 0 && (right || below)) {
        const Pos p = document_.PosOf(i);
        const Pos next =
            Along(p, right ? Direction::Across : Direction::Down, 1);
        first = "between " + CellName(p) + " and " +
                (document_.Holds(next) ? CellName(next) : "the edge");
      }
      count += right + below;
    }
    if (count > 0) Add(Counted(count, "bar", "bars", first));
  }

  void AddText(std::string_view name, const std::string& text,
               const std::string& kept) {
    if (text == kept) return;
    std::string loss = "the " + std::string(name) + " " + Quoted(text);
    if (!kept.empty()) loss += ", kept as " + Quoted(kept);
    Add(std::move(loss));
  }

  void Texts() {
    AddText("title", document_.title, kept_.title);
    AddText("author", document_.author, kept_.author);
    AddText("copyright", document_.copyright, kept_.copyright);
    AddText("notes", document_.notes, kept_.notes);
  }

  // "17A", or the place of what is no entry.
  std::string NameOf(const ClueKey& key) const {
    for (const Entry& entry : names_.entries)
      if (KeyOf(document_, entry) == key) return entry.Name();
    return (key.direction == Direction::Across ? "across at " : "down at ") +
           CellName(key.first);
  }

  void AddClues(std::string_view one, std::string_view many,
                const std::function<bool(const Clue&, const Clue*)>& differs) {
    int count = 0;
    std::string first;
    for (const auto& [key, clue] : document_.clues) {
      const auto kept = kept_.clues.find(key);
      if (!differs(clue, kept == kept_.clues.end() ? nullptr : &kept->second))
        continue;
      if (count++ == 0) first = NameOf(key);
    }
    if (count > 0) Add(Counted(count, one, many, first));
  }

  void Clues() {
    AddClues("clue", "clues",
             [](const Clue&, const Clue* kept) { return !kept; });
    AddClues("clue's exact text", "clues' exact texts",
             [](const Clue& clue, const Clue* kept) {
               return kept && clue.text != kept->text;
             });
    AddClues("answer that a clue was written for",
             "answers that clues were written for",
             [](const Clue& clue, const Clue* kept) {
               return kept && !clue.answer.empty() &&
                      clue.answer != kept->answer;
             });
  }

  void Settings() {
    if (document_.symmetry != kept_.symmetry) Add("the kind of symmetry");
    if (document_.pins != kept_.pins)
      Add(Counted(static_cast<int>(document_.pins.size()), "pinned entry",
                  "pinned entries", NameOf(*document_.pins.begin())));
    if (document_.rejected != kept_.rejected)
      Add(Counted(static_cast<int>(document_.rejected.size()), "rejected word",
                  "rejected words", *document_.rejected.begin()));
    if (document_.ruleSet != kept_.ruleSet)
      Add("the house rules " + Quoted(document_.ruleSet));
  }

  template <class Key, class Name>
  void AddExtras(std::string_view one, std::string_view many,
                 std::map<Key, std::string> Document::*extras, Name nameOf) {
    const auto& kept = kept_.*extras;
    int count = 0;
    std::string first;
    for (const auto& [key, json] : document_.*extras) {
      const auto found = kept.find(key);
      if (found != kept.end() && found->second == json) continue;
      if (count++ == 0) first = nameOf(key);
    }
    if (count > 0) Add(Counted(count, one, many, first));
  }

  void Extras() {
    AddExtras("further field", "further fields", &Document::extras,
              [](const std::string& key) { return key; });
    AddExtras("cell's further fields", "cells' further fields",
              &Document::cellExtras, [](Pos p) { return "at " + CellName(p); });
    AddExtras("clue's further fields", "clues' further fields",
              &Document::clueExtras,
              [&](const ClueKey& key) { return NameOf(key); });
  }

  const Document& document_;
  const Document& kept_;
  const Numbering names_;
  std::vector<Loss> losses_;
};

}  // namespace

std::string Counted(std::size_t count, std::string_view one,
                    std::string_view many, std::string_view first) {
  std::string text = std::to_string(count) + " ";
  text += count == 1 ? one : many;
  text += count == 1 ? ", " : ", first ";
  return text += first;
}

std::vector<Loss> LossesBetween(const Document& document,
                                const Document& kept) {
  assert(document.width == kept.width && document.height == kept.height);
  return Comparison(document, kept).All();
}
