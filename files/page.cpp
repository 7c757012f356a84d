#include "files/page.h"

#include <nlohmann/json.hpp>

#include "puzzle/numbering.h"

extern const char kPlayablePage[];  // made by tools/embed_page.py

namespace {

using nlohmann::ordered_json;

std::string Base64(std::string_view bytes) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    unsigned group = 0;
    for (std::size_t k = i; k < i + 3; ++k) {
      const unsigned char byte = k < bytes.size() ? bytes[k] : '\0';
      group = group << 8 | byte;
    }
    for (int k = 0; k < 4; ++k)
      text += i + k <= bytes.size() ? kDigits[group >> (18 - 6 * k) & 63] : '=';
  }
  return text;
}

// The answers, a line a cell, as page.js uncovers them.
std::string Covered(const Document& document) {
  std::string plain;
  for (const Cell& cell : document.cells) {
    if (&cell != &document.cells.front()) plain += '\n';
    for (char c : cell.solution) plain += c == '\n' ? ' ' : c;
  }
  for (std::size_t i = 0; i < plain.size(); ++i)
    plain[i] = static_cast<char>(plain[i] ^ ((i * 73 + 41) & 255));
  return Base64(plain);
}

std::string HexOf(Colour colour) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text = "#";
  for (int part : {colour.red, colour.green, colour.blue}) {
    text += kDigits[part >> 4 & 15];
    text += kDigits[part & 15];
  }
  return text;
}

void AddCells(const Document& document, ordered_json& json) {
  std::string kinds;
  json["given"] = json["shades"] = ordered_json::object();
  for (const char* list : {"circled", "barRight", "barBelow"})
    json[list] = ordered_json::array();
  for (int i = 0; i < static_cast<int>(document.cells.size()); ++i) {
    const Cell& cell = document.cells[i];
    kinds += cell.kind == Cell::Kind::White   ? '.'
             : cell.kind == Cell::Kind::Block ? '#'
                                              : '_';
    if (cell.given && !cell.solution.empty())
      json["given"][std::to_string(i)] = cell.solution;
    if (cell.shade) json["shades"][std::to_string(i)] = HexOf(*cell.shade);
    if (cell.circled) json["circled"].push_back(i);
    if (cell.barRight) json["barRight"].push_back(i);
    if (cell.barBelow) json["barBelow"].push_back(i);
  }
  json["kinds"] = kinds;
}

void AddEntries(const Document& document, ordered_json& json) {
  const Numbering numbering = NumberEntries(document);
  json["numbers"] = numbering.numbers;
  json["entries"] = ordered_json::array();
  for (const Entry& entry : numbering.entries) {
    const auto clue = document.clues.find(KeyOf(document, entry));
    json["entries"].push_back(
        {{"number", entry.number},
         {"down", entry.direction == Direction::Down},
         {"cells", entry.cells},
         {"clue", clue == document.clues.end() ? "" : clue->second.text}});
  }
}

std::string JsonOf(const Document& document) {
  ordered_json json = {
      {"width", document.width},         {"height", document.height},
      {"title", document.title},         {"author", document.author},
      {"copyright", document.copyright}, {"notes", document.notes}};
  AddCells(document, json);
  AddEntries(document, json);
  json["key"] = Covered(document);
  const std::string text =
      json.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
  // Inside a script element nothing may look like a tag.
  std::string safe;
  for (char c : text) {
    if (c == '<')
      safe += "\\u003c";
    else
      safe += c;
  }
  return safe;
}

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (char c : text) {
    if (c == '<')
      escaped += "&lt;";
    else if (c == '&')
      escaped += "&amp;";
    else
      escaped += c;
  }
  return escaped;
}

}  // namespace

std::string PlayablePage(const Document& document) {
  const std::string_view page = kPlayablePage;
  constexpr std::string_view kTitle = "@TITLE@", kPuzzle = "@PUZZLE@";
  const std::size_t title = page.find(kTitle), puzzle = page.find(kPuzzle);
  std::string text(page.substr(0, title));
  text += document.title.empty() ? "Crossword" : Escaped(document.title);
  text += page.substr(title + kTitle.size(), puzzle - title - kTitle.size());
  text += JsonOf(document);
  text += page.substr(puzzle + kPuzzle.size());
  return text;
}
