#include "base/utf8.h"

std::string Utf8OfLatin1(std::string_view text) {
  std::string utf8;
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    if (code < 0x80) {
      utf8 += c;
    } else {
      utf8 += static_cast<char>(0xC0 | code >> 6);
      utf8 += static_cast<char>(0x80 | (code & 0x3F));
    }
  }
  return utf8;
}

std::optional<std::string> Latin1OfUtf8(std::string_view text) {
  std::string latin1;
  while (!text.empty()) {
    const int length = LengthOfUtf8(text);
    const auto first = static_cast<unsigned char>(text[0]);
    if (length == 1)
      latin1 += text[0];
    else if (length == 2 && first <= 0xC3)
      latin1 += static_cast<char>((first & 3) << 6 | (text[1] & 0x3F));
    else
      return std::nullopt;
    text.remove_prefix(length);
  }
  return latin1;
}

int LengthOfUtf8(std::string_view text) {
  const auto at = [&](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
  };
  const int first = at(0);
  if (text.empty() || (first >= 0x80 && first < 0xC2) || first > 0xF4) return 0;
  if (first < 0x80) return 1;
  const int length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  for (int i = 1; i < length; ++i)
    if ((at(i) & 0xC0) != 0x80) return 0;
  const bool overlong =
      (first == 0xE0 && at(1) < 0xA0) || (first == 0xF0 && at(1) < 0x90);
  const bool outside =
      (first == 0xED && at(1) >= 0xA0) || (first == 0xF4 && at(1) >= 0x90);
  return overlong || outside ? 0 : length;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const int length = LengthOfUtf8(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::string_view FirstUtf8(std::string_view text) {
  return text.substr(0, LengthOfUtf8(text));
}
