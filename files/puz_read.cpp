// Reading .puz (files/puz.h), part after part in the order of the file.  A
// wrong checksum is told and never a reason to refuse: files that were edited
// by hand have them.

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "base/text.h"
#include "base/utf8.h"
#include "files/losses.h"
#include "files/puz.h"
#include "files/puz_layout.h"
#include "files/tidy.h"

namespace {

std::uint8_t ByteAt(std::string_view bytes, std::size_t at) {
  return static_cast<std::uint8_t>(bytes[at]);
}

int NumberAt(std::string_view bytes, std::size_t at) {
  return ByteAt(bytes, at) | ByteAt(bytes, at + 1) << 8;
}

// "1.3" is 103; what is no version counts as 1.3, the commonest.
int VersionOf(std::string_view header) {
  const auto digit = [&](int at) { return header[kPuzVersion + at] - '0'; };
  const bool good = digit(0) >= 1 && digit(0) <= 9 && digit(1) == '.' - '0' &&
                    digit(2) >= 0 && digit(2) <= 9;
  return good ? digit(0) * 100 + digit(2) : 103;
}

class PuzReader {
 public:
  explicit PuzReader(std::string_view bytes)
      : offset_(PuzStart(bytes)), rest_(bytes) {}

  Reading Read() {
    ReadHeader();
    ReadGrids();
    ReadTexts();
    CheckSums();
    ReadSections();
    if (HasPlayersLetters()) Tell("a player's letters");
    ReadRebus();
    PlaceClues();
    return std::move(reading_);
  }

 private:
  void Tell(std::string text) {
    reading_.passedOver.push_back(std::move(text));
  }
  [[noreturn]] void Fail(std::size_t at, const std::string& what) const {
    throw FormatError("offset " + std::to_string(at) + ": " + what);
  }
  std::string_view Take(std::size_t size) {
    const std::string_view taken = rest_.substr(0, size);
    rest_.remove_prefix(taken.size());
    return taken;
  }

  void ReadHeader() {
    if (offset_ == std::string_view::npos)
      Fail(kPuzMagicAt, "expected \"ACROSS&DOWN\"");
    if (Take(offset_).size() > 0)
      Tell(std::to_string(offset_) + " bytes before the puzzle");
    header_ = Take(kPuzHeaderSize);
    if (header_.size() < kPuzHeaderSize)
      Fail(offset_, "the header has " + std::to_string(header_.size()) +
                        " bytes instead of " + std::to_string(kPuzHeaderSize));
    const int width = ByteAt(header_, kPuzWidth);
    const int height = ByteAt(header_, kPuzHeight);
    CheckSides(width, height);
    document_ = Document(width, height);
    version_ = VersionOf(header_);
  }

  void ReadGrids() {
    const std::size_t count = document_.cells.size();
    parts_.solution = Take(count);
    if (parts_.solution.size() < count)
      Fail(offset_ + kPuzHeaderSize,
           "the solution has " + std::to_string(parts_.solution.size()) +
               " cells instead of " + std::to_string(count));
    parts_.letters = Take(count);
    if (parts_.letters.size() < count) Tell("the file ends before its texts");
    ReadCells();
  }

  // Makes the cells of the bytes of the solution.
  void ReadCells() {
    const int kind = NumberAt(header_, kPuzKind);
    const bool diagramless = NumberAt(header_, kPuzType) == kPuzDiagramless;
    const bool locked = kind == kPuzLocked;
    if (diagramless) Tell("it is a diagramless puzzle: its blocks are shown");
    if (locked) Tell("locked: no letters can be read");
    // Puzzles without a solution have the letter X all over.
    hasLetters_ = !locked && (kind != kPuzNoSolution ||
                              parts_.solution.find_first_not_of("X.:-") !=
                                  std::string_view::npos);
    for (std::size_t i = 0; i < document_.cells.size(); ++i) {
      Cell& cell = document_.cells[i];
      const char byte = parts_.solution[i];
      const auto code = static_cast<unsigned char>(byte);
      if (byte == kPuzBlock || (diagramless && byte == kPuzHole))
        cell.kind = Cell::Kind::Block;
      else if (byte == kPuzHole)
        cell.kind = Cell::Kind::Void;
      else if (hasLetters_ && byte != kPuzEmpty && code > ' ' && code != 0x7F)
        cell.solution = FromLatin1(parts_.solution.substr(i, 1));
    }
  }

  // The next text, up to its NUL or the end of the file.
  std::string_view TakeText() {
    const std::size_t end = std::min(rest_.find('\0'), rest_.size());
    const std::string_view text = Take(end);
    Take(1);
    return text;
  }

  void ReadTexts() {
    const int clues = NumberAt(header_, kPuzClueCount);
    int missing = 0;
    for (int i = 0; i < clues + 4; ++i) {
      if (rest_.empty() && i >= 3 && i < clues + 3) ++missing;
      parts_.texts.push_back(TakeText());
    }
    if (missing > 0)
      Tell("the file ends before " + std::to_string(missing) + " of its " +
           std::to_string(clues) + " clues");
    document_.title = Decoded(parts_.texts[0]);
    document_.author = Decoded(parts_.texts[1]);
    document_.copyright = Decoded(parts_.texts[2]);
    document_.notes = Decoded(parts_.texts.back());
  }

  std::string Decoded(std::string_view text) const {
    const bool utf8 = version_ >= 200 && IsUtf8(text);
    return utf8 ? std::string(text) : FromLatin1(text);
  }

  void CheckSums() {
    parts_.sizes = header_.substr(kPuzWidth);
    parts_.notesCount = version_ >= 103;
    const PuzSums sums = parts_.Sums();
    const auto masked = sums.Masked();
    const auto expect = [this](std::string_view of, bool right) {
      if (!right) Tell("the checksum of the " + std::string(of) + " is wrong");
    };
    const auto maskedIsRight = [&](int part) {
      return header_[kPuzMaskedSums + part] == masked[part] &&
             header_[kPuzMaskedSums + 4 + part] == masked[4 + part];
    };
    expect("file", NumberAt(header_, kPuzOverallSum) == sums.overall);
    expect("header",
           NumberAt(header_, kPuzHeaderSum) == sums.header && maskedIsRight(0));
    expect("solution", maskedIsRight(1));
    expect("player's letters", maskedIsRight(2));
    expect("texts", maskedIsRight(3));
  }

  // Goes to the next section that has a known name.
  bool FindSection() {
    std::size_t first = std::string_view::npos;
    for (const std::string_view name : {"GRBS", "RTBL", "LTIM", "GEXT", "RUSR"})
      first = std::min(first, rest_.find(name));
    const std::string_view before = Take(std::min(first, rest_.size()));
    if (before.find_first_not_of('\0') != std::string_view::npos)
      Tell(std::to_string(before.size()) + " bytes that are no section");
    return !rest_.empty();
  }

  void ReadSections() {
    constexpr std::size_t kSectionHeader = 8;
    while (FindSection()) {
      const std::string name(Take(4));
      sections_.insert(name);
      if (rest_.size() + 4 < kSectionHeader)
        return Tell("the file ends within the section " + name);
      const std::string_view sizes = Take(4);
      const std::size_t size = NumberAt(sizes, 0);
      const std::string_view data = Take(size);
      if (data.size() < size)
        Tell("the file ends within the section " + name);
      else if (PuzSum(data) != NumberAt(sizes, 2))
        Tell("the checksum of the section " + name + " is wrong");
      UseSection(name, data);
    }
  }

  void UseSection(const std::string& name, std::string_view data) {
    const bool byCell = name == "GRBS" || name == "GEXT";
    if (byCell && data.size() != document_.cells.size())
      Tell("the section " + name + " has " + std::to_string(data.size()) +
           " cells instead of " + std::to_string(document_.cells.size()));
    if (name == "GRBS") rebus_ = data;
    if (name == "RTBL") rebusTable_ = data;
    if (name == "LTIM") Tell("a player's time");
    if (name == "GEXT") ReadMarks(data);
    if (name == "RUSR") longAnswers_ = data;
  }

  void ReadMarks(std::string_view marks) {
    for (std::size_t i = 0; i < std::min(marks.size(), document_.cells.size());
         ++i) {
      document_.cells[i].circled = ByteAt(marks, i) & kPuzCircled;
      document_.cells[i].given = ByteAt(marks, i) & kPuzGiven;
    }
  }

  bool HasPlayersLetters() const {
    if (longAnswers_.find_first_not_of('\0') != std::string_view::npos)
      return true;
    for (std::size_t i = 0; i < parts_.letters.size(); ++i) {
      const Cell& cell = document_.cells[i];
      const bool isLetter = std::string_view("-.: ").find(parts_.letters[i]) ==
                            std::string_view::npos;
      if (isLetter && cell.kind == Cell::Kind::White && !cell.given)
        return true;
    }
    return false;
  }

  // The texts of the table " 0:HEART; 1:CLUB;" by their number.
  std::map<int, std::string> RebusTexts() {
    std::map<int, std::string> texts;
    std::string_view table = rebusTable_;
    while (!table.empty()) {
      const std::string_view item = table.substr(0, table.find(';'));
      table.remove_prefix(std::min(item.size() + 1, table.size()));
      const std::size_t colon = item.find(':');
      const std::string_view key = Trimmed(item.substr(0, colon));
      const bool isKey =
          !key.empty() && key.size() <= 3 &&
          key.find_first_not_of("0123456789") == std::string_view::npos;
      if (isKey && colon != std::string_view::npos)
        texts[ValToInt(key)] = Decoded(item.substr(colon + 1));
    }
    return texts;
  }

  void ReadRebus() {
    if (!hasLetters_) return;
    const std::map<int, std::string> texts = RebusTexts();
    std::vector<int> missing;
    for (std::size_t i = 0; i < std::min(rebus_.size(), document_.cells.size());
         ++i) {
      Cell& cell = document_.cells[i];
      if (rebus_[i] == 0 || cell.kind != Cell::Kind::White) continue;
      const auto text = texts.find(ByteAt(rebus_, i) - 1);
      if (text == texts.end())
        missing.push_back(static_cast<int>(i));
      else
        cell.solution = text->second;
    }
    if (!missing.empty())
      Tell(Counted(missing.size(), "rebus without a text",
                   "rebuses without a text",
                   "at " + CellName(document_.PosOf(missing[0]))));
  }

  void PlaceClues() {
    const std::vector<Entry> entries = EntriesByNumber(document_);
    const std::size_t clues = parts_.texts.size() - 4;
    for (std::size_t i = 0; i < std::min(entries.size(), clues); ++i) {
      const std::string text = Decoded(parts_.texts[3 + i]);
      if (!text.empty())
        document_.clues[KeyOf(document_, entries[i])].text = text;
    }
    if (clues < entries.size())
      Tell("there are " + std::to_string(clues) + " clues for " +
           std::to_string(entries.size()) + " entries");
    if (clues > entries.size())
      Tell(Counted(
          clues - entries.size(), "clue for no entry", "clues for no entry",
          "\"" + OnOneLine(Decoded(parts_.texts[3 + entries.size()])) + "\""));
  }

  const std::size_t offset_;  // of the puzzle in the file
  std::string_view rest_;     // of the file
  std::string_view header_;
  int version_ = 0;
  bool hasLetters_ = true;
  PuzParts parts_;
  std::set<std::string, std::less<>> sections_;  // that were there
  std::string_view rebus_, rebusTable_, longAnswers_;
  Reading reading_;
  Document& document_ = reading_.document;
};

}  // namespace

Reading DecodePuz(std::string_view bytes) {
  return PuzReader(bytes).Read();
}
