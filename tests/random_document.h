// Random documents for property tests: any size, blocks, holes, bars, rebus,
// marks, texts in several scripts, clues for most entries and for some that
// are not there any more.  They are tidy (files/tidy.h).

#pragma once

#include <rapidcheck/gtest.h>

#include <array>
#include <string>

#include "files/tidy.h"
#include "puzzle/numbering.h"

inline rc::Gen<std::string> GenText(bool lines = false) {
  static const std::array<std::string, 30> kPieces = {
      "a",  "B",  "word", " ",  "é",     "ß", "Ω",   "漢", "😀", "&",
      "<",  ">",  "\"",   "'",  "&amp;", "~", ":",   ";",  "#", ".",
      "<b", "(3", ",4)",  "\\", "{",     "%", "</b", "…",  "1", "-"};
  return rc::gen::map(
      rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 32)),
      [lines](const std::vector<int>& picks) {
        std::string text;
        for (int pick : picks)
          text += pick < 30 ? kPieces[pick] : lines ? "\n" : "x";
        const std::size_t first = text.find_first_not_of(" \n");
        if (first == text.npos) return std::string();
        return text.substr(first, text.find_last_not_of(" \n") - first + 1);
      });
}

inline rc::Gen<std::string> GenSolution() {
  const auto letter = rc::gen::map(rc::gen::inRange('A', '['),
                                   [](char c) { return std::string(1, c); });
  return rc::gen::weightedOneOf<std::string>(
      {{12, letter},
       {3, rc::gen::just(std::string())},
       {1,
        rc::gen::element<std::string>("HEART", "É", "É1", "漢", "7", "a", "B/C",
                                      "&", "#", ".", "-", ":", "TEN-4", "ÿ")}});
}

inline rc::Gen<Cell> GenCell() {
  return rc::gen::apply(
      [](int kind, std::string solution, int marks, int red) {
        Cell cell;
        if (kind < 2) cell.kind = Cell::Kind::Block;
        if (kind == 2) cell.kind = Cell::Kind::Void;
        cell.solution = std::move(solution);
        cell.circled = marks % 7 == 1;
        cell.given = marks % 11 == 1;
        cell.barRight = marks % 5 == 1;
        cell.barBelow = marks % 6 == 1;
        if (marks % 8 == 2) cell.shade = Colour{red, 255 - red, 7};
        return cell;
      },
      rc::gen::inRange(0, 16), GenSolution(), rc::gen::inRange(0, 5000),
      rc::gen::inRange(0, 256));
}

inline ClueKey AnyKey(const Document& document) {
  return {*rc::gen::element(Direction::Across, Direction::Down),
          {*rc::gen::inRange(1, document.height + 1),
           *rc::gen::inRange(1, document.width + 1)}};
}

// What only Kelda's own keys hold.
inline void AddOurs(Document& document) {
  document.symmetry = static_cast<Symmetry>(
      *rc::gen::inRange(0, static_cast<int>(Symmetry::None) + 1));
  document.pins.insert(AnyKey(document));
  document.clues[AnyKey(document)] = {"of another entry", "OLD"};
  document.rejected = {"AAA", *GenText()};
  document.ruleSet = *GenText();
  document.extras = {{"org.example:list", R"([1,2.5,null,{"b":"é"}])"},
                     {"publisher", R"("Somebody & sons")"}};
  document.cellExtras[AnyKey(document).first] =
      R"({"org.example:x":[1],"style":{"mark":{"TL":"é"}}})";
  document.clueExtras[AnyKey(document)] = R"({"references":[{"number":1}]})";
}

// Call it inside a property.
inline Document RandomDocument() {
  Document document(*rc::gen::inRange(kSmallestSide, 20),
                    *rc::gen::inRange(kSmallestSide, 20));
  if (*rc::gen::inRange(0, 4) == 0) document = Document(15, 15);
  document.cells =
      *rc::gen::container<std::vector<Cell>>(document.cells.size(), GenCell());
  // Often plain, so that every format is tried with what it can hold.
  if (*rc::gen::inRange(0, 3) == 0) {
    for (Cell& cell : document.cells) {
      Cell plain;
      if (cell.kind != Cell::Kind::White) plain.kind = Cell::Kind::Block;
      plain.solution = cell.solution.empty() ? "" : "E";
      cell = plain;
    }
  }
  document.title = *GenText();
  document.author = *GenText();
  document.copyright = *GenText();
  document.notes = *GenText(true);
  Tidy(document);
  for (const Entry& entry : NumberEntries(document).entries) {
    const int pick = *rc::gen::inRange(0, 10);
    if (pick == 0) continue;
    Clue& clue = document.clues[KeyOf(document, entry)];
    clue.text = *GenText();
    if (pick < 3) clue.answer = AnswerOf(document, entry);
    if (pick == 3) clue.answer = "STALE";
  }
  if (*rc::gen::inRange(0, 2) == 0) AddOurs(document);
  Tidy(document);
  return document;
}
