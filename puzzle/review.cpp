#include "puzzle/review.h"

#include <algorithm>

#include "puzzle/review_parts.h"

std::string Finding::Line() const {
  return std::string(severity == Severity::Broken ? "broken " : "warning ") +
         rule + ": " + text;
}

std::string Plural(int count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::vector<Finding> Review(const Document& document, const RuleSet& rules,
                            const ScoreOf& scoreOf) {
  Subject subject{document, rules, NumberEntries(document), {}};
  ReviewGrid(subject);
  ReviewWords(subject, scoreOf);
  std::ranges::stable_sort(subject.findings, {}, &Finding::severity);
  return std::move(subject.findings);
}
