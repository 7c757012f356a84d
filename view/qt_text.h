// Between the program's texts and Qt's.

#pragma once

#include <QString>
#include <string>
#include <string_view>

// A text of the program: UTF-8 where it is valid, else ISO 8859-1 (as a word
// taken from the grid and a puzzle's title may be).
QString FromBytes(std::string_view text);

QString ToQt(std::string_view utf8);
