#include "files/kdp.h"

#include <algorithm>

#include "base/text.h"
#include "base/utf8.h"
#include "files/tidy.h"

namespace {

constexpr char kBlock = '#';
constexpr char kEmpty = '.';
constexpr std::size_t kLongestLine = 1 << 16;

bool IsControl(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < ' ' || code == 127;
}

[[noreturn]] void Fail(std::size_t line, const std::string& what) {
  throw FormatError("line " + std::to_string(line) + ": " + what);
}

std::string LineOf(std::string_view line, int size, std::size_t number) {
  std::string row(line.substr(0, size));
  if (std::ranges::any_of(row, IsControl))
    Fail(number, "a control character in the grid");
  row.resize(size, kEmpty);
  return row;
}

bool IsRow(std::string_view line) {
  return line.find_first_not_of("#.ABCDEFGHIJKLMNOPQRSTUVWXYZ") == line.npos;
}

// The lines of a grid that has no title, as other tools make them; none for
// what begins with a title.
std::vector<std::string_view> BareRows(std::string_view bytes) {
  std::vector<std::string_view> rows = LinesOf(bytes);
  while (!rows.empty() && rows.back().empty()) rows.pop_back();
  if (rows.size() < kSmallestSide) return {};
  const std::size_t width = rows.front().size();
  const bool isGrid = std::ranges::all_of(rows, [&](std::string_view row) {
    return row.size() == width && IsRow(row);
  });
  // A first row of letters alone may be a title, and so may the first of
  // one row too many.
  const bool isTitle =
      width % 2 == 1 && (rows.size() == width + 1 ||
                         rows.front().find_first_of("#.") == std::string::npos);
  if (!isGrid || isTitle) return {};
  return rows;
}

Document DocumentOf(const std::vector<std::string>& rows) {
  const int width = static_cast<int>(rows.front().size());
  Document document(width, static_cast<int>(rows.size()));
  for (std::size_t i = 0; i < document.cells.size(); ++i) {
    const char c = rows[i / width][i % width];
    Cell& cell = document.cells[i];
    if (c == kBlock)
      cell.kind = Cell::Kind::Block;
    else if (c != kEmpty && c != ' ')
      cell.solution = FromLatin1(std::string_view(&c, 1));
  }
  return document;
}

bool Recognises(std::string_view bytes) {
  constexpr std::size_t kLongestTitle = 1000;
  if (!BareRows(bytes).empty()) return true;
  const std::vector<std::string_view> lines = LinesOf(bytes);
  if (lines.size() < 1 + kSmallestSide || lines[0].size() > kLongestTitle)
    return false;
  const std::size_t size = lines[1].size();
  if (size % 2 == 0 || size < kSmallestSide || size > kLargestSide ||
      lines.size() < size)
    return false;
  return std::ranges::all_of(
      lines.begin() + 1,
      lines.begin() +
          static_cast<std::ptrdiff_t>(std::min(lines.size(), size + 1)),
      [&](std::string_view line) {
        return line.size() <= size && std::ranges::none_of(line, [](char c) {
                 return IsControl(c) || c == ' ';
               });
      });
}

Reading Decode(std::string_view bytes) {
  const std::vector<std::string_view> rows = BareRows(bytes);
  if (!rows.empty()) {
    CheckSides(static_cast<long>(rows.front().size()),
               static_cast<long>(rows.size()));
    return {DocumentOf({rows.begin(), rows.end()}), {}};
  }
  const KdpText text = ParseKdp(bytes);
  CheckSides(text.size, text.size);
  Reading reading{DocumentOf(text.rows), {}};
  reading.document.title = FromUnknown(text.title);
  return reading;
}

bool IsLetter(std::string_view solution) {
  const auto letter = ToLatin1(solution);
  return letter && letter->size() == 1 && !IsControl(letter->front()) &&
         *letter != "#" && *letter != ".";
}

std::string Encode(const Document& document) {
  std::vector<std::string> rows(document.height);
  for (std::size_t i = 0; i < document.cells.size(); ++i) {
    const Cell& cell = document.cells[i];
    std::string letter(1, kEmpty);
    if (cell.kind == Cell::Kind::Block)
      letter = kBlock;
    else if (!cell.solution.empty())
      letter = ToLatin1(cell.solution).value();
    rows[i / document.width] += letter;
  }
  return TextOfKdp(ToBytes(document.title), rows);
}

}  // namespace

constexpr Capacity kKdpHolds{.oddSquaresOnly = true,
                             .holes = false,
                             .bars = false,
                             .rebus = false,
                             .letters = IsLetter,
                             .circles = false,
                             .shades = Capacity::Shades::None,
                             .givens = false,
                             .clues = false,
                             .credits = false};

constexpr Format kKdpFormat{"kdp",      "Kelda grid", "*.kdp", kKdpHolds,
                            Recognises, Decode,       Encode};

KdpText ParseKdp(std::string_view bytes) {
  if (bytes.find('\0') != bytes.npos)
    throw FormatError("this is not a text file");
  const std::vector<std::string_view> lines = LinesOf(bytes);
  if (lines.empty()) throw FormatError("the file is empty");
  if (lines[0].size() > kLongestLine) Fail(1, "the line is too long");
  if (lines.size() == 1) throw FormatError("there are no grid lines");
  const std::size_t width = lines[1].size();
  if (width > kLargestSide)
    Fail(2, "the grid is " + std::to_string(width) + " cells wide, more than " +
                std::to_string(kLargestSide));
  if (width % 2 == 0) throw EvenGridSize();
  const int size = static_cast<int>(width);
  KdpText text{std::string(lines[0]), size, {}};
  for (std::size_t i = 1; i < lines.size() && i <= width; ++i)
    text.rows.push_back(LineOf(lines[i], size, i + 1));
  text.rows.resize(size, std::string(size, kEmpty));
  return text;
}

std::string TextOfKdp(std::string_view title,
                      const std::vector<std::string>& rows) {
  std::string text = std::string(title) + std::string(kLineBreak);
  for (const std::string& row : rows) text += row + std::string(kLineBreak);
  return text;
}
