#include "files/recovery.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <utility>

#include "base/text.h"
#include "base/text_file.h"
#include "base/user_folders.h"
#include "base/write_file.h"
#include "files/ipuz.h"
#include "files/json_text.h"
#include "files/kdp.h"

namespace {

namespace fs = std::filesystem;

constexpr char kCopy[] = ".ipuz";
constexpr char kOldCopy[] = ".kdp";  // of older versions
constexpr char kLock[] = ".lock";
constexpr char kDamaged[] = ".damaged";

std::string WithSuffix(const fs::path& path, const char* suffix) {
  return fs::path(path).replace_extension(suffix).string();
}

bool IsCopy(const fs::path& path) {
  return path.extension() == kCopy || path.extension() == kOldCopy;
}

// A path need not be UTF-8: "%" and two hexadecimal digits stand for what is
// not printable ASCII, and for "%".
std::string Escaped(const std::string& path) {
  std::string text;
  for (const char c : path) {
    if (c >= ' ' && c <= '~' && c != '%') {
      text += c;
      continue;
    }
    const auto code = static_cast<unsigned char>(c);
    text += '%';
    text += "0123456789abcdef"[code / 16];
    text += "0123456789abcdef"[code % 16];
  }
  return text;
}

std::string Unescaped(std::string_view text) {
  std::string path;
  for (std::size_t i = 0; i < text.size(); ++i) {
    int code = static_cast<unsigned char>(text[i]);
    if (code == '%' && i + 2 < text.size()) {
      std::from_chars(&text[i + 1], &text[i + 3], code, 16);
      i += 2;
    }
    path += static_cast<char>(code);
  }
  return path;
}

// The path comes first, after the brace.
std::string BytesOf(const Document& document, const std::string& puzzlePath) {
  const Json path = Escaped(puzzlePath);
  return "{\n  \"" + std::string(kIpuzPath) + "\": " + path.dump() + "," +
         kIpuzFormat.Write(document).substr(1);
}

void ReadContent(std::string_view bytes, AbandonedCopy& copy) {
  copy.document = kIpuzFormat.Read(bytes).document;
  const Json root = ParseJson(bytes);
  if (const Json* path = Find(root, kIpuzPath))
    copy.puzzlePath = Unescaped(TextOf(*path));
}

// Of an older version: a .kdp file.  The line after the grid tells the path,
// or the lock does in still older ones.
void ReadOldContent(std::string_view bytes, AbandonedCopy& copy) {
  copy.document = kKdpFormat.Read(bytes).document;
  const std::string begin = std::string(kIpuzPath) + "=";
  const std::vector<std::string_view> lines = LinesOf(bytes);
  const auto after = static_cast<std::size_t>(copy.document.height) + 1;
  if (after < lines.size() && lines[after].starts_with(begin))
    copy.puzzlePath = Unescaped(lines[after].substr(begin.size()));
  else
    copy.puzzlePath = copy.lock.Read();
}

// The process that a left-over of WriteFile belongs to, ".kelda-4711-0"; 0
// when a name is none of its kind.
pid_t WriterOf(const std::string& name) {
  constexpr std::string_view kBegin = ".kelda-";
  pid_t writer = 0;
  if (name.starts_with(kBegin))
    std::from_chars(&name[kBegin.size()], name.data() + name.size(), writer);
  return std::max(writer, 0);
}

bool IsRunning(pid_t process) {
  return kill(process, 0) == 0 || errno != ESRCH;
}

}  // namespace

// RecoveryLock

RecoveryLock::RecoveryLock(const std::string& path, bool make) {
  const int flags = O_RDWR | O_CLOEXEC | O_NOFOLLOW | (make ? O_CREAT : 0);
  descriptor_ = open(path.c_str(), flags, 0600);
  struct stat status;
  // Another program may have taken and removed the file in between.
  const bool taken = descriptor_ >= 0 &&
                     flock(descriptor_, LOCK_EX | LOCK_NB) == 0 &&
                     fstat(descriptor_, &status) == 0 && status.st_nlink > 0;
  if (descriptor_ >= 0 && !taken) {
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

// Recovery

namespace {

bool IsFree(const std::string& lock) {
  std::error_code error;
  return !fs::exists(lock, error) || RecoveryLock(lock, false).Held();
}

// Whether a file is no copy and belongs to no running program.
bool IsLeftover(const fs::path& path) {
  if (const pid_t writer = WriterOf(path.filename().string()))
    return !IsRunning(writer);
  std::error_code error;
  if (path.extension() == kLock)
    return !fs::exists(WithSuffix(path, kCopy), error) &&
           !fs::exists(WithSuffix(path, kOldCopy), error) &&
           IsFree(path.string());
  // "1-2-0.kdp.Ab3dEf", a temporary file of an older version.
  const fs::path copy = path.parent_path() / path.stem();
  return copy.extension() == kOldCopy && path.extension() != kDamaged &&
         IsFree(WithSuffix(copy, kLock));
}

}  // namespace

void Recovery::TakeLock() {
  if (folder_.empty())
    throw FileError("There is no folder for recovery copies");
  std::error_code error;
  MakePrivateFolder(folder_);
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

void Recovery::Write(const Document& document, const std::string& puzzlePath) {
  Work work{document, puzzlePath};
  if (written_ == work) return;
  if (!lock_.Held()) TakeLock();
  WriteFile(path_, BytesOf(document, puzzlePath), {.mode = 0600});
  written_ = std::move(work);
}

void Recovery::Remove() {
  if (!lock_.Held()) return;
  std::error_code error;
  fs::remove(path_, error);
  fs::remove(WithSuffix(path_, kLock), error);
  lock_ = RecoveryLock();
  written_.reset();
}

void Recovery::ClearLeftovers() const {
  std::error_code error;
  for (fs::directory_iterator entry(folder_, error), end;
       !error && entry != end; entry.increment(error)) {
    std::error_code ignored;
    if (IsLeftover(entry->path())) fs::remove(entry->path(), ignored);
  }
}

std::vector<AbandonedCopy> Recovery::FindAbandoned() const {
  std::vector<AbandonedCopy> found;
  std::error_code error;
  if (fs::is_directory(folder_, error)) MakePrivateFolder(folder_);
  ClearLeftovers();
  for (fs::directory_iterator entry(folder_, error), end;
       !error && entry != end; entry.increment(error)) {
    const fs::path path = entry->path();
    if (!IsCopy(path) || path == path_) continue;
    struct stat status;
    if (lstat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) continue;
    AbandonedCopy copy;
    copy.path = path.string();
    copy.when = status.st_mtime;
    copy.lock = RecoveryLock(WithSuffix(path, kLock), true);
    if (!copy.lock.Held()) continue;
    try {
      const std::string bytes = ReadFile(copy.path, Opens::RegularFiles);
      (path.extension() == kCopy ? ReadContent : ReadOldContent)(bytes, copy);
      found.push_back(std::move(copy));
    } catch (const std::runtime_error&) {
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
