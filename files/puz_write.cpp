// Writing .puz (files/puz.h): what needs more than a byte a cell goes into the
// sections behind the texts, and checksums come last.

#include <algorithm>
#include <map>

#include "base/utf8.h"
#include "files/puz.h"
#include "files/puz_layout.h"

namespace {

constexpr std::size_t kLongestSection = 65535;
constexpr int kMostKeys = 100;  // a key has two digits

void AppendNumber(std::string& bytes, int number) {
  bytes += static_cast<char>(number & 0xFF);
  bytes += static_cast<char>(number >> 8 & 0xFF);
}

// The byte of a letter that needs no rebus, or 0.  Version 2.0 has ASCII
// alone in its grid, since some programs read the grid as UTF-8 there.
char ByteOf(std::string_view letters, bool utf8) {
  const auto latin1 = ToLatin1(letters);
  if (!latin1 || latin1->size() != 1) return 0;
  const char byte = latin1->front();
  const auto code = static_cast<unsigned char>(byte);
  const bool printable = (code > 0x20 && code < 0x7F) || code > 0xA0;
  const bool special =
      byte == kPuzBlock || byte == kPuzHole || byte == kPuzEmpty;
  return !printable || special || (utf8 && code >= 0x80) ? 0 : byte;
}

bool NeedsUtf8(const Document& document) {
  const auto beyond = [](const std::string& text) { return !ToLatin1(text); };
  return beyond(document.title) || beyond(document.author) ||
         beyond(document.copyright) || beyond(document.notes) ||
         std::ranges::any_of(
             document.clues,
             [&](const auto& clue) { return beyond(clue.second.text); }) ||
         std::ranges::any_of(document.cells, beyond, &Cell::solution);
}

// The cells' texts that are no single byte, with their keys in the section
// RTBL; those for which there is no room are left out.
class RebusTable {
 public:
  RebusTable(const Document& document, bool utf8) : utf8_(utf8) {
    for (const Cell& cell : document.cells)
      if (!cell.solution.empty() && ByteOf(cell.solution, utf8) == 0)
        Add(cell.solution);
  }

  const std::string& Text() const { return text_; }
  // The key, or -1.
  int KeyOf(const std::string& letters) const {
    const auto found = keys_.find(letters);
    return found == keys_.end() ? -1 : found->second;
  }

 private:
  void Add(const std::string& letters) {
    const int key = static_cast<int>(keys_.size());
    if (keys_.contains(letters) || key == kMostKeys ||
        letters.find_first_of(std::string_view(";\0", 2)) != std::string::npos)
      return;
    const std::string item = (key < 10 ? " " : "") + std::to_string(key) + ":" +
                             (utf8_ ? letters : *ToLatin1(letters)) + ";";
    if (text_.size() + item.size() > kLongestSection) return;
    keys_[letters] = key;
    text_ += item;
  }

  const bool utf8_;
  std::string text_;
  std::map<std::string, int> keys_;
};

// The document as it comes back from a .puz.
Document FitPuz(const Document& document) {
  Document kept = document;
  const bool utf8 = NeedsUtf8(document);
  const RebusTable table(document, utf8);
  for (Cell& cell : kept.cells) {
    if (table.KeyOf(cell.solution) >= 0) continue;
    if (ByteOf(cell.solution, utf8) == 0)
      cell.solution = FirstChar(cell.solution);
    if (ByteOf(cell.solution, utf8) == 0) cell.solution.clear();
  }
  return kept;
}

bool RecognisesPuz(std::string_view bytes) {
  return PuzStart(bytes) != std::string_view::npos;
}

class PuzWriter {
 public:
  explicit PuzWriter(const Document& kept)
      : document_(kept), utf8_(NeedsUtf8(kept)), table_(kept, utf8_) {}

  std::string Bytes() {
    Grids();
    Texts();
    std::string bytes = Header() + solution_ + letters_;
    for (const std::string& text : texts_) bytes.append(text).push_back('\0');
    if (!table_.Text().empty()) {
      AppendSection(bytes, "GRBS", rebus_);
      AppendSection(bytes, "RTBL", table_.Text());
    }
    if (marks_.find_first_not_of('\0') != std::string::npos)
      AppendSection(bytes, "GEXT", marks_);
    return bytes;
  }

 private:
  // The byte that programs without rebus show.
  char SolutionByte(const Cell& cell) const {
    if (cell.kind == Cell::Kind::Block) return kPuzBlock;
    if (cell.kind == Cell::Kind::Void) return kPuzHole;
    if (cell.solution.empty()) return kPuzEmpty;
    const char byte = ByteOf(FirstChar(cell.solution), utf8_);
    return byte == 0 ? 'X' : byte;
  }

  void Grids() {
    for (const Cell& cell : document_.cells) {
      const char byte = SolutionByte(cell);
      const bool white = cell.kind == Cell::Kind::White;
      solution_ += byte;
      letters_ += !white ? kPuzBlock : cell.given ? byte : kPuzEmpty;
      rebus_ += static_cast<char>(table_.KeyOf(cell.solution) + 1);
      marks_ += static_cast<char>((cell.circled ? kPuzCircled : 0) |
                                  (cell.given ? kPuzGiven : 0));
    }
  }

  void AddText(const std::string& text) {
    texts_.push_back(utf8_ ? text : *ToLatin1(text));
  }

  void Texts() {
    AddText(document_.title);
    AddText(document_.author);
    AddText(document_.copyright);
    for (const Entry& entry : EntriesByNumber(document_)) {
      const auto clue = document_.clues.find(KeyOf(document_, entry));
      AddText(clue == document_.clues.end() ? "" : clue->second.text);
    }
    AddText(document_.notes);
  }

  // The eight bytes from the width on.
  std::string Sizes() const {
    const bool anyLetter = std::ranges::any_of(
        document_.cells,
        [](const Cell& cell) { return !cell.solution.empty(); });
    std::string sizes{static_cast<char>(document_.width),
                      static_cast<char>(document_.height)};
    AppendNumber(sizes, static_cast<int>(texts_.size()) - 4);
    AppendNumber(sizes, kPuzNormal);
    AppendNumber(sizes, anyLetter ? 0 : kPuzNoSolution);
    return sizes;
  }

  std::string Header() const {
    const std::string sizes = Sizes();
    const PuzSums sums =
        PuzParts{sizes, solution_, letters_, {texts_.begin(), texts_.end()}}
            .Sums();
    std::string header;
    AppendNumber(header, sums.overall);
    header += kPuzMagic;
    AppendNumber(header, sums.header);
    const auto masked = sums.Masked();
    header.append(masked.begin(), masked.end());
    header += utf8_ ? "2.0" : "1.3";
    header.resize(kPuzWidth);
    return header + sizes;
  }

  static void AppendSection(std::string& bytes, std::string_view name,
                            const std::string& data) {
    bytes += name;
    AppendNumber(bytes, static_cast<int>(data.size()));
    AppendNumber(bytes, PuzSum(data));
    bytes.append(data).push_back('\0');
  }

  const Document& document_;
  const bool utf8_;
  const RebusTable table_;
  std::string solution_, letters_, rebus_, marks_;
  std::vector<std::string> texts_;
};

}  // namespace

std::string EncodePuz(const Document& document) {
  return PuzWriter(document).Bytes();
}

const Format kPuzFormat = {
    .id = "puz",
    .name = "Across Lite puzzle",
    .pattern = "*.puz",
    .holds = {.bars = false, .shades = Capacity::Shades::None},
    .recognises = RecognisesPuz,
    .decode = DecodePuz,
    .encode = EncodePuz,
    .fit = FitPuz,
};
