// Numbers and short texts as the messages, the lists and the text boxes of
// the program write and read them.

#pragma once

#include <algorithm>
#include <array>
#include <cassert>
#include <compare>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

inline constexpr std::string_view kLineBreak = "\r\n";

// A number as messages join it: a blank before a non-negative one (" 5").
std::string Str(long number);

// A number padded with zeros to a width: Padded(7, 2) is "07".
std::string Padded(long number, int width);

// The number that a text begins with, blanks skipped; 0 when there is none.
double Val(std::string_view text);

// Val as a 16-bit whole number: halves go to the even neighbour, and what
// is out of range is taken as the nearest end of it.
int ValToInt(std::string_view text);

// A quotient as a whole number, halves to the even neighbour.
int RoundedQuotient(int dividend, int divisor);

std::string_view Trimmed(std::string_view text);
std::string UpperCase(std::string_view text);  // A-Z only

// A text without blanks and empty lines at its ends.
std::string WithoutOuterBlanks(std::string_view text);
// A text on one line: line breaks are blanks, none at its ends.
std::string OnOneLine(std::string_view text);

// The lines of a text without their ends, which are CR LF, LF or CR.
std::vector<std::string_view> LinesOf(std::string_view text);

// A text of at most N characters that is held in place.
template <int N>
class ShortText {
 public:
  ShortText() = default;
  explicit ShortText(std::string_view text) {
    assert(text.size() <= N);
    size_ = static_cast<std::uint8_t>(text.size());
    std::copy(text.begin(), text.end(), chars_.begin());
  }

  void Append(char c) {
    assert(size_ < N);
    chars_[size_++] = c;
  }
  int Size() const { return size_; }
  char operator[](int k) const { return chars_[k]; }
  char& operator[](int k) { return chars_[k]; }
  std::string_view View() const {
    return {chars_.data(), static_cast<std::size_t>(size_)};
  }

  bool operator==(const ShortText& other) const {
    return View() == other.View();
  }
  auto operator<=>(const ShortText& other) const {
    return View() <=> other.View();
  }

 private:
  std::uint8_t size_ = 0;
  std::array<char, N> chars_{};
};
