// The user's own folders.

#pragma once

#include <string>

// For what the program keeps between runs without being asked, like
// recovery copies; "" when there is none.  It need not exist.
std::string UserStateFolder();

// Makes a folder that is for the user alone, with those above it; an older
// one is closed to others.  Where that fails, writing into it fails too.
void MakePrivateFolder(const std::string& folder);
