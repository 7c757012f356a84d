// A file that cannot be read or written.

#pragma once

#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

// The text names the file, the line where there is one, and what is wrong:
// "a.kdp:3: the line is too long".
class FileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A file that cannot even be opened.
class FileNotOpened : public FileError {
 public:
  using FileError::FileError;
};

// Throws FileError with the system's reason: "a.kdp: cannot be written:
// No space left on device".
[[noreturn]] inline void FailWith(const std::string& path,
                                  std::string_view what, int error) {
  throw FileError(path + ": " + std::string(what) + ": " +
                  std::strerror(error));
}
