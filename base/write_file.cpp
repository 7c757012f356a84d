#include "base/write_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <optional>

#include "base/signal_hold.h"
#include "base/user_folders.h"

namespace {

namespace fs = std::filesystem;

using OldFile = std::optional<struct stat>;

// An open file.  Each call returns whether it worked; errno says why not.
class OpenFile {
 public:
  explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (descriptor_ >= 0) close(descriptor_);
  }

  int Descriptor() const { return descriptor_; }
  bool IsOpen() const { return descriptor_ >= 0; }

  bool Write(std::string_view content) {
    while (!content.empty()) {
      const ssize_t written =
          write(descriptor_, content.data(), content.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) return false;
      content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
  }
  // All of another file from its start, over what this one has.
  bool WriteAllOf(const OpenFile& other) {
    std::array<char, 1 << 16> buffer;
    off_t at = 0;
    if (lseek(descriptor_, 0, SEEK_SET) != 0) return false;
    while (true) {
      const ssize_t size =
          pread(other.descriptor_, buffer.data(), buffer.size(), at);
      if (size < 0) return false;
      if (size == 0) return Finish(at);
      at += size;
      if (!Write({buffer.data(), static_cast<std::size_t>(size)})) return false;
    }
  }
  // Cuts off what is beyond a size; what was written is then on the disk.
  bool Finish(off_t size) {
    return ftruncate(descriptor_, size) == 0 && fsync(descriptor_) == 0;
  }
  bool Close() {
    const int descriptor = descriptor_;
    descriptor_ = -1;
    return close(descriptor) == 0;
  }

 private:
  int descriptor_;
};

// A new file in a folder, which no other program sees under a name for
// longer than it must, and which is gone unless it gets its own.
class NewFile {
 public:
  enum class Kind { Unnamed, Named };

  NewFile(int folder, Kind kind, mode_t mode)
      : folder_(folder), file_(Open(kind, mode)) {}
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile() {
    if (!name_.empty()) unlinkat(folder_, name_.c_str(), 0);
  }

  OpenFile& File() { return file_; }

  // Takes a name, in place of the file that has it.
  bool TakeName(const std::string& name, bool isFree) {
    if (name_.empty() && isFree && Link(name)) return true;
    if (name_.empty() && !LinkForNow()) return false;
    if (renameat(folder_, name_.c_str(), folder_, name.c_str()) != 0)
      return false;
    name_.clear();
    return true;
  }

 private:
  int Open(Kind kind, mode_t mode) {
    if (kind == Kind::Unnamed)
      return openat(folder_, ".", O_TMPFILE | O_RDWR | O_CLOEXEC, mode);
    for (int i = 0; i < kTries; ++i) {
      const std::string name = NameForNow(i);
      const int flags = O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC | O_NOFOLLOW;
      const int descriptor = openat(folder_, name.c_str(), flags, mode);
      if (descriptor >= 0) name_ = name;
      if (descriptor >= 0 || errno != EEXIST) return descriptor;
    }
    return -1;
  }
  bool Link(const std::string& name) {
    const std::string self =
        "/proc/self/fd/" + std::to_string(file_.Descriptor());
    return linkat(AT_FDCWD, self.c_str(), folder_, name.c_str(),
                  AT_SYMLINK_FOLLOW) == 0;
  }
  bool LinkForNow() {
    for (int i = 0; i < kTries; ++i) {
      const std::string name = NameForNow(i);
      if (Link(name)) {
        name_ = name;
        return true;
      }
      if (errno != EEXIST) return false;
    }
    return false;
  }
  // Short, so that a file's own name may be as long as the system allows.
  static std::string NameForNow(int i) {
    return ".kelda-" + std::to_string(getpid()) + "-" + std::to_string(i);
  }

  static constexpr int kTries = 100;

  int folder_;
  std::string name_;  // as long as it has a passing one
  OpenFile file_;
};

// The file that a path stands for, also when that is not there yet.
std::string BehindLinks(std::string path) {
  constexpr int kMostLinks = 40;
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code error;
    const fs::path link = fs::read_symlink(path, error);
    if (error) break;
    path = (fs::path(path).parent_path() / link).string();
  }
  return path;
}

// Writes what is no regular file, or has no path of its own any more.
void WriteAsItIs(const std::string& path, std::string_view content) {
  OpenFile out(open(path.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC));
  if (!out.IsOpen() || !out.Write(content) || !out.Close())
    FailWith(path, "cannot be written", errno);
}

// Gives a file the mode of the one that it replaces, and its owner and group
// where the user may.  A group that cannot be kept gets no more rights than
// others have.
void KeepOwnerAndMode(int file, const struct stat& old) {
  mode_t mode = old.st_mode & 0777;
  const bool groupIsKept = fchown(file, old.st_uid, old.st_gid) == 0 ||
                           fchown(file, -1, old.st_gid) == 0;
  if (!groupIsKept) mode = (mode & ~S_IRWXG) | ((mode & S_IRWXO) << 3);
  // Where a file system knows no modes, the file is written all the same.
  (void)fchmod(file, mode);
}

// Puts a new file in the place of a path; whether it worked.
bool Replace(const fs::path& path, std::string_view content, const OldFile& old,
             mode_t mode) {
  const std::string name = path.filename().string();
  const fs::path parent = path.has_parent_path() ? path.parent_path() : ".";
  const OpenFile folder(open(parent.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!folder.IsOpen()) return false;
  // A file system without unnamed files, or a system whose /proc is closed,
  // gets one with a name.
  for (const auto kind : {NewFile::Kind::Unnamed, NewFile::Kind::Named}) {
    NewFile file(folder.Descriptor(), kind, old ? 0600 : mode);
    if (!file.File().IsOpen()) continue;
    if (old) KeepOwnerAndMode(file.File().Descriptor(), *old);
    if (file.File().Write(content) &&
        file.File().Finish(static_cast<off_t>(content.size())) &&
        file.TakeName(name, !old) && file.File().Close())
      return true;
  }
  return false;
}

// Whether a file that cannot be replaced may still take being written over.
bool IsForbidden(int error) {
  const auto kinds = {EACCES, EPERM, EROFS, EBUSY, EXDEV};
  return std::ranges::find(kinds, error) != kinds.end();
}

// Copies a file to where the user's copies are kept; the copy's path.
std::string KeepCopy(const std::string& path, const OpenFile& file) {
  std::error_code error;
  const std::string state = UserStateFolder();
  if (!state.empty()) MakePrivateFolder(state);
  for (const std::string& folder :
       {state, fs::temp_directory_path(error).string()}) {
    std::string copy = folder + "/before-XXXXXX";
    OpenFile out(folder.empty() ? -1 : mkostemp(copy.data(), O_CLOEXEC));
    if (!out.IsOpen()) continue;
    if (out.WriteAllOf(file)) return copy;
    unlink(copy.c_str());
  }
  throw FileError(path + ": cannot be written: no copy of it can be kept");
}

// Writes over a file in a folder that takes no new one.
void WriteOver(const std::string& path, std::string_view content, int why) {
  OpenFile file(open(path.c_str(), O_RDWR | O_CLOEXEC));
  if (!file.IsOpen()) FailWith(path, "cannot be written", why);
  const std::string copy = KeepCopy(path, file);
  if (!file.Write(content) ||
      !file.Finish(static_cast<off_t>(content.size()))) {
    const int failure = errno;
    const OpenFile kept(open(copy.c_str(), O_RDONLY | O_CLOEXEC));
    if (!kept.IsOpen() || !file.WriteAllOf(kept))
      FailWith(path, "cannot be written; as it was, it is kept in " + copy,
               failure);
    unlink(copy.c_str());
    FailWith(path, "cannot be written", failure);
  }
  unlink(copy.c_str());
}

}  // namespace

bool IsWriteProtected(const std::string& path) {
  constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
  struct stat file;
  if (stat(path.c_str(), &file) != 0 || !S_ISREG(file.st_mode)) return false;
  return (file.st_mode & kAnyWrite) == 0 ||
         (faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0 &&
          errno == EACCES);
}

void WriteFile(const std::string& path, std::string_view content,
               const WriteRules& rules) {
  OldFile old(std::in_place);
  if (stat(path.c_str(), &*old) != 0) {
    if (errno != ENOENT) FailWith(path, "cannot be written", errno);
    old.reset();
  }
  const std::string target = BehindLinks(path);
  struct stat behind;
  if (old && (!S_ISREG(old->st_mode) || stat(target.c_str(), &behind) != 0 ||
              behind.st_ino != old->st_ino || behind.st_dev != old->st_dev)) {
    WriteAsItIs(path, content);
    return;
  }
  if (!rules.replaceProtected && IsWriteProtected(path))
    throw FileIsProtected(path);
  const SignalHold hold;
  if (Replace(target, content, old, rules.mode)) return;
  const int failure = errno;
  if (old && IsForbidden(failure)) return WriteOver(target, content, failure);
  if (failure == ENOENT)
    throw FileError(path + ": cannot be written: there is no such folder");
  FailWith(path, "cannot be written", failure);
}
