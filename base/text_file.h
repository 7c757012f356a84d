// Text files from outside, read line by line with every bound checked.

#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "base/file_error.h"

// What may be opened.  A pipe or a device can make a reader wait for ever: a
// script may want that, a window does not.
enum class Opens { Anything, RegularFiles };

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

// The lines of a file ("-": of standard input), whose end is CR LF, LF or CR.
// A file that begins with many control characters is no text; more than
// 256 MiB or a line of more than 64 KiB is too much.  Each of these throws
// FileError, as a file does that cannot be opened or read.
class LineReader {
 public:
  explicit LineReader(const std::string& path, Opens what = Opens::Anything);

  // Reads the next line, without its end; false when there is none.  The
  // view holds until the next call.
  bool Next(std::string_view& line);
  int LineNumber() const { return lineNumber_; }  // of the last line read
  // Throws FileError with that line.
  [[noreturn]] void Fail(std::string_view what) const;

 private:
  bool Refill();
  void CheckThatItIsText() const;  // by the first bytes
  void TakeRest(std::size_t end);  // of the buffer, onto the line

  std::string path_;
  std::unique_ptr<std::FILE, FileCloser> file_;
  std::string buffer_;
  std::size_t next_ = 0;  // in buffer_
  std::size_t bytesRead_ = 0;
  bool afterReturn_ = false;  // a LF would belong to the last line's end
  std::string line_;
  int lineNumber_ = 0;
};

// All bytes of a file ("-": of standard input).  Throws FileError for one that
// cannot be read or has more than 64 MiB.
std::string ReadFile(const std::string& path, Opens what = Opens::Anything);
