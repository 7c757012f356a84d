// What a file held when it was last read or written, to tell whether another
// program has changed it since.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct FileStamp {
  bool there = false;
  std::uintmax_t size = 0;
  std::uint64_t hash = 0;
  bool operator==(const FileStamp&) const = default;
};

// The stamp of a file as it is; that of a file that cannot be read says that
// it is not there.
FileStamp StampOf(const std::string& path);
// The stamp of a file that has just been written.
FileStamp StampOfContent(std::string_view content);

enum class FileChange { None, Changed, Removed };

FileChange ChangeSince(const FileStamp& stamp, const std::string& path);

// Whether a file that was there is there no more.  Reads nothing.
bool HasVanished(const FileStamp& stamp, const std::string& path);
