// Where tests find the sources and what was built, so that only one file of
// theirs depends on it.

#pragma once

#include <string>

// "data/sample.kdp" in the source folder.
std::string SourcePath(const std::string& name);
// "L1Ascii.txt" beside the programs.
std::string BuiltPath(const std::string& name);
