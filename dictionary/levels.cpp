#include "dictionary/levels.h"

#include <filesystem>

std::string LevelFilePath(const std::string& name) {
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::path program =
      fs::read_symlink("/proc/self/exe", error).parent_path();
  for (const fs::path& folder :
       {fs::path(), program, program / "../share/kelda",
        fs::path(KELDA_DATA_DIR)}) {
    const fs::path path = folder / name;
    if (fs::exists(path, error)) return path.string();
  }
  return name;
}

bool IsLevel(std::string_view list) {
  return list.size() == 1 && list >= "1" && list <= "3";
}

std::string ListPath(const std::string& list) {
  return IsLevel(list) ? LevelFilePath(kLevelFiles[list[0] - '1']) : list;
}
