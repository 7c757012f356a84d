#include "files/title_lines.h"

#include <cmath>
#include <map>

#include "base/utf8.h"

namespace {

constexpr double kTitlePoints = 14;
constexpr double kLeastPoints = 10;

// A title as UTF-8, with a blank for what no font can show.
std::string Printable(std::string_view title) {
  const std::string text = FromUnknown(title);
  std::string printable;
  for (std::size_t at = 0; at < text.size();) {
    const auto [code, size] = CharAt(text, at);
    at += size;
    const bool control = code < 0x20 || (code >= 0x7f && code < 0xa0);
    AppendChar(printable, control ? ' ' : code);
  }
  printable.erase(printable.find_last_not_of(' ') + 1);
  return printable;
}

// The widths of single characters, each measured once.
class CharWidths {
 public:
  CharWidths(const Canvas& canvas, const TextStyle& style)
      : canvas_(canvas), style_(style) {}
  int Of(std::string_view character) {
    const auto known = widths_.find(character);
    if (known != widths_.end()) return known->second;
    const int width = canvas_.TextWidth(character, style_);
    widths_.emplace(character, width);
    return width;
  }

 private:
  const Canvas& canvas_;
  TextStyle style_;
  std::map<std::string, int, std::less<>> widths_;
};

// How many bytes of a text fit into a width, at least one character.
std::size_t FittingLength(std::string_view text, CharWidths& widths,
                          int width) {
  std::size_t length = 0;
  while (length < text.size()) {
    const std::size_t size = FirstChar(text.substr(length)).size();
    width -= widths.Of(text.substr(length, size));
    if (width < 0) return length == 0 ? size : length;
    length += size;
  }
  return length;
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
    lines.emplace_back(text.substr(0, length));
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
  const int needed = canvas.TextWidth(text, fit.style);
  if (needed > width) {
    const double fitting = std::floor(kTitlePoints * 10 * width / needed) / 10;
    fit.style.points = std::max(kLeastPoints, fitting);
  }
  fit.pitch = static_cast<int>(std::lround(fit.style.points * 20 * 1.15));
  if (text.empty()) return fit;
  if (canvas.TextWidth(text, fit.style) <= width)
    fit.lines = {text};
  else
    fit.lines = Broken(text, CharWidths(canvas, fit.style), width);
  return fit;
}
