#include "files/letter_grid.h"

#include <algorithm>

#include "base/text.h"
#include "base/utf8.h"
#include "files/format.h"
#include "files/tidy.h"

namespace {

constexpr std::string_view kSmallLetters = "abcdefghijklmnopqrstuvwxyz";

bool IsMarked(const Cell& cell) {
  return cell.circled || cell.shade;
}

bool IsCapital(char c) {
  return c >= 'A' && c <= 'Z';
}
bool IsSmall(char c) {
  return c >= 'a' && c <= 'z';
}
char Small(char capital) {
  return static_cast<char>(capital - 'A' + 'a');
}

// Whether letters are a character that stands for itself.
bool IsPlain(std::string_view letters) {
  if (letters.empty() || FirstChar(letters) != letters) return false;
  return IsCapital(letters[0]) || static_cast<unsigned char>(letters[0]) > 0x7F;
}

// The small letters that marked cells take, or might once there are no keys.
std::string WithoutMarkedLetters(const Document& document) {
  std::string free(kSmallLetters);
  for (const Cell& cell : document.cells)
    if (IsMarked(cell) && !cell.solution.empty() && IsCapital(cell.solution[0]))
      std::erase(free, Small(cell.solution[0]));
  return free;
}

std::vector<std::string> CharactersOf(std::string_view text) {
  std::vector<std::string> characters;
  while (!text.empty()) {
    characters.emplace_back(FirstChar(text));
    text.remove_prefix(characters.back().size());
  }
  return characters;
}

}  // namespace

LetterKeys::LetterKeys(const Document& document, const LetterGridStyle& style)
    : style_(style), anyMark_(std::ranges::any_of(document.cells, IsMarked)) {
  std::string free(style.keys), freeSmall = WithoutMarkedLetters(document);
  if (!anyMark_) free += freeSmall;
  for (const Cell& cell : document.cells)
    AddKey(cell, IsMarked(cell) ? freeSmall : free);
}

void LetterKeys::AddKey(const Cell& cell, std::string& free) {
  if (cell.solution.empty() || !CharacterOf(cell).empty() || free.empty())
    return;
  keys_.push_back({free.front(), cell.solution});
  keyOf_[{cell.solution, IsMarked(cell)}] = free.front();
  free.erase(0, 1);
}

std::string LetterKeys::CharacterOf(const Cell& cell) const {
  if (cell.kind == Cell::Kind::Block) return {style_.block};
  if (cell.kind == Cell::Kind::Void) return {style_.hole};
  const std::string& letters = cell.solution;
  const bool marked = IsMarked(cell);
  if (letters.empty()) return marked ? "" : std::string{style_.empty};
  if (IsPlain(letters) && !marked) return letters;
  if (IsPlain(letters) && IsCapital(letters[0])) return {Small(letters[0])};
  const auto key = keyOf_.find({letters, marked});
  return key == keyOf_.end() ? "" : std::string{key->second};
}

std::string LetterKeys::RowOf(const Document& document, int row) const {
  std::string text;
  for (int col = 1; col <= document.width; ++col)
    text += CharacterOf(document.At({row, col}));
  return text;
}

Document WithLetterKeys(const Document& document,
                        const LetterGridStyle& style) {
  const LetterKeys keys(document, style);
  Document kept = document;
  for (Cell& cell : kept.cells) {
    if (keys.CharacterOf(cell).empty())
      cell.solution = FirstChar(cell.solution);
    if (keys.CharacterOf(cell).empty()) cell.solution.clear();
    if (cell.solution.empty()) {
      cell.circled = false;
      cell.shade.reset();
    }
  }
  return kept;
}

void LetterGrid::ReadCell(Cell& cell, const std::string& character,
                          const LetterGridStyle& style) const {
  const char c = character[0];
  const auto key = keys.find(character);
  const bool small = IsSmall(c);
  if (key != keys.end())
    cell.solution = key->second;
  else if (c == style.block)
    cell.kind = Cell::Kind::Block;
  else if (c == style.hole)
    cell.kind = Cell::Kind::Void;
  else if (c != style.empty)
    cell.solution = small ? UpperCase(character) : character;
  cell.circled = small && mark == LetterMark::Circle;
  if (small && mark == LetterMark::Shade) cell.shade = kPlainShade;
}

Document LetterGrid::ToDocument(const LetterGridStyle& style) const {
  if (rows.empty()) throw FormatError("there is no grid");
  const std::size_t width = CharactersOf(rows[0].text).size();
  CheckSides(static_cast<long>(width), static_cast<long>(rows.size()));
  Document document(static_cast<int>(width), static_cast<int>(rows.size()));
  int cell = 0;
  for (const Row& row : rows) {
    const auto characters = CharactersOf(row.text);
    if (characters.size() != width)
      throw FormatError("line " + std::to_string(row.line) +
                        ": the grid row has " +
                        std::to_string(characters.size()) +
                        " cells instead of " + std::to_string(width));
    for (const std::string& character : characters)
      ReadCell(document.cells[cell++], character, style);
  }
  return document;
}
