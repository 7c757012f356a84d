// Checks of option values that CLI11 lets through: numbers that are no number
// or out of range.  Each returns what is wrong, or "".

#pragma once

#include <string>

// Of a seed: a whole number from 0 to 2^64 - 1.
std::string CheckSeed(const std::string& text);
// Of a time: from 0 to a million seconds.
std::string CheckSeconds(const std::string& text);
