#include "base/host.h"

#include <algorithm>
#include <cmath>
#include <limits>

double ChanceOf(std::uint64_t bits) {
  constexpr int kDoubleBits = std::numeric_limits<double>::digits;
  return std::ldexp(static_cast<double>(bits >> (64 - kDoubleBits)),
                    -kDoubleBits);
}

int RandomUpTo(Host& host, int max) {
  return std::min(static_cast<int>(host.Chance() * max) + 1, max);
}
