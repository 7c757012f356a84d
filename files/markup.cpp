#include "files/markup.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <utility>

#include "base/text.h"
#include "base/utf8.h"

namespace {

constexpr std::array<std::string_view, 20> kTags = {
    "B", "BIG",   "BR",   "DIV",    "EM",     "FONT", "I",   "LI", "OL", "P",
    "S", "SMALL", "SPAN", "STRIKE", "STRONG", "SUB",  "SUP", "TT", "U",  "UL"};
constexpr std::array<std::string_view, 4> kLineBreaks = {"BR", "DIV", "LI",
                                                         "P"};

using Entity = std::pair<std::string_view, int>;
constexpr std::array<Entity, 44> kEntities = {
    {{"amp", '&'},       {"lt", '<'},       {"gt", '>'},
     {"quot", '"'},      {"apos", '\''},    {"nbsp", ' '},
     {"ndash", 0x2013},  {"mdash", 0x2014}, {"lsquo", 0x2018},
     {"rsquo", 0x2019},  {"ldquo", 0x201C}, {"rdquo", 0x201D},
     {"hellip", 0x2026}, {"bull", 0x2022},  {"trade", 0x2122},
     {"copy", 0xA9},     {"reg", 0xAE},     {"deg", 0xB0},
     {"frac12", 0xBD},   {"iexcl", 0xA1},   {"iquest", 0xBF},
     {"times", 0xD7},    {"Eacute", 0xC9},  {"agrave", 0xE0},
     {"aacute", 0xE1},   {"acirc", 0xE2},   {"atilde", 0xE3},
     {"auml", 0xE4},     {"aring", 0xE5},   {"ccedil", 0xE7},
     {"egrave", 0xE8},   {"eacute", 0xE9},  {"ecirc", 0xEA},
     {"euml", 0xEB},     {"iacute", 0xED},  {"icirc", 0xEE},
     {"iuml", 0xEF},     {"ntilde", 0xF1},  {"oacute", 0xF3},
     {"ocirc", 0xF4},    {"ouml", 0xF6},    {"uacute", 0xFA},
     {"uuml", 0xFC},     {"szlig", 0xDF}}};

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsNameChar(char c) {
  return IsLetter(c) || (c >= '0' && c <= '9');
}

struct Tag {
  std::string name;
  std::size_t size;  // of the whole tag
};

// The tag that a text begins with.
std::optional<Tag> TagAt(std::string_view text) {
  const std::size_t end = text.find('>');
  if (end == text.npos) return std::nullopt;
  std::string_view rest = text.substr(1, end - 1);
  if (rest.starts_with('/')) rest.remove_prefix(1);
  const auto nameEnd = std::ranges::find_if_not(rest, IsNameChar);
  const std::string name = UpperCase(
      {rest.begin(), static_cast<std::size_t>(nameEnd - rest.begin())});
  const bool endsWell =
      nameEnd == rest.end() || *nameEnd == ' ' || *nameEnd == '/';
  if (!endsWell || std::ranges::find(kTags, name) == kTags.end() ||
      rest.find('<') != rest.npos)
    return std::nullopt;
  return Tag{name, end + 1};
}

struct Named {
  int code;  // -1 when the name is not known
  std::size_t size;
};

int CodeOf(std::string_view name) {
  if (!name.starts_with('#')) {
    const auto found = std::ranges::find(kEntities, name, &Entity::first);
    return found == kEntities.end() ? -1 : found->second;
  }
  name.remove_prefix(1);
  const bool hex = name.starts_with('x') || name.starts_with('X');
  if (hex) name.remove_prefix(1);
  int code = 0;
  const auto [end, error] = std::from_chars(
      name.data(), name.data() + name.size(), code, hex ? 16 : 10);
  const bool isCode = error == std::errc() &&
                      end == name.data() + name.size() && code >= ' ' &&
                      code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
  return isCode ? code : -1;
}

// The name that a text begins with, "&" and ";" around it.
std::optional<Named> NameAt(std::string_view text) {
  constexpr std::size_t kLongest = 12;
  const std::size_t end = text.substr(0, kLongest).find(';');
  if (end == text.npos || end < 2) return std::nullopt;
  const std::string_view name = text.substr(1, end - 1);
  const bool isName =
      std::ranges::all_of(name.substr(name.front() == '#' ? 1 : 0), IsNameChar);
  if (!isName) return std::nullopt;
  return Named{CodeOf(name), end + 1};
}

}  // namespace

std::string PlainText(std::string_view html, bool& hadTags) {
  std::string plain;
  while (!html.empty()) {
    std::size_t size = 1;
    const auto tag = html[0] == '<' ? TagAt(html) : std::nullopt;
    const auto named = html[0] == '&' ? NameAt(html) : std::nullopt;
    if (tag) {
      hadTags = true;
      size = tag->size;
      const bool isBreak =
          std::ranges::find(kLineBreaks, tag->name) != kLineBreaks.end();
      if (isBreak && !plain.empty() && plain.back() != '\n') plain += '\n';
    } else if (named && named->code >= 0) {
      AppendChar(plain, named->code);
      size = named->size;
    } else {
      plain += html[0];
    }
    html.remove_prefix(size);
  }
  if (hadTags)
    while (plain.ends_with('\n')) plain.pop_back();
  return plain;
}

std::string HtmlText(std::string_view plain) {
  std::string html;
  for (std::size_t i = 0; i < plain.size(); ++i) {
    const std::string_view rest = plain.substr(i);
    const char next = rest.size() > 1 ? rest[1] : ' ';
    if (rest[0] == '&' && NameAt(rest))
      html += "&amp;";
    else if (rest[0] == '<' && (IsLetter(next) || next == '/' || next == '!'))
      html += "&lt;";
    else
      html += rest[0];
  }
  return html;
}
