#include "base/utf8.h"

namespace {

constexpr int kLastLatin1 = 0xFF;

// How many bytes a character takes that begins with a byte; 0 for none.
int SizeFrom(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  if (first >= 0xF0 && first < 0xF5) return 4;
  return 0;
}

bool IsCode(int code, int size) {
  constexpr int kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
  return code >= kLeast[size] && code <= 0x10FFFF && !isSurrogate;
}

}  // namespace

Utf8Char CharAt(std::string_view text, std::size_t at) {
  const auto first = static_cast<unsigned char>(text[at]);
  const int size = SizeFrom(first);
  if (size == 1) return {first, 1};
  if (size == 0 || at + size > text.size()) return {};
  int code = first & (0x7F >> size);
  for (int i = 1; i < size; ++i) {
    const auto next = static_cast<unsigned char>(text[at + i]);
    if ((next & 0xC0) != 0x80) return {};
    code = code << 6 | (next & 0x3F);
  }
  return IsCode(code, size) ? Utf8Char{code, size} : Utf8Char{};
}

void AppendChar(std::string& text, int code) {
  const auto tail = [&](int shift) {
    text += static_cast<char>(0x80 | (code >> shift & 0x3F));
  };
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0 | code >> 6);
    tail(0);
  } else if (code < 0x10000) {
    text += static_cast<char>(0xE0 | code >> 12);
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0 | code >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

bool IsUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const Utf8Char c = CharAt(text, i);
    if (c.code < 0) return false;
    i += c.size;
  }
  return true;
}

std::string_view FirstChar(std::string_view text) {
  return text.empty() ? text : text.substr(0, CharAt(text, 0).size);
}

int CountChars(std::string_view text) {
  int count = 0;
  for (std::size_t i = 0; i < text.size(); i += CharAt(text, i).size) ++count;
  return count;
}

std::string FromLatin1(std::string_view bytes) {
  std::string text;
  for (char c : bytes) AppendChar(text, static_cast<unsigned char>(c));
  return text;
}

std::optional<std::string> ToLatin1(std::string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size();) {
    const Utf8Char c = CharAt(text, i);
    if (c.code < 0 || c.code > kLastLatin1) return std::nullopt;
    bytes += static_cast<char>(c.code);
    i += c.size;
  }
  return bytes;
}

std::string FromUnknown(std::string_view bytes) {
  return IsUtf8(bytes) ? std::string(bytes) : FromLatin1(bytes);
}

std::string ToBytes(const std::string& text) {
  const auto latin1 = ToLatin1(text);
  return latin1 && FromUnknown(*latin1) == text ? *latin1 : text;
}
