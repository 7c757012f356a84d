#include "puzzle/rules.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include "tests/paths.h"

namespace {

std::string Slurp(const std::filesystem::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Rules, WhatIsShippedReadsBackEqual) {
  int count = 0;
  const std::filesystem::path folder = SourcePath("data/rules");
  for (const auto& file : std::filesystem::directory_iterator(folder)) {
    if (file.path().filename() == "schema.json") continue;
    const RuleSet rules = ReadRules(Slurp(file.path()));
    EXPECT_EQ(ReadRules(WriteRules(rules)), rules) << file.path();
    ++count;
  }
  EXPECT_EQ(count, 5);
}

TEST(Rules, TheSchemaKnowsEveryRule) {
  RuleSet rules;
  rules = {"All", {{15, 13}}, {Symmetry::Both},
           1,     2,          3,
           4,     true,       0.5,
           5,     true,       6,
           7,     true,       8,
           true,  9,          "QZ"};
  const auto written = nlohmann::json::parse(WriteRules(rules));
  const auto schema =
      nlohmann::json::parse(Slurp(SourcePath("data/rules/schema.json")));
  for (const auto& [key, value] : written.items())
    EXPECT_TRUE(schema["properties"].contains(key)) << key;
  EXPECT_EQ(written.size() + 1, schema["properties"].size());
  EXPECT_EQ(ReadRules(WriteRules(rules)), rules);
}

TEST(Rules, BadTextsAreRefusedWithTheKey) {
  const struct {
    const char* json;
    const char* error;
  } kCases[] = {
      {"", "a JSON object"},
      {"[]", "a JSON object"},
      {"{}", "name: a text"},
      {R"({"name": 5})", "name: a text"},
      {R"({"name": "a", "mostWord": 5})", "mostWord: there is no such rule"},
      {R"({"name": "a", "mostWords": -1})", "mostWords: a whole number"},
      {R"({"name": "a", "mostWords": 1e99})", "mostWords: a whole number"},
      {R"({"name": "a", "mostWords": 78.5})", "mostWords: a whole number"},
      {R"({"name": "a", "leastCheckedShare": 2})", "a number from 0 to 1"},
      {R"({"name": "a", "allChecked": 1})", "allChecked: true or false"},
      {R"({"name": "a", "sizes": "15x15"})", "sizes: a list"},
      {R"({"name": "a", "sizes": ["15"]})", "sizes: a size like"},
      {R"({"name": "a", "sizes": ["15x52"]})", "from 3 to 51"},
      {R"({"name": "a", "sizes": ["15x15x"]})", "from 3 to 51"},
      {R"({"name": "a", "symmetries": ["round"]})", "one of half-turn"},
      {R"({"name": "a", "letters": "q"})", "letters: upper-case"},
  };
  for (const auto& [json, error] : kCases) {
    try {
      (void)ReadRules(json);
      ADD_FAILURE() << json;
    } catch (const RuleError& fault) {
      EXPECT_THAT(fault.what(), testing::HasSubstr(error)) << json;
    }
  }
}

}  // namespace
