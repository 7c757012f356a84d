// Writing .jpz (files/jpz.h): every cell with the bars on all its sides, a word
// and a clue for each entry.

#include <pugixml.hpp>
#include <sstream>

#include "base/text.h"
#include "files/colour_text.h"
#include "files/jpz.h"
#include "files/markup.h"
#include "files/zip.h"
#include "puzzle/numbering.h"

namespace {

using Node = pugi::xml_node;

void Set(Node node, const char* name, const std::string& value) {
  node.append_attribute(name).set_value(value.c_str());
}

void AddText(Node parent, const char* name, const std::string& text) {
  if (!text.empty())
    parent.append_child(name)
        .append_child(pugi::node_pcdata)
        .set_value(text.c_str());
}

class JpzWriter {
 public:
  explicit JpzWriter(const Document& document)
      : document_(document), numbering_(NumberEntries(document)) {}

  std::string Xml() {
    pugi::xml_document xml;
    Node declaration = xml.append_child(pugi::node_declaration);
    Set(declaration, "version", "1.0");
    Set(declaration, "encoding", "UTF-8");
    Node root = xml.append_child("crossword-compiler-applet");
    Set(root, "xmlns", "http://crossword.info/xml/crossword-compiler-applet");
    Node puzzle = root.append_child("rectangular-puzzle");
    Set(puzzle, "xmlns", "http://crossword.info/xml/rectangular-puzzle");
    AddMetadata(puzzle.append_child("metadata"));
    Node crossword = puzzle.append_child("crossword");
    AddGrid(crossword.append_child("grid"));
    AddWords(crossword);
    AddClues(crossword, Direction::Across, "Across");
    AddClues(crossword, Direction::Down, "Down");
    std::ostringstream out;
    xml.save(out, " ", pugi::format_indent, pugi::encoding_utf8);
    return out.str();
  }

 private:
  void AddMetadata(Node metadata) {
    AddText(metadata, "title", document_.title);
    AddText(metadata, "creator", document_.author);
    AddText(metadata, "copyright", document_.copyright);
    AddText(metadata, "description", document_.notes);
  }

  void AddGrid(Node grid) {
    Set(grid, "width", std::to_string(document_.width));
    Set(grid, "height", std::to_string(document_.height));
    Node look = grid.append_child("grid-look");
    Set(look, "numbering-scheme", "normal");
    for (std::size_t i = 0; i < document_.cells.size(); ++i)
      AddCell(grid.append_child("cell"), static_cast<int>(i));
  }

  void AddCell(Node node, int index) {
    const Cell& cell = document_.cells[index];
    const Pos p = document_.PosOf(index);
    Set(node, "x", std::to_string(p.col));
    Set(node, "y", std::to_string(p.row));
    if (cell.kind != Cell::Kind::White)
      Set(node, "type", cell.kind == Cell::Kind::Block ? "block" : "void");
    if (!cell.solution.empty()) Set(node, "solution", cell.solution);
    if (const int number = numbering_.numbers[index])
      Set(node, "number", std::to_string(number));
    if (cell.circled) Set(node, "background-shape", "circle");
    if (cell.shade) Set(node, "background-color", "#" + HexOf(*cell.shade));
    if (cell.given) {
      Set(node, "solve-state", cell.solution);
      Set(node, "hint", "true");
    }
    AddBars(node, p);
  }

  // A bar is told by the cells on both sides of it.
  void AddBars(Node node, Pos p) {
    const Pos above = Along(p, Direction::Down, -1);
    const Pos left = Along(p, Direction::Across, -1);
    const auto set = [&](const char* name, bool is) {
      if (is) Set(node, name, "true");
    };
    set("top-bar", document_.Holds(above) && document_.At(above).barBelow);
    set("left-bar", document_.Holds(left) && document_.At(left).barRight);
    set("bottom-bar", document_.At(p).barBelow);
    set("right-bar", document_.At(p).barRight);
  }

  void AddWords(Node crossword) {
    int id = 0;
    for (const Entry& entry : numbering_.entries) {
      Node word = crossword.append_child("word");
      Set(word, "id", std::to_string(++id));
      // Cell by cell, as more readers take it than ranges.
      for (int place : entry.cells) {
        const Pos p = document_.PosOf(place);
        Node cell = word.append_child("cells");
        Set(cell, "x", std::to_string(p.col));
        Set(cell, "y", std::to_string(p.row));
      }
    }
  }

  void AddClues(Node crossword, Direction direction, const char* title) {
    Node clues = crossword.append_child("clues");
    Set(clues, "ordering", "normal");
    AddText(clues.append_child("title"), "b", title);
    int id = 0;
    for (const Entry& entry : numbering_.entries) {
      ++id;
      if (entry.direction != direction) continue;
      Node node = clues.append_child("clue");
      Set(node, "word", std::to_string(id));
      Set(node, "number", std::to_string(entry.number));
      const auto clue = document_.clues.find(KeyOf(document_, entry));
      if (clue != document_.clues.end()) AddClueText(node, clue->second.text);
    }
  }

  // What looks like markup but is text stands in an element of its own, so
  // that no reader takes it for tags written as text.
  static void AddClueText(Node node, const std::string& text) {
    bool hadTags = false;
    if (PlainText(text, hadTags) != text) node = node.append_child("span");
    node.append_child(pugi::node_pcdata).set_value(text.c_str());
  }

  const Document& document_;
  const Numbering numbering_;
};

// Readers strip the blanks around texts.
Document FitJpz(const Document& document) {
  Document kept = document;
  kept.title = OnOneLine(kept.title);
  kept.author = OnOneLine(kept.author);
  kept.copyright = OnOneLine(kept.copyright);
  kept.notes = WithoutOuterBlanks(kept.notes);
  for (auto& [key, clue] : kept.clues) clue.text = OnOneLine(clue.text);
  std::erase_if(kept.clues,
                [](const auto& item) { return item.second.text.empty(); });
  return kept;
}

bool RecognisesJpz(std::string_view bytes) {
  return IsZip(bytes) || (bytes.find("<") < 100 &&
                          (bytes.find("crossword-compiler") != bytes.npos ||
                           bytes.find("rectangular-puzzle") != bytes.npos));
}

}  // namespace

std::string EncodeJpz(const Document& document) {
  return Zipped("puzzle.xml", JpzWriter(document).Xml());
}

constexpr Format kJpzFormat{
    .id = "jpz",
    .name = "jpz puzzle",
    .pattern = "*.jpz",
    .holds = {},
    .recognises = RecognisesJpz,
    .decode = DecodeJpz,
    .encode = EncodeJpz,
    .fit = FitJpz,
};
