// Colours, and those that the classic window paints with.

#pragma once

struct Colour {
  int red = 0, green = 0, blue = 0;  // 0..255
  bool operator==(const Colour&) const = default;
};

inline constexpr Colour ColourGreen{100, 200, 100};
inline constexpr Colour ColourRed{200, 100, 100};
inline constexpr Colour ColourBlackSquare{20, 20, 20};
inline constexpr Colour ColourLightGrey{200, 200, 200};
inline constexpr Colour ColourGrey{150, 150, 150};
inline constexpr Colour ColourBackground{255, 255, 255};  // paper
// What the check paints.
inline constexpr Colour ColourDivides{128, 0, 0};      // red
inline constexpr Colour ColourBadLength{0, 0, 255};    // light blue
inline constexpr Colour ColourUncrossed{0, 128, 128};  // cyan
