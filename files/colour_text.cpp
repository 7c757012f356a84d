#include "files/colour_text.h"

#include <charconv>

std::string HexOf(Colour colour) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string hex;
  for (const int part : {colour.red, colour.green, colour.blue})
    hex.append(1, kDigits[part / 16 % 16]).append(1, kDigits[part % 16]);
  return hex;
}

std::optional<Colour> ColourOfHex(std::string_view hex) {
  if (hex.starts_with('#')) hex.remove_prefix(1);
  if (hex.size() != 3 && hex.size() != 6) return std::nullopt;
  if (hex.find_first_not_of("0123456789abcdefABCDEF") != hex.npos)
    return std::nullopt;
  const std::size_t digits = hex.size() / 3;
  int parts[3] = {};
  for (std::size_t i = 0; i < 3; ++i) {
    const std::string_view part = hex.substr(i * digits, digits);
    std::from_chars(part.data(), part.data() + digits, parts[i], 16);
    if (digits == 1) parts[i] *= 17;
  }
  return Colour{parts[0], parts[1], parts[2]};
}
