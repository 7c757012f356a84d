#include "files/recovery.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <utility>

namespace {

namespace fs = std::filesystem;

constexpr char kCopy[] = ".kdp";
constexpr char kLock[] = ".lock";
constexpr char kDamaged[] = ".damaged";

std::string WithSuffix(const fs::path& path, const char* suffix) {
  return fs::path(path).replace_extension(suffix).string();
}

}  // namespace

// RecoveryLock

RecoveryLock::RecoveryLock(const std::string& path, bool make) {
  const int flags = O_RDWR | O_CLOEXEC | O_NOFOLLOW | (make ? O_CREAT : 0);
  descriptor_ = open(path.c_str(), flags, 0600);
  if (descriptor_ >= 0 && flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
    close(descriptor_);
    descriptor_ = -1;
  }
}

RecoveryLock::RecoveryLock(RecoveryLock&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)) {}

RecoveryLock& RecoveryLock::operator=(RecoveryLock&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  return *this;
}

RecoveryLock::~RecoveryLock() {
  if (descriptor_ >= 0) close(descriptor_);
}

std::string RecoveryLock::Read() const {
  std::array<char, 4096> text;  // as long as a path can be
  const ssize_t size = pread(descriptor_, text.data(), text.size(), 0);
  return size > 0 ? std::string(text.data(), static_cast<std::size_t>(size))
                  : "";
}

void RecoveryLock::Write(const std::string& text) const {
  // A path that is lost costs nothing but its name.
  if (ftruncate(descriptor_, 0) == 0)
    (void)!pwrite(descriptor_, text.data(), text.size(), 0);
}

// Recovery

std::string Recovery::DefaultFolder() {
  const char* state = std::getenv("XDG_STATE_HOME");
  if (state && *state == '/') return std::string(state) + "/kelda";
  const char* home = std::getenv("HOME");
  if (home && *home == '/') return std::string(home) + "/.local/state/kelda";
  return "";
}

void Recovery::TakeLock() {
  if (folder_.empty())
    throw FileError("There is no folder for recovery copies");
  std::error_code error;
  fs::create_directories(folder_, error);
  const std::string stem = folder_ + "/" + std::to_string(getpid()) + "-" +
                           std::to_string(std::time(nullptr));
  for (int i = 0; i < 100; ++i) {
    const std::string name = stem + "-" + std::to_string(i);
    if (fs::exists(name + kLock, error)) continue;
    RecoveryLock lock(name + kLock, true);
    if (!lock.Held()) continue;
    lock_ = std::move(lock);
    path_ = name + kCopy;
    return;
  }
  throw FileError(folder_ + ": no recovery copy can be written here");
}

void Recovery::Write(const std::string& puzzleText,
                     const std::string& puzzlePath) {
  if (!lock_.Held()) TakeLock();
  lock_.Write(puzzlePath);
  WriteFile(path_, puzzleText);
}

void Recovery::Remove() {
  if (!lock_.Held()) return;
  std::error_code error;
  fs::remove(path_, error);
  fs::remove(WithSuffix(path_, kLock), error);
  lock_ = RecoveryLock();
}

std::vector<AbandonedCopy> Recovery::FindAbandoned() const {
  std::vector<AbandonedCopy> found;
  std::error_code error;
  for (fs::directory_iterator entry(folder_, error), end;
       !error && entry != end; entry.increment(error)) {
    const fs::path path = entry->path();
    if (path.extension() != kCopy || path == path_) continue;
    struct stat status;
    if (lstat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) continue;
    AbandonedCopy copy;
    copy.path = path.string();
    copy.when = status.st_mtime;
    copy.lock = RecoveryLock(WithSuffix(path, kLock), true);
    if (!copy.lock.Held()) continue;
    copy.puzzlePath = copy.lock.Read();
    try {
      copy.puzzle = ReadPuzzle(copy.path, Opens::RegularFiles);
      found.push_back(std::move(copy));
    } catch (const FileError&) {
      std::error_code ignored;
      fs::rename(path, copy.path + kDamaged, ignored);
      fs::remove(WithSuffix(path, kLock), ignored);
    }
  }
  std::ranges::sort(found, std::ranges::greater{}, &AbandonedCopy::when);
  return found;
}

void Recovery::Discard(const AbandonedCopy& copy) {
  std::error_code error;
  fs::remove(copy.path, error);
  fs::remove(WithSuffix(copy.path, kLock), error);
}
