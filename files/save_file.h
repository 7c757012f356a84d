// Saving for the user: what is asked before a file is replaced, and what is
// said when it cannot be written.  The program always goes on.

#pragma once

#include <functional>
#include <string>

#include "base/file_stamp.h"
#include "base/host.h"

// Whether a file may be written: it is not there, is empty, or the user
// agrees that it is replaced.
bool ConfirmOverwrite(Host& host, const std::string& path);

// Whether a file that was read or written before may be written: it is as it
// was, or the user agrees although another program has changed or removed it.
bool ConfirmChange(Host& host, const std::string& path, const FileStamp& stamp);

// Writes what `make` makes, with the busy pointer, and returns whether it is
// written.  Asks before a write-protected file is replaced.  A failure is
// told: "/home/me/a.pdf: cannot be written: No space left on device".
bool SaveFile(Host& host, const std::string& path,
              const std::function<std::string()>& make);
