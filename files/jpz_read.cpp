// Reading .jpz (files/jpz.h).  Words tell the cells of a clue where they are
// there, else its number does; what was off is told, like with like.

#include <algorithm>
#include <charconv>
#include <pugixml.hpp>

#include "base/text.h"
#include "base/utf8.h"
#include "files/cell_reader.h"
#include "files/clue_reader.h"
#include "files/colour_text.h"
#include "files/jpz.h"
#include "files/markup.h"
#include "files/tidy.h"
#include "files/zip.h"

namespace {

using Node = pugi::xml_node;

// A name without its namespace.
std::string_view NameOf(Node node) {
  const std::string_view name = node.name();
  return name.substr(name.rfind(':') + 1);
}

std::vector<Node> Children(Node node, std::string_view name) {
  std::vector<Node> children;
  for (Node child : node.children())
    if (NameOf(child) == name) children.push_back(child);
  return children;
}

Node Child(Node node, std::string_view name) {
  const std::vector<Node> children = Children(node, name);
  return children.empty() ? Node() : children.front();
}

std::string_view Attribute(Node node, const char* name) {
  return node.attribute(name).value();
}

bool IsTrue(Node node, const char* name) {
  return node.attribute(name).as_bool();
}

int NumberOf(std::string_view text) {
  int number = 0;
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? number : 0;
}

// The first and last number of "1-5" or "3"; zeros where they are none of a
// grid.
std::pair<int, int> RangeOf(std::string_view text) {
  const std::size_t dash = text.find('-');
  const int first = NumberOf(text.substr(0, dash));
  const int last = dash == text.npos ? first : NumberOf(text.substr(dash + 1));
  const auto isSide = [](int n) { return n >= 1 && n <= kLargestSide; };
  return isSide(first) && isSide(last) ? std::pair(first, last)
                                       : std::pair(0, 0);
}

// The cells from one end of a line of cells to the other.
void AppendCells(Node node, std::vector<Pos>& cells) {
  const auto [left, right] = RangeOf(Attribute(node, "x"));
  const auto [top, bottom] = RangeOf(Attribute(node, "y"));
  const bool isStraight = left == right || top == bottom;
  if (left == 0 || top == 0 || !isStraight || cells.size() > kLargestSide)
    return;
  const int down = bottom < top ? -1 : 1, across = right < left ? -1 : 1;
  for (int row = top; row != bottom + down; row += down)
    for (int col = left; col != right + across; col += across)
      cells.push_back({row, col});
}

// All text inside an element.
class TextWalker : public pugi::xml_tree_walker {
 public:
  bool for_each(Node& node) override {
    if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata)
      text += node.value();
    if (node.type() != pugi::node_element) return true;
    if (NameOf(node) == "br") text += '\n';
    hasElements = true;
    hasMarkup |= NameOf(node) != "span" || node.first_attribute();
    return true;
  }

  std::string text;
  bool hasElements = false, hasMarkup = false;
};

class JpzReader {
 public:
  explicit JpzReader(std::string_view bytes) { Parse(bytes); }

  Reading Result() {
    const Node crossword = xml_.find_node([](Node node) {
      return NameOf(node) == "crossword" && Child(node, "grid");
    });
    if (!crossword) throw FormatError("there is no crossword");
    ReadGrid(Child(crossword, "grid"));
    ReadMetadata(Child(crossword.parent(), "metadata"));
    if (Child(crossword.parent(), "instructions")) PassOver("the instructions");
    ReadClues(crossword);
    if (hadMarkup_) PassOver("the markup of texts, such as italics");
    odd_.TellIn(reading_);
    return std::move(reading_);
  }

 private:
  void PassOver(std::string text) {
    reading_.passedOver.push_back(std::move(text));
  }

  void Parse(std::string_view bytes);
  void ReadGrid(Node grid);
  void ReadCell(Node node, int index);
  void ReadMarks(Node node, Cell& cell, int index);
  void ReadBars(Node node, Pos p);
  void ReadMetadata(Node metadata);
  std::string TextOf(Node node);
  void ReadClues(Node crossword);
  void ReadClue(Node node, std::string_view title, ClueReader& clues);

  Document& Puzzle() { return reading_.document; }

  pugi::xml_document xml_;
  Reading reading_;
  std::vector<std::string> labels_;
  std::map<std::string, std::vector<Pos>, std::less<>> words_;  // by id
  OddCells odd_;
  bool hadMarkup_ = false;
};

void JpzReader::Parse(std::string_view bytes) {
  const bool isWide =
      bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
  const bool isLatin1 = !isWide && !IsUtf8(bytes);
  // Declarations of a document type are skipped: no entity is ever made.
  const auto result = xml_.load_buffer(
      bytes.data(), bytes.size(), pugi::parse_default | pugi::parse_ws_pcdata,
      isLatin1 ? pugi::encoding_latin1 : pugi::encoding_auto);
  if (result) return;
  const auto before = bytes.substr(0, static_cast<std::size_t>(result.offset));
  throw FormatError("line " +
                    std::to_string(1 + std::ranges::count(before, '\n')) +
                    ": " + result.description());
}

void JpzReader::ReadGrid(Node grid) {
  const int width = NumberOf(Attribute(grid, "width"));
  const int height = NumberOf(Attribute(grid, "height"));
  CheckSides(width, height);
  Puzzle() = Document(width, height);
  labels_.resize(Puzzle().cells.size());
  std::vector<bool> isThere(Puzzle().cells.size());
  int outside = 0;
  for (const Node node : Children(grid, "cell")) {
    const Pos p{NumberOf(Attribute(node, "y")), NumberOf(Attribute(node, "x"))};
    if (!Puzzle().Holds(p)) {
      ++outside;
      continue;
    }
    ReadCell(node, Puzzle().IndexOf(p));
    ReadBars(node, p);
    isThere[Puzzle().IndexOf(p)] = true;
  }
  for (int i = 0; i < static_cast<int>(isThere.size()); ++i) {
    if (isThere[i]) continue;
    Puzzle().cells[i].kind = Cell::Kind::Void;
    odd_.Note("left out of the file, taken for holes", i);
  }
  if (outside > 0)
    PassOver(std::to_string(outside) + " cells outside the grid");
}

void JpzReader::ReadCell(Node node, int index) {
  Cell& cell = Puzzle().cells[index];
  const std::string_view type = Attribute(node, "type");
  if (type == "block")
    cell.kind = Cell::Kind::Block;
  else if (type == "void")
    cell.kind = Cell::Kind::Void;
  else if (!type.empty() && type != "letter" && type != "cell")
    odd_.Note("of type \"" + std::string(type) + "\", taken as white", index);
  cell.solution = Attribute(node, "solution");
  labels_[index] = Trimmed(Attribute(node, "number"));
  ReadMarks(node, cell, index);
}

void JpzReader::ReadMarks(Node node, Cell& cell, int index) {
  constexpr std::string_view kKnown[] = {
      "x",           "y",           "type",      "solution",
      "number",      "top-bar",     "left-bar",  "background-shape",
      "hint",        "bottom-bar",  "right-bar", "background-color",
      "solve-state", "solve-status"};
  cell.circled = Attribute(node, "background-shape") == "circle";
  cell.given = IsTrue(node, "hint");
  const std::string_view state = Attribute(node, "solve-state");
  if (cell.given && cell.solution.empty()) cell.solution = state;
  if (!cell.given && !state.empty())
    odd_.Note("with a letter of a solver, which is not kept", index);
  if (const auto colour = Attribute(node, "background-color");
      !colour.empty()) {
    cell.shade = ColourOfHex(colour);
    if (!cell.shade) {
      cell.shade = kPlainShade;
      odd_.Note("with a colour that is not red, green and blue", index);
    }
  }
  for (const auto& attribute : node.attributes())
    if (std::ranges::find(kKnown, attribute.name()) == std::end(kKnown))
      odd_.Note(
          "with \"" + std::string(attribute.name()) + "\", which is not kept",
          index);
}

void JpzReader::ReadBars(Node node, Pos p) {
  constexpr std::pair<const char*, Side> kSides[] = {
      {"top-bar", Side::Top},
      {"left-bar", Side::Left},
      {"right-bar", Side::Right},
      {"bottom-bar", Side::Bottom}};
  for (const auto& [name, side] : kSides)
    if (IsTrue(node, name)) SetBar(Puzzle(), p, side);
}

// A text on one line: XML is indented as its program likes.
std::string Folded(std::string_view text) {
  std::string folded;
  for (const std::string_view line : LinesOf(text)) {
    const std::string part = OnOneLine(line);
    if (!part.empty()) folded += (folded.empty() ? "" : " ") + part;
  }
  return folded;
}

std::string JpzReader::TextOf(Node node) {
  TextWalker walker;
  node.traverse(walker);
  hadMarkup_ |= walker.hasMarkup;
  return walker.hasElements ? walker.text : PlainText(walker.text, hadMarkup_);
}

void JpzReader::ReadMetadata(Node metadata) {
  for (Node node : metadata.children()) {
    const std::string_view name = NameOf(node);
    TextWalker walker;
    node.traverse(walker);
    if (name == "title")
      Puzzle().title = Folded(walker.text);
    else if (name == "creator")
      Puzzle().author = Folded(walker.text);
    else if (name == "copyright")
      Puzzle().copyright = Folded(walker.text);
    else if (name == "description")
      Puzzle().notes = WithoutOuterBlanks(walker.text);
    else if (!Folded(walker.text).empty())
      PassOver("the " + std::string(name) + ", " + Folded(walker.text));
  }
}

void JpzReader::ReadClues(Node crossword) {
  for (const Node node : Children(crossword, "word")) {
    constexpr std::size_t kMost = 2 * kLargestSide * kLargestSide;
    if (words_.size() > kMost) break;
    std::vector<Pos>& cells = words_[std::string(Attribute(node, "id"))];
    if (!cells.empty()) continue;
    AppendCells(node, cells);
    for (const Node part : Children(node, "cells")) AppendCells(part, cells);
  }
  ClueReader clues(Puzzle(), labels_);
  for (const Node list : Children(crossword, "clues")) {
    TextWalker title;
    Child(list, "title").traverse(title);
    for (const Node clue : Children(list, "clue"))
      ReadClue(clue, title.text, clues);
  }
  clues.TakeInto(reading_);
}

void JpzReader::ReadClue(Node node, std::string_view title, ClueReader& clues) {
  ListedClue clue;
  clue.text = Folded(TextOf(node));
  clue.label = Trimmed(Attribute(node, "number"));
  if (const auto format = Attribute(node, "format"); !format.empty())
    clue.text = WithEnumeration(clue.text, std::string(format));
  const auto word = words_.find(Attribute(node, "word"));
  if (word != words_.end()) clue.cells = word->second;
  if (clue.cells.size() > 1)
    clue.direction = clue.cells[0].row == clue.cells[1].row ? Direction::Across
                                                            : Direction::Down;
  else if (UpperCase(title).find("DOWN") != std::string::npos)
    clue.direction = Direction::Down;
  clues.Add(std::move(clue));
}

}  // namespace

Reading DecodeJpz(std::string_view bytes) {
  if (IsZip(bytes)) return JpzReader(Unzipped(bytes, ".xml")).Result();
  return JpzReader(bytes).Result();
}
