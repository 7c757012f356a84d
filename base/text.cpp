#include "base/text.h"

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <limits>

std::string Str(long number) {
  return (number < 0 ? "" : " ") + std::to_string(number);
}

std::string Padded(long number, int width) {
  std::string digits = std::to_string(number);
  if (static_cast<int>(digits.size()) < width)
    digits.insert(0, width - digits.size(), '0');
  return digits;
}

double Val(std::string_view text) {
  // Only what a decimal number is made of reaches strtod, which would also
  // read hexadecimal, "inf" and "nan".
  std::string number;
  for (char c : text) {
    if (c == ' ' || c == '\t') continue;
    if (!std::isdigit(static_cast<unsigned char>(c)) && c != '.' && c != '+' &&
        c != '-')
      break;
    number += c;
  }
  return std::strtod(number.c_str(), nullptr);
}

int ValToInt(std::string_view text) {
  using Limits = std::numeric_limits<std::int16_t>;
  const double value =
      std::clamp<double>(Val(text), Limits::min(), Limits::max());
  return static_cast<int>(std::nearbyint(value));
}

int RoundedQuotient(int dividend, int divisor) {
  return static_cast<int>(
      std::nearbyint(static_cast<double>(dividend) / divisor));
}

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  for (char& c : upper)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return upper;
}

std::string WithoutOuterBlanks(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return "";
  return std::string(
      text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

std::string OnOneLine(std::string_view text) {
  std::string line;
  for (const std::string_view part : LinesOf(text)) line.append(part) += ' ';
  return WithoutOuterBlanks(line);
}

std::vector<std::string_view> LinesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end);
    if (!text.empty()) text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
  }
  return lines;
}
