#include "files/title_lines.h"

#include <array>
#include <cmath>

#include "base/utf8.h"

namespace {

constexpr double kTitlePoints = 14;
constexpr double kLeastPoints = 10;

std::string Printable(std::string_view text) {
  std::string printable(text);
  for (char& c : printable) {
    const auto code = static_cast<unsigned char>(c);
    if (code < 0x20 || (code >= 0x7f && code < 0xa0)) c = ' ';
  }
  printable.erase(printable.find_last_not_of(' ') + 1);
  return printable;
}

// The widths of single characters, each measured once.
class CharWidths {
 public:
  CharWidths(const Canvas& canvas, const TextStyle& style)
      : canvas_(canvas), style_(style) {
    widths_.fill(-1);
  }
  int Of(char c) {
    int& width = widths_[static_cast<unsigned char>(c)];
    if (width < 0) width = canvas_.TextWidth(FromLatin1({&c, 1}), style_);
    return width;
  }

 private:
  const Canvas& canvas_;
  TextStyle style_;
  std::array<int, 256> widths_;
};

// How much of a text fits into a width, at least one character.
std::size_t FittingLength(std::string_view text, CharWidths& widths,
                          int width) {
  std::size_t length = 0;
  while (length < text.size()) {
    width -= widths.Of(text[length]);
    if (width < 0) break;
    ++length;
  }
  return std::max<std::size_t>(length, 1);
}

std::vector<std::string> Broken(std::string_view text, CharWidths widths,
                                int width) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    std::size_t length = FittingLength(text, widths, width);
    if (length < text.size()) {
      const auto blank = text.substr(0, length + 1).find_last_of(' ');
      if (blank != text.npos && blank > 0) length = blank;
    }
    lines.push_back(FromLatin1(text.substr(0, length)));
    text.remove_prefix(length);
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  }
  return lines;
}

}  // namespace

TitleLines FitTitle(std::string_view title, const Canvas& canvas, int width) {
  const std::string text = Printable(title);
  TitleLines fit;
  fit.style = {kTitlePoints, true, false};
  const std::string whole = FromLatin1(text);
  const int needed = canvas.TextWidth(whole, fit.style);
  if (needed > width) {
    const double fitting = std::floor(kTitlePoints * 10 * width / needed) / 10;
    fit.style.points = std::max(kLeastPoints, fitting);
  }
  fit.pitch = static_cast<int>(std::lround(fit.style.points * 20 * 1.15));
  if (text.empty()) return fit;
  if (canvas.TextWidth(whole, fit.style) <= width)
    fit.lines = {whole};
  else
    fit.lines = Broken(text, CharWidths(canvas, fit.style), width);
  return fit;
}
