// Writing .ipuz (files/ipuz.h): a row of the grid and a clue a line, so that
// people can read files and compare them.

#include <algorithm>
#include <nlohmann/json.hpp>

#include "files/capacity.h"
#include "files/colour_text.h"
#include "files/ipuz.h"
#include "files/markup.h"
#include "puzzle/numbering.h"
#include "puzzle/symmetry.h"

namespace {

using Json = nlohmann::ordered_json;

std::string Dumped(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

// An object or list with a line for each of its parts.
std::string InLines(const std::vector<std::string>& parts, char open,
                    char close, std::string_view indent) {
  std::string text(1, open);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    text += i == 0 ? "\n" : ",\n";
    text.append(indent).append("  ").append(parts[i]);
  }
  return text.append("\n").append(indent) + close;
}

Json PlaceOf(const ClueKey& key) {
  return {{"direction", key.direction == Direction::Across ? "Across" : "Down"},
          {"row", key.first.row},
          {"column", key.first.col}};
}

// Adds the keys that a file had beside ours; where both have one ours stays.
template <class Key>
void AddExtras(const std::map<Key, std::string>& extras, const Key& key,
               Json& object) {
  const auto found = extras.find(key);
  if (found == extras.end()) return;
  const Json further = Json::parse(found->second, nullptr, false);
  if (!further.is_object()) return;
  for (const auto& [name, value] : further.items())
    if (name == "style" && object.contains(name))
      for (const auto& [part, style] : value.items())
        object[name].emplace(part, Json(style));
    else
      object.emplace(name, Json(value));
}

class IpuzWriter {
 public:
  explicit IpuzWriter(const Document& document)
      : document_(document), numbering_(NumberEntries(document)) {}

  std::string Bytes() {
    Add("version", "http://ipuz.org/v2");
    if (!document_.extras.contains("kind"))
      Add("kind", Json::array({"http://ipuz.org/crossword#1"}));
    Add("origin", "Kelda");
    AddText("title", document_.title);
    AddText("author", document_.author);
    AddText("copyright", document_.copyright);
    AddText("notes", document_.notes);
    Add("dimensions",
        {{"width", document_.width}, {"height", document_.height}});
    AddGrid("puzzle", &IpuzWriter::PuzzleCell);
    if (std::ranges::any_of(document_.cells, [](const Cell& cell) {
          return !cell.solution.empty();
        }))
      AddGrid("solution", &IpuzWriter::SolutionCell);
    AddClues();
    AddOurs();
    for (const auto& [key, json] : document_.extras)
      if (Json::accept(json) && (key == "kind" || !IsIpuzKey(key)))
        parts_.push_back(Dumped(key) + ": " + json);
    return InLines(parts_, '{', '}', "") + "\n";
  }

 private:
  void AddPart(std::string_view key, const std::string& json) {
    parts_.push_back("\"" + std::string(key) + "\": " + json);
  }
  void Add(std::string_view key, const Json& value) {
    AddPart(key, Dumped(value));
  }
  void AddText(std::string_view key, const std::string& text) {
    if (!text.empty()) Add(key, HtmlText(text));
  }

  // Bars are told by the cell right of or below them.
  std::string BarsOf(int index) const {
    const Pos p = document_.PosOf(index);
    const Pos above = Along(p, Direction::Down, -1);
    const Pos left = Along(p, Direction::Across, -1);
    std::string bars;
    if (document_.Holds(above) && document_.At(above).barBelow) bars += 'T';
    if (document_.Holds(left) && document_.At(left).barRight) bars += 'L';
    return bars;
  }

  Json PuzzleCell(int index) const {
    const Cell& cell = document_.cells[index];
    const Json label = cell.kind == Cell::Kind::Void ? Json()
                       : cell.kind == Cell::Kind::Block
                           ? Json("#")
                           : Json(numbering_.numbers[index]);
    Json style = Json::object();
    if (cell.circled) style["shapebg"] = "circle";
    if (cell.shade) style["color"] = HexOf(*cell.shade);
    if (const std::string bars = BarsOf(index); !bars.empty())
      style["barred"] = bars;
    Json object = Json::object({{"cell", label}});
    if (!style.empty()) object["style"] = style;
    if (cell.given) object["value"] = cell.solution;
    AddExtras(document_.cellExtras, document_.PosOf(index), object);
    return object.size() == 1 ? label : object;
  }

  Json SolutionCell(int index) const {
    const Cell& cell = document_.cells[index];
    if (cell.kind == Cell::Kind::Void) return nullptr;
    if (cell.kind == Cell::Kind::Block) return "#";
    if (cell.solution == "#") return Json::object({{"value", "#"}});
    return cell.solution;
  }

  void AddGrid(std::string_view key, Json (IpuzWriter::*cell)(int) const) {
    std::vector<std::string> rows;
    for (int row = 0; row < document_.height; ++row) {
      Json cells = Json::array();
      for (int col = 0; col < document_.width; ++col)
        cells.push_back((this->*cell)(row * document_.width + col));
      rows.push_back(Dumped(cells));
    }
    AddPart(key, InLines(rows, '[', ']', "  "));
  }

  // Every entry has a clue there, if an empty one.
  std::string ClueOf(const Entry& entry) const {
    const ClueKey key = KeyOf(document_, entry);
    Json object = {{"number", entry.number}, {"clue", ""}};
    if (const auto clue = document_.clues.find(key);
        clue != document_.clues.end()) {
      const auto& [text, answer] = clue->second;
      object["clue"] = HtmlText(text);
      if (answer != WrittenAnswer(document_, entry))
        object[kIpuzAnswer] = answer;
    }
    AddExtras(document_.clueExtras, key, object);
    if (object.size() > 2) return Dumped(object);
    return Dumped(Json::array({entry.number, object["clue"]}));
  }

  void AddClues() {
    std::vector<std::string> across, down;
    for (const Entry& entry : numbering_.entries)
      (entry.direction == Direction::Across ? across : down)
          .push_back(ClueOf(entry));
    AddPart("clues",
            InLines({"\"Across\": " + InLines(across, '[', ']', "    "),
                     "\"Down\": " + InLines(down, '[', ']', "    ")},
                    '{', '}', "  "));
  }

  void AddOurs() {
    Json pins = Json::array(), others = Json::array();
    for (const ClueKey& key : document_.pins) pins.push_back(PlaceOf(key));
    std::set<ClueKey> entries;
    for (const Entry& entry : numbering_.entries)
      entries.insert(KeyOf(document_, entry));
    for (const auto& [key, clue] : document_.clues) {
      if (entries.contains(key)) continue;
      Json other = PlaceOf(key);
      other["clue"] = HtmlText(clue.text);
      other["answer"] = clue.answer;
      others.push_back(other);
    }
    if (!pins.empty()) Add(kIpuzPins, pins);
    if (!others.empty()) Add(kIpuzOtherClues, others);
    if (!document_.rejected.empty()) Add(kIpuzRejected, document_.rejected);
    if (!document_.ruleSet.empty()) Add(kIpuzRuleSet, document_.ruleSet);
    if (document_.symmetry != Document().symmetry)
      Add(kIpuzSymmetry, NameOf(document_.symmetry).id);
  }

  const Document& document_;
  const Numbering numbering_;
  std::vector<std::string> parts_;
};

// Further keys have a place in the clues of entries only.
Document FitIpuz(const Document& document) {
  Document fitted = document;
  fitted.clueExtras.clear();
  for (const Entry& entry : NumberEntries(document).entries) {
    const auto extras = document.clueExtras.find(KeyOf(document, entry));
    if (extras != document.clueExtras.end()) fitted.clueExtras.insert(*extras);
  }
  return fitted;
}

bool RecognisesIpuz(std::string_view bytes) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF", kBlanks = " \t\r\n";
  if (bytes.starts_with(kMark)) bytes.remove_prefix(kMark.size());
  bytes.remove_prefix(std::min(bytes.find_first_not_of(kBlanks), bytes.size()));
  return (bytes.starts_with('{') || bytes.starts_with("ipuz")) &&
         bytes.find("ipuz.org") != bytes.npos;
}

}  // namespace

bool IsIpuzKey(std::string_view key) {
  return std::ranges::find(kIpuzKeys, key) != kIpuzKeys.end();
}

std::string EncodeIpuz(const Document& document) {
  return IpuzWriter(document).Bytes();
}

constexpr Format kIpuzFormat{
    .id = "ipuz",
    .name = "ipuz puzzle",
    .pattern = "*.ipuz",
    .holds = {.ours = true},
    .recognises = RecognisesIpuz,
    .decode = DecodeIpuz,
    .encode = EncodeIpuz,
    .fit = FitIpuz,
};
