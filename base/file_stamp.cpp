#include "base/file_stamp.h"

#include <array>
#include <filesystem>
#include <fstream>

namespace {

// FNV-1a.
void Add(FileStamp& stamp, std::string_view content) {
  constexpr std::uint64_t kPrime = 0x100000001b3;
  for (const char c : content)
    stamp.hash = (stamp.hash ^ static_cast<unsigned char>(c)) * kPrime;
  stamp.size += content.size();
}

FileStamp Begin() {
  return {true, 0, 0xcbf29ce484222325};
}

}  // namespace

FileStamp StampOf(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return {};
  std::ifstream file(path, std::ios::binary);
  if (!file) return {};
  FileStamp stamp = Begin();
  std::array<char, 1 << 16> buffer;
  do {
    file.read(buffer.data(), buffer.size());
    Add(stamp, {buffer.data(), static_cast<std::size_t>(file.gcount())});
  } while (file);
  return stamp;
}

FileStamp StampOfContent(std::string_view content) {
  FileStamp stamp = Begin();
  Add(stamp, content);
  return stamp;
}

FileChange ChangeSince(const FileStamp& stamp, const std::string& path) {
  if (HasVanished(stamp, path)) return FileChange::Removed;
  return StampOf(path) == stamp ? FileChange::None : FileChange::Changed;
}

bool HasVanished(const FileStamp& stamp, const std::string& path) {
  std::error_code error;
  return stamp.there && !std::filesystem::exists(path, error) && !error;
}
