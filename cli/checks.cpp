#include "cli/checks.h"

#include <charconv>
#include <cstdint>

namespace {

template <typename Number>
bool Parse(const std::string& text, Number& number) {
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && rest == end;
}

}  // namespace

std::string CheckSeed(const std::string& text) {
  std::uint64_t seed = 0;
  return Parse(text, seed) ? ""
                           : text +
                                 ": a seed is a whole number from 0 to "
                                 "18446744073709551615";
}

std::string CheckSeconds(const std::string& text) {
  constexpr double kMost = 1e6;
  double seconds = 0;
  return Parse(text, seconds) && seconds >= 0 && seconds <= kMost
             ? ""
             : text + ": a time is from 0 to 1000000 seconds";
}
