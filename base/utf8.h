// Texts of one byte a character (ISO 8859-1), as puzzle files of the classic
// kind hold them, and UTF-8, as everything else does.

#pragma once

#include <optional>
#include <string>
#include <string_view>

std::string Utf8OfLatin1(std::string_view text);
// Nothing where the text is no UTF-8 or has other characters.
std::optional<std::string> Latin1OfUtf8(std::string_view text);

// The bytes of the character that a text begins with, 1 to 4; 0 when it
// begins with none (also for overlong forms and surrogates).
int LengthOfUtf8(std::string_view text);
bool IsUtf8(std::string_view text);
// The first character, or "".
std::string_view FirstUtf8(std::string_view text);
