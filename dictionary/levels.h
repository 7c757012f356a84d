// The dictionary levels and where their files are.

#pragma once

#include <array>
#include <string>
#include <string_view>

inline constexpr std::array kLevelFiles = {"L1Ascii.txt", "L2Ascii.txt",
                                           "L3Ascii.txt"};
inline constexpr int kDefaultLevel = 1;  // place in kLevelFiles

// A level file's path: in the current folder, else beside the program, else
// in the installed data folder (that of this installation, then the one it
// was built for); the bare name when it is in none.
std::string LevelFilePath(const std::string& name);

// Whether a list on the command line is a level: "1", "2" or "3".
bool IsLevel(std::string_view list);
// The path of such a list: of the level's file, else the name itself.
std::string ListPath(const std::string& list);
