// Recovery copies of unsaved puzzles, so that a crash or a power cut loses
// nothing.
//
// Each running program owns one copy and holds a lock beside it for as long
// as it runs.  A copy is an .ipuz file, which holds all of the document, with
// one more key, which names the puzzle's own file.  A copy whose lock nobody
// holds was left by a program that did not end well.  Copies come from
// outside: a damaged one is put aside, never trusted.  Folder and copies are
// for the user alone.

#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <vector>

#include "puzzle/document.h"

class RecoveryLock {
 public:
  RecoveryLock() = default;
  // Takes the lock if nobody holds it; makes the file if told to.
  RecoveryLock(const std::string& path, bool make);
  RecoveryLock(RecoveryLock&& other) noexcept;
  RecoveryLock& operator=(RecoveryLock&& other) noexcept;
  ~RecoveryLock();

  bool Held() const { return descriptor_ >= 0; }
  // The text that the lock file holds: in older versions the path of the
  // puzzle's own file.
  std::string Read() const;

 private:
  int descriptor_ = -1;
};

// What another run left.
struct AbandonedCopy {
  std::string path;        // of the copy
  std::string puzzlePath;  // of the puzzle's own file, "" for none
  std::time_t when = 0;    // last written
  Document document;
  RecoveryLock lock;  // nobody else takes it meanwhile
};

class Recovery {
 public:
  // The folder is made when it is first needed.
  explicit Recovery(std::string folder) : folder_(std::move(folder)) {}

  // Has this run's copy hold a document and the path of its file, "" for
  // none; writes nothing while it does.  Throws FileError.
  void Write(const Document& document, const std::string& puzzlePath);
  // Whether there is a copy of this run.
  bool HasCopy() const { return written_.has_value(); }
  // There is nothing to recover from this run.
  void Remove();

  // The copies that can be offered, newest first.  Damaged ones are put aside
  // under another name, ".damaged"; what is no copy and belongs to no running
  // program is cleared away.
  std::vector<AbandonedCopy> FindAbandoned() const;
  // Deletes what another run left.
  static void Discard(const AbandonedCopy& copy);

 private:
  struct Work {
    Document document;
    std::string puzzlePath;
    bool operator==(const Work&) const = default;
  };

  void TakeLock();
  void ClearLeftovers() const;

  std::string folder_;
  std::string path_;  // of this run's copy, "" until it is needed
  RecoveryLock lock_;
  std::optional<Work> written_;  // what is in this run's copy
};
