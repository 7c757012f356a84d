// Colours as the files of puzzles write them, "FF8000", perhaps after "#".

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/colour.h"

std::string HexOf(Colour colour);  // without "#"
// Also of the short form "F80"; nothing for what is no such number.
std::optional<Colour> ColourOfHex(std::string_view hex);
