// JSON from outside.

#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

using Json = nlohmann::json;

// Throws FormatError with the place; also for more than 100 lists within
// lists, which would be too deep for the stack.
Json ParseJson(std::string_view text);

// The value of a key, or nullptr, also where there is no object.
const Json* Find(const Json& object, std::string_view key);
// A text or a number as text; "" for anything else.
std::string TextOf(const Json& value);
// A whole number, also as text; 0 for anything else.
int NumberOf(const Json& value);
