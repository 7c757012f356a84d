#include "files/ipuz_own_keys.h"

#include <optional>

#include "files/ipuz.h"
#include "files/markup.h"
#include "puzzle/symmetry.h"

namespace {

std::optional<ClueKey> PlaceOf(const Json& value) {
  const Json* direction = Find(value, "direction");
  const Json* row = Find(value, "row");
  const Json* column = Find(value, "column");
  if (!direction || !row || !column) return std::nullopt;
  const std::string name = TextOf(*direction);
  if (name != "Across" && name != "Down") return std::nullopt;
  return ClueKey{name == "Across" ? Direction::Across : Direction::Down,
                 {NumberOf(*row), NumberOf(*column)}};
}

void ReadOtherClues(const Json& list, Document& document) {
  bool hadTags = false;
  for (const Json& other : list) {
    const auto key = PlaceOf(other);
    const Json* text = Find(other, "clue");
    const Json* answer = Find(other, "answer");
    if (key && text)
      document.clues.try_emplace(*key, Clue{PlainText(TextOf(*text), hadTags),
                                            answer ? TextOf(*answer) : ""});
  }
}

}  // namespace

void ReadIpuzOwnKeys(const Json& root, Reading& reading) {
  Document& document = reading.document;
  if (const Json* pins = Find(root, kIpuzPins))
    for (const Json& pin : *pins)
      if (const auto key = PlaceOf(pin)) document.pins.insert(*key);
  if (const Json* words = Find(root, kIpuzRejected))
    for (const Json& word : *words)
      if (word.is_string()) document.rejected.insert(word.get<std::string>());
  if (const Json* name = Find(root, kIpuzRuleSet))
    document.ruleSet = TextOf(*name);
  if (const Json* others = Find(root, kIpuzOtherClues))
    ReadOtherClues(*others, document);
  if (const Json* symmetry = Find(root, kIpuzSymmetry)) {
    if (const auto known = FindSymmetry(TextOf(*symmetry)))
      document.symmetry = *known;
    else
      reading.passedOver.push_back("a symmetry that is not known");
  }
}
