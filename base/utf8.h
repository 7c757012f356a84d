// UTF-8 and ISO 8859-1.
//
// What comes from outside is checked before it is taken as UTF-8: overlong
// forms, halves of surrogate pairs and what is beyond U+10FFFF are wrong.

#pragma once

#include <optional>
#include <string>
#include <string_view>

// A character of a text, and how many bytes it takes; code is -1 and size 1
// where the bytes are no UTF-8.
struct Utf8Char {
  int code = -1;
  int size = 1;
};
// The character at a byte of a text that goes on there.
Utf8Char CharAt(std::string_view text, std::size_t at);

void AppendChar(std::string& text, int code);

bool IsUtf8(std::string_view text);
// The first character's bytes: "É" of "ÉTÉ".
std::string_view FirstChar(std::string_view text);
// How many characters a valid text has.
int CountChars(std::string_view text);

std::string FromLatin1(std::string_view bytes);
// Nothing when there is a character beyond ISO 8859-1.
std::optional<std::string> ToLatin1(std::string_view text);
// Bytes of an unknown encoding: valid UTF-8 as such, else ISO 8859-1.
std::string FromUnknown(std::string_view bytes);
// The bytes that FromUnknown reads as a text: ISO 8859-1, unless that is not
// enough or would be taken for UTF-8.
std::string ToBytes(const std::string& text);
