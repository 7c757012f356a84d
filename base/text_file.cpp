#include "base/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace {

constexpr std::size_t kChunk = 1 << 16;
constexpr std::size_t kLongestLine = 1 << 16;
constexpr std::size_t kLargestFile = 1 << 28;

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

std::unique_ptr<std::FILE, FileCloser> OpenToRead(const std::string& path,
                                                  Opens what) {
  std::FILE* file = what == Opens::RegularFiles ? OpenRegular(path)
                    : path == "-" ? fdopen(dup(STDIN_FILENO), "rb")
                                  : std::fopen(path.c_str(), "rb");
  if (!file)
    throw FileNotOpened(path + ": cannot be opened: " + std::strerror(errno));
  return std::unique_ptr<std::FILE, FileCloser>(file);
}

}  // namespace

LineReader::LineReader(const std::string& path, Opens what)
    : path_(path), file_(OpenToRead(path, what)) {}

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

std::string ReadFile(const std::string& path, Opens what) {
  constexpr std::size_t kLargest = 1 << 26;
  const std::unique_ptr<std::FILE, FileCloser> file = OpenToRead(path, what);
  std::string bytes, chunk(kChunk, '\0');
  while (const std::size_t size =
             std::fread(chunk.data(), 1, kChunk, file.get())) {
    bytes.append(chunk, 0, size);
    if (bytes.size() > kLargest)
      throw FileError(path + ": the file is larger than 64 MiB");
  }
  if (std::ferror(file.get())) FailWith(path, "cannot be read", errno);
  return bytes;
}
