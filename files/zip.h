// A file in a zip archive, in memory.  What an archive says of itself is not
// trusted: no more than 64 MiB are ever unpacked.

#pragma once

#include <string>
#include <string_view>

bool IsZip(std::string_view bytes);

// The content of the first file of an archive whose name ends so, or else of
// the first file at all.  Throws FormatError.
std::string Unzipped(std::string_view bytes, std::string_view ending);

// An archive of one file; the same bytes for the same content.
std::string Zipped(const std::string& name, const std::string& content);
