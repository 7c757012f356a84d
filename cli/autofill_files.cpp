#include "cli/autofill_files.h"

#include <filesystem>
#include <map>

#include "base/text_file.h"
#include "base/utf8.h"
#include "cli/autofill_report.h"
#include "files/puzzle_file.h"

namespace fs = std::filesystem;

bool AutofillFiles::IntoFolder() const {
  std::error_code error;
  return !out.empty() && out != "-" &&
         (puzzles.size() > 1 || out.ends_with('/') ||
          fs::is_directory(out, error));
}

std::string AutofillFiles::PathOf(const std::string& puzzle, int fill) const {
  fs::path path = out;
  if (IntoFolder()) path /= fs::path(puzzle).filename();
  if (fill == 0) return path.string();
  const std::string name = path.stem().string() + "-" +
                           std::to_string(fill + 1) + path.extension().string();
  return path.replace_filename(name).string();
}

void AutofillFiles::Reserve() const {
  if (!IntoFolder()) return;
  std::error_code error;
  fs::create_directories(out, error);
  if (!fs::is_directory(out, error))
    throw FileError(out + ": no folder can be made here");
  std::map<std::string, std::string> puzzleOf;
  for (const std::string& puzzle : puzzles) {
    if (puzzle == "-")
      throw FileError(out + ": standard input has no name for a folder");
    for (int fill = 0; fill < count; ++fill) {
      const std::string path = PathOf(puzzle, fill);
      const auto [other, isNew] = puzzleOf.try_emplace(path, puzzle);
      if (!isNew)
        throw FileError(path + ": the fills of " + other->second + " and " +
                        puzzle + " would have the same name");
      if (!force && fs::exists(fs::symlink_status(path, error)))
        throw FileError(path + ": there is such a file; --force replaces it");
    }
  }
}

namespace {

Puzzle ReadRows(const std::string& path) {
  Puzzle puzzle = ReadPuzzle(path);
  std::string row = puzzle.title;
  const bool isRow =
      static_cast<int>(row.size()) == puzzle.size &&
      row.find_first_not_of("#.ABCDEFGHIJKLMNOPQRSTUVWXYZ") == row.npos &&
      row.find_first_of("#.") != row.npos;
  const std::string missing(puzzle.size, kEmptyCell);
  if (!isRow || puzzle.cells.back() != missing) return puzzle;
  std::replace(row.begin(), row.end(), '.', kEmptyCell);
  std::replace(row.begin(), row.end(), '#', kBlackSquare);
  puzzle.cells.insert(puzzle.cells.begin(), row);
  puzzle.cells.pop_back();
  puzzle.title.clear();
  return puzzle;
}

}  // namespace

Document ReadPuzzleOrGrid(const std::string& path) {
  const Puzzle puzzle = ReadRows(path);
  Document document(puzzle.size, puzzle.size);
  document.title = FromUnknown(puzzle.title);
  for (int i = 0; i < puzzle.size * puzzle.size; ++i) {
    const char c = puzzle.cells[i / puzzle.size][i % puzzle.size];
    if (c == kBlackSquare)
      document.cells[i].kind = Cell::Kind::Block;
    else if (c != kEmptyCell)
      document.cells[i].solution = FromLatin1({&c, 1});
  }
  return document;
}

std::string PuzzleText(const Document& document) {
  std::string text = document.title + "\r\n";
  for (const std::string& row : TextRows(document))
    text += ToLatin1(row).value_or("?") + "\r\n";
  return text;
}
