// Between the program's texts and Qt's.

#pragma once

#include <QString>
#include <string>
#include <string_view>

// A message: UTF-8 where it is valid, else ISO 8859-1 (as a word taken from
// the grid may be).
QString FromBytes(std::string_view text);

// A title: single-byte, ISO 8859-1.
QString FromTitle(std::string_view title);
std::string ToTitle(const QString& text);

// A text as titles can hold it: curly quotes and long dashes become plain
// ones.  What has no counterpart is left out and collected in `lost`.
QString FitForTitle(const QString& text, QString& lost);
