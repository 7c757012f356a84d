#include "files/xd.h"

#include <algorithm>
#include <optional>
#include <set>

#include "base/text.h"
#include "base/utf8.h"
#include "files/letter_grid.h"
#include "files/losses.h"
#include "puzzle/numbering.h"

namespace {

constexpr LetterGridStyle kStyle = {'#', '_', '.', "1234567890!$%&*+?@^"};
// As some programs write it, with no sign for an empty cell.
constexpr LetterGridStyle kDotted = {'.', '_', '\0', kStyle.keys};
constexpr std::string_view kAnswerMark = " ~ ";

enum class Section { Fields, Grid, Clues, Notes, Other };

struct XdClue {
  std::string label;  // "A17"
  std::string text;

  std::string EntryName() const { return label.substr(1) + label[0]; }
};

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsFieldName(std::string_view name) {
  return !name.empty() && std::ranges::all_of(name, [](char c) {
    return (UpperCase({&c, 1})[0] >= 'A' && UpperCase({&c, 1})[0] <= 'Z') ||
           IsDigit(c) || c == ' ' || c == '-' || c == '_';
  });
}

// The name and the value of a line such as "Title: Mini".
std::optional<std::pair<std::string, std::string>> ParseField(
    std::string_view line) {
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos || !IsFieldName(line.substr(0, colon)))
    return std::nullopt;
  return std::pair(UpperCase(OnOneLine(line.substr(0, colon))),
                   OnOneLine(line.substr(colon + 1)));
}

// A line such as "A17. Pet ~ CAT".
std::optional<XdClue> ParseClue(std::string_view line) {
  const std::size_t point = line.find('.');
  if (point == std::string_view::npos || point < 2) return std::nullopt;
  const std::string label = UpperCase(line.substr(0, point));
  if ((label[0] != 'A' && label[0] != 'D') ||
      !std::all_of(label.begin() + 1, label.end(), IsDigit))
    return std::nullopt;
  // A blank for the one that was trimmed where the answer is empty.
  const std::string text = std::string(line.substr(point + 1)) + " ";
  return XdClue{label, OnOneLine(text.substr(0, text.rfind(kAnswerMark)))};
}

// The section that a heading such as "## Grid" begins.
std::optional<Section> ParseHeading(std::string_view line) {
  if (!line.starts_with("## ")) return std::nullopt;
  const std::string name = UpperCase(OnOneLine(line.substr(3)));
  if (name == "METADATA") return Section::Fields;
  if (name == "GRID") return Section::Grid;
  if (name == "CLUES") return Section::Clues;
  if (name == "NOTES") return Section::Notes;
  return Section::Other;
}

class XdReader {
 public:
  Reading Read(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    for (const std::string_view line : LinesOf(bytes)) {
      ++lineNumber_;
      ReadLine(FromUnknown(line));
    }
    MakeDocument();
    TellStrangeLines();
    return std::move(reading_);
  }

  // Whether what was read had more than a title and the rows of some grid.
  bool SawXd() const {
    return underHeadings_ || fieldsApart_ || !clues_.empty();
  }

 private:
  void ReadLine(const std::string& line) {
    const std::string text = OnOneLine(line);
    if (BeginsSection(text)) return;
    if (!text.empty() && !underHeadings_) section_ = SectionOf(text);
    if (section_ == Section::Notes) notes_ += line + "\n";
    if (section_ == Section::Grid && grid_.rows.empty() && blankLines_ > 0)
      fieldsApart_ = sawField_;
    blankLines_ = text.empty() ? blankLines_ + 1 : 0;
    if (text.empty()) return;
    if (section_ == Section::Fields) ReadField(text);
    if (section_ == Section::Grid) grid_.rows.push_back({lineNumber_, text});
    if (section_ == Section::Clues) ReadClue(text);
    if (section_ == Section::Other) strange_.push_back(text);
  }

  // In the notes only headings that are still to come are any.
  bool BeginsSection(const std::string& text) {
    const auto heading = ParseHeading(text);
    if (!heading) return false;
    const bool begun = seen_.contains(*heading);
    if (section_ == Section::Notes && (begun || *heading == Section::Other))
      return false;
    section_ = *heading;
    seen_.insert(section_);
    underHeadings_ = true;
    return true;
  }

  // Where there are no headings: the section that a line belongs to.
  Section SectionOf(const std::string& text) const {
    if (section_ == Section::Fields)
      return ParseField(text) ? Section::Fields : Section::Grid;
    if (section_ == Section::Grid)
      return blankLines_ > 0 ? Section::Clues : Section::Grid;
    const bool begins = blankLines_ > 1 && !clues_.empty() && !ParseClue(text);
    return begins ? Section::Notes : section_;
  }

  void ReadField(const std::string& text) {
    const auto field = ParseField(text);
    if (!field) return strange_.push_back(text);
    const auto& [name, value] = *field;
    sawField_ = true;
    if (name == "TITLE") {
      title_ = value;
    } else if (name == "AUTHOR") {
      author_ = value;
    } else if (name == "COPYRIGHT") {
      copyright_ = value;
    } else if (name == "SPECIAL") {
      const bool shade = UpperCase(value).starts_with("SHADE");
      grid_.mark = shade ? LetterMark::Shade : LetterMark::Circle;
    } else if (name == "REBUS") {
      ReadKeys(value);
    } else if (!value.empty()) {
      strange_.push_back(text);
    }
  }

  // Keys such as "1=HEART 2=CLUB".
  void ReadKeys(std::string_view value) {
    while (!value.empty()) {
      const std::string item(value.substr(0, value.find_first_of(" \t")));
      value.remove_prefix(std::min(item.size() + 1, value.size()));
      const std::string key(FirstChar(item));
      if (item.size() > key.size() + 1 && item[key.size()] == '=')
        grid_.keys[key] = item.substr(key.size() + 1);
      else if (!item.empty())
        strange_.push_back(item);
    }
  }

  void ReadClue(const std::string& text) {
    auto clue = ParseClue(text);
    if (clue)
      clues_.push_back(std::move(*clue));
    else
      strange_.push_back(text);
  }

  void MakeDocument() {
    Document& document = reading_.document;
    document = grid_.ToDocument(kStyle);
    if (std::ranges::none_of(document.cells, [](const Cell& cell) {
          return cell.kind == Cell::Kind::Block;
        })) {
      // Dots are blocks where more clues find their entries then.
      Document dotted = grid_.ToDocument(kDotted);
      if (CountPlaced(dotted) > CountPlaced(document))
        document = std::move(dotted);
    }
    document.title = title_;
    document.author = author_;
    document.copyright = copyright_;
    document.notes = WithoutOuterBlanks(notes_);
    const Numbering numbering = NumberEntries(document);
    for (const XdClue& clue : clues_) {
      const Entry* entry = numbering.Find(clue.EntryName());
      if (!entry)
        strange_.push_back(clue.label + ". " + clue.text);
      else if (!clue.text.empty())
        document.clues[KeyOf(document, *entry)].text = clue.text;
    }
  }

  // How many clues have an entry in a document.
  std::ptrdiff_t CountPlaced(const Document& document) const {
    const Numbering numbering = NumberEntries(document);
    return std::ranges::count_if(clues_, [&](const XdClue& clue) {
      return numbering.Find(clue.EntryName()) != nullptr;
    });
  }

  void TellStrangeLines() {
    if (strange_.empty()) return;
    reading_.passedOver.push_back(
        Counted(strange_.size(), "line of no known meaning",
                "lines of no known meaning", "\"" + strange_.front() + "\""));
  }

  int lineNumber_ = 0;
  int blankLines_ = 0;  // before this line
  bool underHeadings_ = false;
  bool sawField_ = false, fieldsApart_ = false;  // from the grid
  Section section_ = Section::Fields;
  std::set<Section> seen_;
  std::string title_, author_, copyright_, notes_;
  LetterGrid grid_;
  std::vector<XdClue> clues_;
  std::vector<std::string> strange_;
  Reading reading_;
};

bool RecognisesXd(std::string_view bytes) {
  try {
    XdReader reader;
    reader.Read(bytes);
    return reader.SawXd();
  } catch (const FormatError&) {
    return false;
  }
}

Reading DecodeXd(std::string_view bytes) {
  return XdReader().Read(bytes);
}

Document FitXd(const Document& document) {
  Document kept = WithLetterKeys(document, kStyle);
  kept.title = OnOneLine(kept.title);
  kept.author = OnOneLine(kept.author);
  kept.copyright = OnOneLine(kept.copyright);
  kept.notes = WithoutOuterBlanks(kept.notes);
  for (auto& [key, clue] : kept.clues) clue.text = OnOneLine(clue.text);
  return kept;
}

std::string FieldText(std::string_view name, const std::string& value) {
  return value.empty() ? "" : std::string(name) + ": " + value + "\n";
}

std::string FieldsText(const Document& document, const LetterKeys& keys) {
  std::string rebus, special;
  for (const auto& [key, letters] : keys.Keys())
    rebus += (rebus.empty() ? "" : " ") + std::string{key} + "=" + letters;
  if (keys.AnyMark())
    special = std::ranges::any_of(document.cells, &Cell::circled) ? "circle"
                                                                  : "shaded";
  return "Title: " + document.title + "\n" +
         FieldText("Author", document.author) +
         FieldText("Copyright", document.copyright) +
         FieldText("Special", special) + FieldText("Rebus", rebus);
}

std::string CluesText(const Document& document) {
  std::string text;
  Direction direction = Direction::Across;
  for (const Entry& entry : NumberEntries(document).entries) {
    if (entry.direction != direction && !text.empty()) text += "\n";
    direction = entry.direction;
    const auto clue = document.clues.find(KeyOf(document, entry));
    text += static_cast<char>(direction) + std::to_string(entry.number) + ".";
    if (clue != document.clues.end()) text += " " + clue->second.text;
    text.append(kAnswerMark).append(AnswerOf(document, entry)).append("\n");
  }
  return text;
}

// Headings keep apart notes that look like clues; without notes the older
// form does, which every program reads.
std::string EncodeXd(const Document& document) {
  const LetterKeys keys(document, kStyle);
  const bool headings = !document.notes.empty();
  const auto heading = [&](std::string_view name) {
    return headings ? "## " + std::string(name) + "\n\n" : "";
  };
  std::string text = heading("Metadata") + FieldsText(document, keys);
  text += "\n\n" + heading("Grid");
  for (int row = 1; row <= document.height; ++row)
    text += keys.RowOf(document, row) + "\n";
  text += "\n\n" + heading("Clues") + CluesText(document);
  if (headings) text += "\n\n" + heading("Notes") + document.notes + "\n";
  return text;
}

}  // namespace

const Format kXdFormat = {
    .id = "xd",
    .name = "xd puzzle",
    .pattern = "*.xd",
    .holds = {.bars = false,
              .shades = Capacity::Shades::OneColour,
              .shadesBesideCircles = false,
              .givens = false},
    .recognises = RecognisesXd,
    .decode = DecodeXd,
    .encode = EncodeXd,
    .fit = FitXd,
};
