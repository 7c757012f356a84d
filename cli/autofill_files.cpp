#include "cli/autofill_files.h"

#include <filesystem>
#include <map>

#include "base/text_file.h"

namespace fs = std::filesystem;

bool AutofillFiles::IntoFolder() const {
  std::error_code error;
  return !out.name.empty() && out.name != "-" &&
         (puzzles.size() > 1 || out.name.ends_with('/') ||
          fs::is_directory(out.name, error));
}

std::string AutofillFiles::PathOf(const std::string& puzzle, int fill) const {
  fs::path path = out.name;
  if (IntoFolder()) path /= fs::path(puzzle).filename();
  if (fill == 0 || out.name == "-") return path.string();
  const std::string name = path.stem().string() + "-" +
                           std::to_string(fill + 1) + path.extension().string();
  return path.replace_filename(name).string();
}

std::string AutofillFiles::PrefixOf(const std::string& puzzle) const {
  return puzzles.size() > 1 ? puzzle + ": " : "";
}

void AutofillFiles::CheckIsFree(const std::string& path) const {
  std::error_code error;
  if (!out.force && fs::exists(fs::symlink_status(path, error)))
    throw FileError(path + ": there is such a file; --force replaces it");
}

void AutofillFiles::Reserve() const {
  if (out.name.empty() || out.name == "-") return;
  if (!IntoFolder()) {
    for (int fill = 1; fill < count; ++fill)
      CheckIsFree(PathOf(puzzles.front(), fill));
    return;
  }
  std::error_code error;
  fs::create_directories(out.name, error);
  if (!fs::is_directory(out.name, error))
    throw FileError(out.name + ": no folder can be made here");
  std::map<std::string, std::string> puzzleOf;
  for (const std::string& puzzle : puzzles) {
    if (puzzle == "-")
      throw FileError(out.name + ": standard input has no name for a folder");
    for (int fill = 0; fill < count; ++fill) {
      const std::string path = PathOf(puzzle, fill);
      const auto [other, isNew] = puzzleOf.try_emplace(path, puzzle);
      if (!isNew)
        throw FileError(path + ": the fills of " + other->second + " and " +
                        puzzle + " would have the same name");
      CheckIsFree(path);
    }
  }
}
