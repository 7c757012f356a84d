// The input of a fuzz run as a file.

#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

class FuzzFile {
 public:
  FuzzFile(const std::uint8_t* data, std::size_t size)
      : descriptor_(memfd_create("fuzz", 0)) {
    if (write(descriptor_, data, size) != static_cast<ssize_t>(size))
      std::abort();
  }
  FuzzFile(const FuzzFile&) = delete;
  FuzzFile& operator=(const FuzzFile&) = delete;
  ~FuzzFile() { close(descriptor_); }

  std::string Path() const {
    return "/proc/self/fd/" + std::to_string(descriptor_);
  }

 private:
  int descriptor_;
};
