// Where the fills of kelda-cli autofill go: a file, or files of a folder.

#pragma once

#include <string>
#include <vector>

#include "cli/output.h"

struct AutofillFiles {
  Output out;  // a file, a folder or "-"; by force also what is in a folder
  std::vector<std::string> puzzles;
  int count = 1;  // fills of each puzzle

  // Whether `out` is a folder: it is one, ends with "/", or there are several
  // puzzles.
  bool IntoFolder() const;
  // OUT, or in a folder OUT/name; the second fill of a puzzle and those after
  // it get "-2" and so on.
  std::string PathOf(const std::string& puzzle, int fill) const;
  // What a message of a puzzle begins with: its name where there are several.
  std::string PrefixOf(const std::string& puzzle) const;
  // Makes the folder.  Throws FileError, before anything is written, where a
  // fill would take the place of another, or without force of a file that
  // is there.  Only OUT itself, when it is no folder, is replaced.
  void Reserve() const;

 private:
  void CheckIsFree(const std::string& path) const;
};
