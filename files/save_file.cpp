#include "files/save_file.h"

#include <filesystem>

#include "base/text.h"
#include "base/write_file.h"

bool ConfirmOverwrite(Host& host, const std::string& path) {
  std::error_code error;
  const auto size = std::filesystem::file_size(path, error);
  return error || size == 0 || host.AskYesNo("OverWrite file: " + path + " ?");
}

bool ConfirmChange(Host& host, const std::string& path,
                   const FileStamp& stamp) {
  const std::string lineBreak(kLineBreak);
  switch (ChangeSince(stamp, path)) {
    case FileChange::None:
      return true;
    case FileChange::Changed:
      return host.AskYesNo("Another program has changed " + path + lineBreak +
                           "Replace it with your puzzle?");
    case FileChange::Removed:
      return host.AskYesNo("Another program has removed " + path + lineBreak +
                           "Save your puzzle there again?");
  }
  return false;
}

bool SaveFile(Host& host, const std::string& path,
              const std::function<std::string()>& make) {
  if (IsWriteProtected(path) &&
      !host.AskYesNo(path + " is write-protected." + std::string(kLineBreak) +
                     "Replace it all the same?"))
    return false;
  host.Pointer(PointerShape::Hourglass);
  std::string failure;
  try {
    std::error_code error;
    // It would be waited for until somebody reads it.
    if (std::filesystem::is_fifo(path, error))
      throw FileError(path + ": cannot be written: this is a pipe");
    WriteFile(path, make(), {.replaceProtected = true});
  } catch (const FileError& error) {
    failure = error.what();
  }
  host.Pointer(PointerShape::Normal);
  if (!failure.empty()) host.Tell(failure);
  return failure.empty();
}
