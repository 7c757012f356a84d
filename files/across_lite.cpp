#include "files/across_lite.h"

#include <algorithm>
#include <map>

#include "base/text.h"
#include "base/utf8.h"
#include "files/letter_grid.h"
#include "files/losses.h"
#include "puzzle/numbering.h"

namespace {

constexpr LetterGridStyle kStyle = {'.', ':', '-', "1234567890@#$%&+?"};
constexpr std::string_view kFirstTag = "<ACROSS PUZZLE>";
constexpr std::string_view kFirstTagOf2 = "<ACROSS PUZZLE V2>";
constexpr std::string_view kCircles = "MARK;";
constexpr std::string_view kNoClue = "-";
constexpr std::string_view kTags[] = {
    kFirstTag, kFirstTagOf2, "<TITLE>",  "<AUTHOR>", "<COPYRIGHT>", "<SIZE>",
    "<GRID>",  "<REBUS>",    "<ACROSS>", "<DOWN>",   "<NOTEPAD>"};

struct Line {
  int number;
  std::string_view bytes;
};

std::string TextOf(const Line& line) {
  return OnOneLine(FromUnknown(line.bytes));
}

// The tag of a line, or "".  A line of a section that looks like one is
// indented.
std::string_view TagOf(std::string_view line) {
  const std::string text = UpperCase(OnOneLine(line));
  if (!line.starts_with('<')) return "";
  const auto tag = std::ranges::find(kTags, text);
  return tag == std::end(kTags) ? "" : *tag;
}

// The width that a text such as "15x12" tells, or 0.
int WidthOf(const std::string& size) {
  const bool isSize = size.find_first_of("xX") != std::string::npos;
  return isSize ? ValToInt(size.substr(0, size.find_first_of("xX"))) : 0;
}

class AcrossLiteReader {
 public:
  explicit AcrossLiteReader(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    std::vector<Line>* section = &sections_[kFirstTag];
    int number = 0;
    for (const std::string_view line : LinesOf(bytes)) {
      ++number;
      const std::string_view tag = TagOf(line);
      if (tag.empty())
        section->push_back({number, line});
      else
        section = &sections_[tag];
    }
  }

  Reading Read() {
    ReadRebus();
    ReadGrid();
    Document& document = reading_.document;
    document.title = JoinedLines("<TITLE>", " ");
    document.author = JoinedLines("<AUTHOR>", " ");
    document.copyright = JoinedLines("<COPYRIGHT>", " ");
    document.notes = JoinedLines("<NOTEPAD>", "\n");
    ReadClues("<ACROSS>", Direction::Across);
    ReadClues("<DOWN>", Direction::Down);
    for (const std::string_view tag : {kFirstTag, kFirstTagOf2})
      for (const Line& line : FilledLines(tag))
        strange_.push_back(TextOf(line));
    if (!strange_.empty())
      Tell(Counted(strange_.size(), "line of no known meaning",
                   "lines of no known meaning", "\"" + strange_[0] + "\""));
    return std::move(reading_);
  }

 private:
  void Tell(std::string text) {
    reading_.passedOver.push_back(std::move(text));
  }

  // The lines of a section that are not blank.
  std::vector<Line> FilledLines(std::string_view tag) {
    std::vector<Line> filled = sections_[tag];
    std::erase_if(filled,
                  [](const Line& line) { return TextOf(line).empty(); });
    return filled;
  }

  std::string JoinedLines(std::string_view tag, const std::string& between) {
    std::string text;
    for (const Line& line : sections_[tag]) text += TextOf(line) + between;
    return WithoutOuterBlanks(text);
  }

  // Keys such as "1:HEART:H", of which the last part is the letter that
  // programs without rebus show.
  void ReadRebus() {
    for (const Line& line : FilledLines("<REBUS>")) {
      const std::string text = TextOf(line);
      const std::string key(FirstChar(text));
      const std::size_t begin = key.size() + 1;
      if (UpperCase(text).starts_with(kCircles.substr(0, 4)))
        grid_.mark = LetterMark::Circle;
      else if (text.size() > begin && text[begin - 1] == ':')
        grid_.keys[key] = text.substr(begin, LastColon(text, begin) - begin);
      else
        strange_.push_back(text);
    }
  }

  static std::size_t LastColon(const std::string& text, std::size_t begin) {
    const std::size_t colon = text.rfind(':');
    return colon >= begin ? colon : text.size();
  }

  // A row with a byte for each cell of the size is ISO 8859-1, whatever else
  // the bytes could be.
  void ReadGrid() {
    const auto size = FilledLines("<SIZE>");
    const std::string sizeText = size.empty() ? "" : TextOf(size[0]);
    const int width = WidthOf(sizeText);
    for (const Line& line : FilledLines("<GRID>")) {
      const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
      std::string bytes(line.bytes);
      std::erase_if(bytes, isBlank);
      const bool latin1 = static_cast<int>(bytes.size()) == width;
      grid_.rows.push_back(
          {line.number, latin1 ? FromLatin1(bytes) : FromUnknown(bytes)});
    }
    Document& document = reading_.document;
    document = grid_.ToDocument(kStyle);
    const std::string right =
        std::to_string(document.width) + "x" + std::to_string(document.height);
    if (!sizeText.empty() && UpperCase(sizeText) != UpperCase(right))
      Tell("the size " + sizeText + " is wrong: the grid is " + right);
  }

  void ReadClues(std::string_view tag, Direction direction) {
    Document& document = reading_.document;
    std::vector<Entry> entries = NumberEntries(document).entries;
    std::erase_if(entries, [&](const Entry& entry) {
      return entry.direction != direction;
    });
    const std::vector<Line> lines = FilledLines(tag);
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const std::string text = TextOf(lines[i]);
      if (i >= entries.size())
        strange_.push_back(text);
      else if (text != kNoClue)
        document.clues[KeyOf(document, entries[i])].text = text;
    }
    if (lines.size() < entries.size())
      Tell("there are " + std::to_string(lines.size()) + " clues for " +
           std::to_string(entries.size()) +
           (direction == Direction::Across ? " across" : " down") + " entries");
  }

  std::map<std::string_view, std::vector<Line>> sections_;
  LetterGrid grid_;
  std::vector<std::string> strange_;
  Reading reading_;
};

bool RecognisesAcrossLite(std::string_view bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  const std::size_t first = bytes.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return false;
  const auto line = UpperCase(bytes.substr(first, kFirstTagOf2.size()));
  return line.starts_with(kFirstTag) || line.starts_with(kFirstTagOf2);
}

Reading DecodeAcrossLite(std::string_view bytes) {
  return AcrossLiteReader(bytes).Read();
}

bool IsLatin1(std::string_view letters) {
  return ToLatin1(letters).has_value();
}

// A text of one line as it comes back.
std::string Stored(const std::string& text) {
  const auto latin1 = ToLatin1(text);
  return OnOneLine(latin1 ? FromUnknown(*latin1) : text);
}

Document FitAcrossLite(const Document& document) {
  Document kept = WithLetterKeys(document, kStyle);
  kept.title = Stored(kept.title);
  kept.author = Stored(kept.author);
  kept.copyright = Stored(kept.copyright);
  std::string notes;
  for (const std::string_view line : LinesOf(kept.notes))
    notes += Stored(std::string(line)) + "\n";
  kept.notes = WithoutOuterBlanks(notes);
  for (auto& [key, clue] : kept.clues) clue.text = Stored(clue.text);
  std::erase_if(kept.clues, [](const auto& item) {
    return item.second.text.empty() || item.second.text == kNoClue;
  });
  return kept;
}

class AcrossLiteWriter {
 public:
  explicit AcrossLiteWriter(const Document& fitted)
      : document_(fitted), keys_(fitted, kStyle) {}

  std::string Text() {
    const bool anyHole =
        std::ranges::count(document_.cells, Cell::Kind::Void, &Cell::kind) > 0;
    const bool version2 = anyHole || keys_.AnyMark() || !keys_.Keys().empty();
    text_.append(version2 ? kFirstTagOf2 : kFirstTag) += "\n";
    AddSection("<TITLE>", {document_.title});
    AddSection("<AUTHOR>", {document_.author});
    AddSection("<COPYRIGHT>", {document_.copyright});
    AddSection("<SIZE>", {std::to_string(document_.width) + "x" +
                          std::to_string(document_.height)});
    std::vector<std::string> rows;
    for (int row = 1; row <= document_.height; ++row)
      rows.push_back(keys_.RowOf(document_, row));
    AddSection("<GRID>", rows);
    if (!RebusLines().empty()) AddSection("<REBUS>", RebusLines());
    AddSection("<ACROSS>", ClueLines(Direction::Across));
    AddSection("<DOWN>", ClueLines(Direction::Down));
    if (!document_.notes.empty()) {
      const auto lines = LinesOf(document_.notes);
      AddSection("<NOTEPAD>", {lines.begin(), lines.end()});
    }
    return std::move(text_);
  }

 private:
  void AddSection(std::string_view tag, const std::vector<std::string>& lines) {
    text_.append(tag) += "\n";
    for (const std::string& line : lines)
      text_ += "    " + ToLatin1(line).value_or(line) + "\n";
  }

  std::vector<std::string> RebusLines() const {
    std::vector<std::string> lines;
    if (keys_.AnyMark()) lines.emplace_back(kCircles);
    for (const auto& [key, letters] : keys_.Keys()) {
      const char first = letters[0];
      const bool capital = first >= 'A' && first <= 'Z';
      lines.push_back(std::string{key} + ":" + letters + ":" +
                      (capital ? first : 'X'));
    }
    return lines;
  }

  std::vector<std::string> ClueLines(Direction direction) const {
    std::vector<std::string> lines;
    for (const Entry& entry : NumberEntries(document_).entries) {
      if (entry.direction != direction) continue;
      const auto clue = document_.clues.find(KeyOf(document_, entry));
      lines.push_back(clue == document_.clues.end() ? std::string(kNoClue)
                                                    : clue->second.text);
    }
    return lines;
  }

  const Document& document_;
  const LetterKeys keys_;
  std::string text_;
};

std::string EncodeAcrossLite(const Document& document) {
  return AcrossLiteWriter(document).Text();
}

}  // namespace

const Format kAcrossLiteFormat = {
    .id = "txt",
    .name = "Across Lite text",
    .pattern = "*.txt",
    .holds = {.bars = false,
              .letters = IsLatin1,
              .shades = Capacity::Shades::None,
              .givens = false,
              .unicode = false},
    .recognises = RecognisesAcrossLite,
    .decode = DecodeAcrossLite,
    .encode = EncodeAcrossLite,
    .fit = FitAcrossLite,
};
