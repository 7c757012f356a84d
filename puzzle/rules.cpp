#include "puzzle/rules.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <limits>
#include <nlohmann/json.hpp>

#include "puzzle/symmetry.h"

namespace {

using nlohmann::ordered_json;

[[noreturn]] void Expect(std::string_view key, std::string_view what) {
  throw RuleError(std::string(key) + ": " + std::string(what) + " is expected");
}

void Take(const ordered_json& json, std::string_view key, std::string& text) {
  if (!json.is_string()) Expect(key, "a text");
  text = json.get<std::string>();
}

void Take(const ordered_json& json, std::string_view key, bool& flag) {
  if (!json.is_boolean()) Expect(key, "true or false");
  flag = json.get<bool>();
}

void Take(const ordered_json& json, std::string_view key, int& number) {
  const auto value = json.is_number_integer() ? json.get<std::int64_t>() : -1;
  if (value < 0 || value > 9999) Expect(key, "a whole number from 0 to 9999");
  number = static_cast<int>(value);
}

void Take(const ordered_json& json, std::string_view key, double& share) {
  const double value = json.is_number() ? json.get<double>() : -1;
  if (!(value >= 0 && value <= 1)) Expect(key, "a number from 0 to 1");
  share = value;
}

RuleSet::Size SizeOf(const std::string& text, std::string_view key) {
  RuleSet::Size size;
  const char* const end = text.data() + text.size();
  const auto width = std::from_chars(text.data(), end, size.width);
  if (width.ptr == end || *width.ptr != 'x')
    Expect(key, "a size like \"15x15\"");
  const auto height = std::from_chars(width.ptr + 1, end, size.height);
  const bool good = height.ec == std::errc() && height.ptr == end;
  const auto [least, most] = std::minmax(size.width, size.height);
  if (!good || least < kSmallestSide || most > kLargestSide)
    Expect(key, "a size like \"15x15\", from 3 to 51 a side,");
  return size;
}

Symmetry SymmetryOf(const std::string& text, std::string_view key) {
  if (const auto symmetry = FindSymmetry(text)) return *symmetry;
  Expect(key,
         "one of half-turn, quarter-turn, left-right, up-down, both, "
         "diagonal, anti-diagonal and none");
}

template <class Value, class Parse>
void TakeList(const ordered_json& json, std::string_view key,
              std::vector<Value>& list, Parse parse) {
  if (!json.is_array()) Expect(key, "a list");
  for (const ordered_json& item : json) {
    std::string text;
    Take(item, key, text);
    list.push_back(parse(text, key));
  }
}

void Take(const ordered_json& json, std::string_view key,
          std::vector<RuleSet::Size>& sizes) {
  TakeList(json, key, sizes, SizeOf);
}

void Take(const ordered_json& json, std::string_view key,
          std::vector<Symmetry>& symmetries) {
  TakeList(json, key, symmetries, SymmetryOf);
}

// Calls visit(key, field) for every field of a rule set.
template <class Rules, class Visit>
void ForEachRule(Rules& rules, Visit visit) {
  visit("name", rules.name);
  visit("sizes", rules.sizes);
  visit("symmetries", rules.symmetries);
  visit("mostWords", rules.mostWords);
  visit("mostBlocks", rules.mostBlocks);
  visit("leastLength", rules.leastLength);
  visit("mostLength", rules.mostLength);
  visit("allChecked", rules.allChecked);
  visit("leastCheckedShare", rules.leastCheckedShare);
  visit("mostUnchecked", rules.mostUnchecked);
  visit("connected", rules.connected);
  visit("leastScore", rules.leastScore);
  visit("mayScoreLess", rules.mayScoreLess);
  visit("noWordTwice", rules.noWordTwice);
  visit("noSharedRun", rules.noSharedRun);
  visit("noSharedStem", rules.noSharedStem);
  visit("mostAbbreviation", rules.mostAbbreviation);
  visit("letters", rules.letters);
}

ordered_json JsonOf(const std::vector<RuleSet::Size>& sizes) {
  ordered_json list = ordered_json::array();
  for (const auto& [width, height] : sizes)
    list.push_back(std::to_string(width) + "x" + std::to_string(height));
  return list;
}

ordered_json JsonOf(const std::vector<Symmetry>& symmetries) {
  ordered_json list = ordered_json::array();
  for (const Symmetry symmetry : symmetries)
    list.push_back(NameOf(symmetry).id);
  return list;
}

template <class Value>
ordered_json JsonOf(const Value& value) {
  return value;
}

}  // namespace

RuleSet ReadRules(std::string_view text) {
  const ordered_json json = ordered_json::parse(text, nullptr, false);
  if (!json.is_object()) throw RuleError("a JSON object is expected");
  RuleSet rules;
  std::vector<std::string_view> known;
  ForEachRule(rules, [&](std::string_view key, auto& field) {
    known.push_back(key);
    if (const auto found = json.find(key); found != json.end())
      Take(*found, key, field);
  });
  for (const auto& [key, value] : json.items())
    if (key != "$schema" && std::ranges::find(known, key) == known.end())
      throw RuleError(key + ": there is no such rule");
  if (rules.name.empty()) Expect("name", "a text");
  for (const char c : rules.letters)
    if (c < 'A' || c > 'Z') Expect("letters", "upper-case letters");
  return rules;
}

std::string WriteRules(const RuleSet& rules) {
  const RuleSet free;
  ordered_json json;
  ForEachRule(rules, [&](const char* key, const auto& field) {
    json[key] = JsonOf(field);
  });
  // What is free is left out.
  ForEachRule(free, [&](const char* key, const auto& field) {
    if (json[key] == JsonOf(field)) json.erase(key);
  });
  return json.dump(2, ' ', false, ordered_json::error_handler_t::replace) +
         "\n";
}
