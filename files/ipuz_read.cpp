// Reading .ipuz (files/ipuz.h).  Files in the wild leave keys out, write
// numbers as texts or call a function around it all: what can be understood is
// read, and what was off is told, like with like.

#include <algorithm>
#include <optional>

#include "base/text.h"
#include "base/utf8.h"
#include "files/capacity.h"
#include "files/cell_reader.h"
#include "files/clue_reader.h"
#include "files/colour_text.h"
#include "files/ipuz.h"
#include "files/ipuz_own_keys.h"
#include "files/json_text.h"
#include "files/markup.h"
#include "files/tidy.h"

namespace {

// The object in a call such as "ipuz({...})".
std::string_view WithoutCall(std::string_view bytes) {
  const std::size_t open = bytes.find_first_of("({");
  if (open == bytes.npos || bytes[open] == '{') return bytes;
  const std::size_t close = bytes.rfind(')');
  return close == bytes.npos || close < open
             ? bytes.substr(open + 1)
             : bytes.substr(open + 1, close - open - 1);
}

// How many lists and objects a value is deep.
int DepthOf(const Json& value) {
  int depth = 0;
  if (!value.is_structured()) return depth;
  for (const Json& part : value) depth = std::max(depth, DepthOf(part));
  return depth + 1;
}

class IpuzReader {
 public:
  explicit IpuzReader(std::string_view bytes) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kMark)) bytes.remove_prefix(kMark.size());
    if (!IsUtf8(bytes)) PassOver("the text is no UTF-8; taken as ISO 8859-1");
    root_ = ParseJson(WithoutCall(FromUnknown(bytes)));
    if (!root_.is_object()) throw FormatError("an object was expected");
  }

  Reading Result() {
    CheckKind();
    ReadMarks();
    ReadPuzzle();
    ReadSolution();
    ReadTexts();
    ReadClues();
    ReadIpuzOwnKeys(root_, reading_);
    KeepExtras();
    if (tooMuch_)
      PassOver("further keys of cells and clues: they are too much");
    if (hadTags_) PassOver("the markup of texts, such as italics");
    odd_.TellIn(reading_);
    return std::move(reading_);
  }

 private:
  void PassOver(std::string text) {
    reading_.passedOver.push_back(std::move(text));
  }

  void CheckKind();
  void ReadMarks();
  const Json* Rows(std::string_view key) const;
  void ReadPuzzle();
  void ReadCell(const Json& value, int index);
  void ReadLabel(const Json& label, int index);
  void ReadStyle(const Json* style, int index, Json& further);
  bool ReadStyleKey(const std::string& key, const Json& value, int index);
  void ReadShade(const Json& value, int index);
  void ReadBars(const std::string& sides, int index);
  void ReadSolution();
  void ReadLetters(const Json& value, int index);
  void ReadText(std::string_view key, std::string& text);
  void ReadTexts();
  std::string HtmlOf(const Json& value);
  void ReadClues();
  void ReadList(const std::string& name, const Json& list);
  void ReadClue(const Json& value, Direction direction);
  void ReadClueKeys(const Json& value, ListedClue& clue);
  void ReadClueCells(const Json& cells, ListedClue& clue);
  std::string Kept(const Json& further);
  void KeepExtras();

  Document& Puzzle() { return reading_.document; }

  Json root_;
  Reading reading_;
  std::string block_ = "#", empty_ = "0";
  std::vector<std::string> labels_;  // by cell
  std::optional<ClueReader> clues_;
  bool showsEnumerations_ = false;
  bool hadTags_ = false;
  OddCells odd_;
  std::size_t kept_ = 0;  // bytes of further keys of cells and clues
  bool tooMuch_ = false;
};

void IpuzReader::CheckKind() {
  const Json* kind = Find(root_, "kind");
  if (!kind) return PassOver("there is no kind");
  const Json kinds = kind->is_array() ? *kind : Json::array({*kind});
  bool isCrossword = false;
  for (const Json& one : kinds)
    isCrossword |= TextOf(one).find("ipuz.org/crossword") != std::string::npos;
  if (!isCrossword)
    throw FormatError("the kind is no crossword but " + kind->dump());
  if (kinds != Json::array({"http://ipuz.org/crossword#1"}))
    Puzzle().extras["kind"] = kinds.dump();
}

void IpuzReader::ReadMarks() {
  if (const Json* block = Find(root_, "block")) block_ = TextOf(*block);
  if (const Json* empty = Find(root_, "empty")) empty_ = TextOf(*empty);
}

// The rows of a grid, or nullptr when there is none.
const Json* IpuzReader::Rows(std::string_view key) const {
  const Json* rows = Find(root_, key);
  if (!rows || rows->is_null()) return nullptr;
  const std::string name(key);
  if (!rows->is_array()) throw FormatError(name + ": a list was expected");
  for (std::size_t row = 0; row < rows->size(); ++row)
    if (!(*rows)[row].is_array())
      throw FormatError(name + ": row " + std::to_string(row + 1) +
                        ": a list of cells was expected");
  return rows;
}

void IpuzReader::ReadPuzzle() {
  const Json* rows = Rows("puzzle");
  if (!rows) rows = Rows("solution");
  if (!rows) throw FormatError("there is no puzzle");
  std::size_t width = 0;
  for (const Json& row : *rows) width = std::max(width, row.size());
  CheckSides(static_cast<long>(width), static_cast<long>(rows->size()));
  auto extras = std::move(Puzzle().extras);
  Puzzle() = Document(static_cast<int>(width), static_cast<int>(rows->size()));
  Puzzle().extras = std::move(extras);
  labels_.resize(Puzzle().cells.size());
  if (const Json* size = Find(root_, "dimensions")) {
    const Json* told[] = {Find(*size, "width"), Find(*size, "height")};
    if (!told[0] || !told[1] || NumberOf(*told[0]) != Puzzle().width ||
        NumberOf(*told[1]) != Puzzle().height)
      PassOver("the dimensions are not those of the grid");
  }
  for (int i = 0; i < static_cast<int>(Puzzle().cells.size()); ++i) {
    const Json& row = (*rows)[i / width];
    if (i % width < row.size()) {
      ReadCell(row[i % width], i);
    } else {
      Puzzle().cells[i].kind = Cell::Kind::Void;
      odd_.Note("left out of the file, taken for holes", i);
    }
  }
}

void IpuzReader::ReadCell(const Json& value, int index) {
  if (!value.is_object()) return ReadLabel(value, index);
  const Json* label = Find(value, "cell");
  ReadLabel(label ? *label : Json(0), index);
  Json further = Json::object();
  ReadStyle(Find(value, "style"), index, further);
  Cell& cell = Puzzle().cells[index];
  for (const auto& [key, part] : value.items()) {
    if (key == "value" && !part.is_null()) {
      cell.given = true;
      ReadLetters(value, index);
    } else if (key != "cell" && key != "style" && key != "value") {
      further[key] = part;
    }
  }
  if (std::string kept = Kept(further); !kept.empty())
    Puzzle().cellExtras[Puzzle().PosOf(index)] = std::move(kept);
}

void IpuzReader::ReadLabel(const Json& label, int index) {
  const std::string text = TextOf(label);
  Cell& cell = Puzzle().cells[index];
  if (label.is_null())
    cell.kind = Cell::Kind::Void;
  else if (!text.empty() && text == block_)
    cell.kind = Cell::Kind::Block;
  else if (text != empty_ && text != "0" && !Trimmed(text).empty())
    labels_[index] = Trimmed(text);
}

void IpuzReader::ReadStyle(const Json* style, int index, Json& further) {
  if (style && style->is_string()) {
    const Json* styles = Find(root_, "styles");
    const Json* named =
        styles ? Find(*styles, style->get<std::string>()) : nullptr;
    if (!named) odd_.Note("with a style that is not there", index);
    style = named;
  }
  if (!style || !style->is_object()) return;
  for (const auto& [key, value] : style->items())
    if (!ReadStyleKey(key, value, index) && !tooMuch_)
      further["style"][key] = value;
}

// Whether the key could be read.
bool IpuzReader::ReadStyleKey(const std::string& key, const Json& value,
                              int index) {
  Cell& cell = Puzzle().cells[index];
  if (key == "shapebg" && value == "circle")
    cell.circled = true;
  else if (key == "barred")
    ReadBars(TextOf(value), index);
  else if (key == "color")
    ReadShade(value, index);
  else if (key == "highlight" && value == true)
    cell.shade = cell.shade.value_or(kPlainShade);
  else
    return false;
  return true;
}

void IpuzReader::ReadShade(const Json& value, int index) {
  const auto colour =
      value.is_string() ? ColourOfHex(value.get<std::string>()) : std::nullopt;
  if (!colour)
    odd_.Note("with a colour that is not red, green and blue", index);
  Puzzle().cells[index].shade = colour.value_or(kPlainShade);
}

void IpuzReader::ReadBars(const std::string& sides, int index) {
  constexpr std::pair<char, Side> kSides[] = {{'T', Side::Top},
                                              {'L', Side::Left},
                                              {'R', Side::Right},
                                              {'B', Side::Bottom}};
  for (const auto& [letter, side] : kSides)
    if (UpperCase(sides).find(letter) != std::string::npos)
      SetBar(Puzzle(), Puzzle().PosOf(index), side);
}

void IpuzReader::ReadSolution() {
  const Json* rows = Rows("solution");
  if (!rows) return;
  const auto height = static_cast<std::size_t>(Puzzle().height);
  const auto width = static_cast<std::size_t>(Puzzle().width);
  bool tooLarge = rows->size() > height;
  for (std::size_t row = 0; row < std::min(rows->size(), height); ++row) {
    const Json& cells = (*rows)[row];
    tooLarge |= cells.size() > width;
    for (std::size_t col = 0; col < std::min(cells.size(), width); ++col)
      ReadLetters(cells[col], static_cast<int>(row * width + col));
  }
  if (tooLarge) PassOver("letters of the solution outside the grid");
}

// The letters of a cell in the solution.
void IpuzReader::ReadLetters(const Json& value, int index) {
  const bool isObject = value.is_object();
  const Json* inside = isObject ? Find(value, "value") : nullptr;
  if (isObject && !inside) inside = Find(value, "cell");
  const Json& letters = isObject ? inside ? *inside : Json() : value;
  if (letters.is_array()) {
    odd_.Note("with several solutions, of which the first is kept", index);
    if (!letters.empty() && !letters[0].is_structured())
      ReadLetters(letters[0], index);
    return;
  }
  const std::string text = TextOf(letters);
  const bool isMark = !isObject && text == block_;
  Cell& cell = Puzzle().cells[index];
  if (cell.kind != Cell::Kind::White) {
    if (!isMark && !Trimmed(text).empty())
      odd_.Note("with letters but not white", index);
  } else if (isMark) {
    odd_.Note("white in the puzzle, a block in the solution", index);
  } else if (letters != 0 && !Trimmed(text).empty()) {
    cell.solution = text;
  }
}

std::string IpuzReader::HtmlOf(const Json& value) {
  return PlainText(TextOf(value), hadTags_);
}

void IpuzReader::ReadText(std::string_view key, std::string& text) {
  const Json* value = Find(root_, key);
  if (!value) return;
  text = HtmlOf(*value);
  if (!value->is_string() && !value->is_null())
    PassOver("\"" + std::string(key) + "\" is no text");
}

void IpuzReader::ReadTexts() {
  ReadText("title", Puzzle().title);
  ReadText("author", Puzzle().author);
  ReadText("copyright", Puzzle().copyright);
  ReadText("notes", Puzzle().notes);
}

void IpuzReader::ReadClues() {
  clues_.emplace(Puzzle(), labels_);
  const Json* shows = Find(root_, "showenumerations");
  showsEnumerations_ = shows && *shows == true;
  const Json* lists = Find(root_, "clues");
  if (!lists || lists->is_null()) return;
  if (!lists->is_object()) return PassOver("the clues are not in lists");
  for (const auto& [name, list] : lists->items()) ReadList(name, list);
  clues_->TakeInto(reading_);
}

void IpuzReader::ReadList(const std::string& name, const Json& list) {
  const std::string kind = UpperCase(name.substr(0, name.find(':')));
  if (kind.size() < name.size())
    PassOver("the heading of the clues, " + name.substr(kind.size() + 1));
  if ((kind != "ACROSS" && kind != "DOWN") || !list.is_array())
    return PassOver("the clues of the list " + name);
  for (const Json& clue : list)
    ReadClue(clue, kind == "ACROSS" ? Direction::Across : Direction::Down);
}

// [1, "text"], {"number": 1, "clue": "text"} or "text".
void IpuzReader::ReadClue(const Json& value, Direction direction) {
  ListedClue clue;
  clue.direction = direction;
  if (value.is_array() && !value.empty()) {
    const Json& number = value[0];
    clue.label =
        TextOf(number.is_array() && !number.empty() ? number[0] : number);
    if (value.size() > 1) clue.text = HtmlOf(value[1]);
  } else if (value.is_object()) {
    ReadClueKeys(value, clue);
  } else {
    clue.text = HtmlOf(value);
  }
  clues_->Add(std::move(clue));
}

void IpuzReader::ReadClueKeys(const Json& value, ListedClue& clue) {
  std::string enumeration;
  Json further = Json::object();
  for (const auto& [key, part] : value.items()) {
    if (key == "number" || (key == "label" && clue.label.empty()))
      clue.label = TextOf(part);
    else if (key == "numbers" && part.is_array() && !part.empty())
      clue.label = TextOf(part[0]);
    else if (key == "clue")
      clue.text = HtmlOf(part);
    else if (key == kIpuzAnswer || (key == "answer" && !clue.answer))
      clue.answer = TextOf(part);
    else if (key == "enumeration" && showsEnumerations_ &&
             !TextOf(part).empty())
      enumeration = TextOf(part);
    else if (key == "cells")
      ReadClueCells(part, clue);
    else
      further[key] = part;
  }
  if (!enumeration.empty()) clue.text = WithEnumeration(clue.text, enumeration);
  clue.extras = Kept(further);
}

void IpuzReader::ReadClueCells(const Json& cells, ListedClue& clue) {
  if (!cells.is_array()) return;
  for (const Json& cell : cells)
    if (cell.is_array() && cell.size() == 2)
      clue.cells.push_back({NumberOf(cell[1]), NumberOf(cell[0])});
}

// Keys of a cell or clue as documents keep them.  A style that many cells name
// is kept with each, and deeper than it was: what would make the file too
// large or too deep to be read again is left out.
std::string IpuzReader::Kept(const Json& further) {
  constexpr std::size_t kMost = 1 << 20;
  constexpr int kDeepest = 90;
  if (further.empty() || tooMuch_) return "";
  std::string text = further.dump();
  kept_ += text.size();
  tooMuch_ = kept_ > kMost || DepthOf(further) > kDeepest;
  return tooMuch_ ? "" : text;
}

void IpuzReader::KeepExtras() {
  for (const auto& [key, value] : root_.items())
    if (!IsIpuzKey(key)) Puzzle().extras[key] = value.dump();
  if (root_.contains("checksum")) PassOver("the checksum of the solution");
}

}  // namespace

Reading DecodeIpuz(std::string_view bytes) {
  return IpuzReader(bytes).Result();
}
