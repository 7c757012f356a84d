// Writing files so that nothing is lost: a crash, a full disk or a signal
// leaves the old file whole and no temporary file beside it.
//
// A file is replaced by a new one that is complete.  Only where that cannot
// be, because the folder takes no new file, is it written over, and a copy
// of it is kept until that has gone well.

#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

#include "base/file_error.h"

// A file that the user has protected from being written:
// "a.kdp: the file is write-protected".
class FileIsProtected : public FileError {
 public:
  explicit FileIsProtected(const std::string& path)
      : FileError(path + ": the file is write-protected") {}
};

// Whether a file is there that the user has protected so.
bool IsWriteProtected(const std::string& path);

struct WriteRules {
  bool replaceProtected = false;
  mode_t mode = 0666;  // of a new file, less the user's mask
};

// Replaces a file's content, or makes the file.  Through a link, the file
// that it stands for is written.  The old file's mode and, where the user
// may, its owner and group are kept.  What is no regular file is written as
// it is.  Throws FileError, FileIsProtected unless the rules say otherwise.
void WriteFile(const std::string& path, std::string_view content,
               const WriteRules& rules = {});
