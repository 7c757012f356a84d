#include "base/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

namespace {

constexpr std::size_t kChunk = 1 << 16;
constexpr std::size_t kLongestLine = 1 << 16;
constexpr std::size_t kLargestFile = 1 << 28;

[[noreturn]] void FailWith(const std::string& path, std::string_view what,
                           int error) {
  throw FileError(path + ": " + std::string(what) + ": " +
                  std::strerror(error));
}

// Waits for nobody: a pipe is opened, seen to be one and refused.
std::FILE* OpenRegular(const std::string& path) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) return nullptr;
  struct stat status;
  if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode))
    return fdopen(descriptor, "rb");
  close(descriptor);
  throw FileError(path + ": this is not a regular file");
}

// A file that is open for writing.
class OutputFile {
 public:
  explicit OutputFile(int descriptor) : descriptor_(descriptor) {}
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile() {
    if (descriptor_ >= 0) close(descriptor_);
  }

  int Descriptor() const { return descriptor_; }

  // Each returns whether it worked; errno says why not.
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
  bool Close() {
    const int descriptor = descriptor_;
    descriptor_ = -1;
    return close(descriptor) == 0;
  }

 private:
  int descriptor_;
};

void WriteInPlace(const std::string& path, std::string_view content) {
  OutputFile out(open(path.c_str(), O_WRONLY | O_CLOEXEC));
  if (out.Descriptor() < 0 || !out.Write(content) || !out.Close())
    FailWith(path, "cannot be written", errno);
}

// The mode for a new file: that of the old one, or what the user's mask
// leaves.
mode_t ModeFor(const std::string& path) {
  struct stat old;
  if (stat(path.c_str(), &old) == 0) return old.st_mode & 07777;
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

}  // namespace

LineReader::LineReader(const std::string& path, Opens what)
    : path_(path),
      file_(what == Opens::RegularFiles ? OpenRegular(path)
            : path == "-"               ? fdopen(dup(STDIN_FILENO), "rb")
                                        : std::fopen(path.c_str(), "rb")) {
  if (!file_) FailWith(path, "cannot be opened", errno);
}

void LineReader::Fail(std::string_view what) const {
  throw FileError(path_ + ":" + std::to_string(lineNumber_) + ": " +
                  std::string(what));
}

bool LineReader::Refill() {
  buffer_.resize(kChunk);
  const std::size_t size = std::fread(buffer_.data(), 1, kChunk, file_.get());
  if (size == 0 && std::ferror(file_.get()))
    FailWith(path_, "cannot be read", errno);
  buffer_.resize(size);
  next_ = 0;
  if (bytesRead_ == 0) CheckThatItIsText();
  bytesRead_ += size;
  if (bytesRead_ > kLargestFile) Fail("the file is larger than 256 MiB");
  return size > 0;
}

void LineReader::CheckThatItIsText() const {
  constexpr std::ptrdiff_t kFew = 8;
  const auto controls = std::ranges::count_if(buffer_, [](char c) {
    constexpr std::string_view kInTexts = "\t\n\f\r\x1a";
    return c >= 0 && c < ' ' && kInTexts.find(c) == std::string_view::npos;
  });
  if (controls > kFew && controls * 20 > std::ssize(buffer_))
    throw FileError(path_ + ": this is not a text file");
}

bool LineReader::Next(std::string_view& line) {
  if (next_ == buffer_.size() && !Refill()) return false;
  if (afterReturn_ && buffer_[next_] == '\n') {
    ++next_;
    if (next_ == buffer_.size() && !Refill()) return false;
  }
  ++lineNumber_;
  line_.clear();
  afterReturn_ = false;
  do {
    const auto end = std::find_if(
        buffer_.begin() + static_cast<std::ptrdiff_t>(next_), buffer_.end(),
        [](char c) { return c == '\n' || c == '\r'; });
    TakeRest(static_cast<std::size_t>(end - buffer_.begin()));
    if (end != buffer_.end()) {
      afterReturn_ = *end == '\r';
      ++next_;
      break;
    }
  } while (Refill());
  line = line_;
  return true;
}

void LineReader::TakeRest(std::size_t end) {
  line_.append(buffer_, next_, end - next_);
  next_ = end;
  if (line_.size() > kLongestLine) Fail("the line is too long");
}

void WriteFile(const std::string& path, std::string_view content) {
  namespace fs = std::filesystem;
  std::error_code error;
  // Through a link, the file that it stands for is replaced.
  fs::path target = fs::weakly_canonical(path, error);
  if (error) target = path;
  const fs::file_status status = fs::status(target, error);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    WriteInPlace(path, content);
    return;
  }
  std::string temporary = target.string() + ".XXXXXX";
  OutputFile out(mkostemp(temporary.data(), O_CLOEXEC));
  if (out.Descriptor() < 0) FailWith(path, "cannot be written", errno);
  // Where a file system knows no modes, the file is written all the same.
  (void)fchmod(out.Descriptor(), ModeFor(target));
  const bool done = out.Write(content) && fsync(out.Descriptor()) == 0 &&
                    out.Close() &&
                    rename(temporary.c_str(), target.c_str()) == 0;
  if (!done) {
    const int failure = errno;
    unlink(temporary.c_str());
    FailWith(path, "cannot be written", failure);
  }
}
