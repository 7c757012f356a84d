#include "base/host.h"

#include <algorithm>

int RandomUpTo(Host& host, int max) {
  return std::min(static_cast<int>(host.Chance() * max) + 1, max);
}
