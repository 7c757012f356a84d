#include "base/user_folders.h"

#include <cstdlib>
#include <filesystem>

std::string UserStateFolder() {
  const char* state = std::getenv("XDG_STATE_HOME");
  if (state && *state == '/') return std::string(state) + "/kelda";
  const char* home = std::getenv("HOME");
  if (home && *home == '/') return std::string(home) + "/.local/state/kelda";
  return "";
}

void MakePrivateFolder(const std::string& folder) {
  namespace fs = std::filesystem;
  std::error_code error;
  fs::create_directories(folder, error);
  fs::permissions(folder, fs::perms::owner_all, error);
}
