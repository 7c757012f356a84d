#include "files/json_text.h"

#include <charconv>

#include "files/format.h"

namespace {

constexpr int kDeepest = 100;  // lists within lists

// The message of the library without its own names: "line 1, column 8: ...".
std::string PlainMessage(std::string_view what) {
  if (what.starts_with('[')) what.remove_prefix(what.find("] ") + 2);
  constexpr std::string_view kPrefix = "parse error at ";
  if (what.starts_with(kPrefix)) what.remove_prefix(kPrefix.size());
  return std::string(what);
}

}  // namespace

Json ParseJson(std::string_view bytes) {
  const auto limitDepth = [](int depth, Json::parse_event_t, Json&) {
    if (depth > kDeepest) throw FormatError("lists within lists, too deep");
    return true;
  };
  try {
    return Json::parse(bytes, limitDepth);
  } catch (const Json::exception& error) {
    throw FormatError(PlainMessage(error.what()));
  }
}

const Json* Find(const Json& object, std::string_view key) {
  if (!object.is_object()) return nullptr;
  const auto found = object.find(key);
  return found == object.end() ? nullptr : &*found;
}

std::string TextOf(const Json& value) {
  if (value.is_string()) return value.get<std::string>();
  return value.is_number() ? value.dump() : "";
}

int NumberOf(const Json& value) {
  const std::string text = TextOf(value);
  int number = 0;
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isWhole = error == std::errc() && end == text.data() + text.size();
  return isWhole ? number : 0;
}
