#include "cli/autofill_report.h"

#include <iomanip>
#include <sstream>

#include "base/utf8.h"

namespace {

using autofill::Result;
using autofill::Status;
using nlohmann::ordered_json;

std::string_view NameOf(Status status) {
  constexpr std::string_view kNames[] = {"filled", "impossible", "stopped"};
  return kNames[static_cast<int>(status)];
}

// A file name as JSON can hold it: bytes that are no UTF-8 as "\xE9".
std::string EscapedName(std::string_view name) {
  std::ostringstream text;
  for (std::size_t at = 0; at < name.size();) {
    const Utf8Char character = CharAt(name, at);
    if (character.code >= 0)
      text << name.substr(at, character.size);
    else
      text << "\\x" << std::hex << std::uppercase << (name[at] & 0xFF);
    at += character.size;
  }
  return text.str();
}

std::string TextOfCell(const Cell& cell) {
  if (cell.kind == Cell::Kind::Block) return "#";
  if (cell.kind == Cell::Kind::Void) return "_";
  if (cell.solution.empty()) return ".";
  const bool isOne = FirstChar(cell.solution) == cell.solution;
  return isOne ? cell.solution : "(" + cell.solution + ")";
}

}  // namespace

Document AutofillReport::Filled(const Result& fill) const {
  Document filled = document;
  autofill::PutLetters(fill.letters, filled);
  return filled;
}

std::vector<std::string> TextRows(const Document& document) {
  std::vector<std::string> rows(document.height);
  for (int i = 0; i < static_cast<int>(document.cells.size()); ++i)
    rows[i / document.width] += TextOfCell(document.cells[i]);
  return rows;
}

std::string LineOf(const AutofillReport& report) {
  const Result& result = report.result;
  std::ostringstream line;
  line << report.name << ": " << NameOf(result.status) << std::fixed;
  if (report.fills.size() > 1) line << " " << report.fills.size() << " times";
  if (!report.best.empty())
    line << ", " << report.best;
  else if (result.status == Status::Filled)
    line << ", lowest score " << result.lowestScore;
  if (result.status == Status::Filled)
    line << ", mean " << std::setprecision(1) << result.meanScore;
  if (result.status == Status::Stopped)
    line << ", not decided in " << std::setprecision(0) << result.seconds
         << " s";
  if (!result.why.empty() && result.status != Status::Filled)
    line << ": " << result.why;
  const auto& statistics = result.statistics;
  line << "; " << statistics.nodes << " nodes, " << statistics.fails
       << " fails, " << std::setprecision(3) << result.seconds << " s";
  return line.str();
}

ordered_json JsonOf(const AutofillReport& report) {
  const Result& result = report.result;
  const auto& statistics = result.statistics;
  ordered_json json = {{"puzzle", EscapedName(report.name)},
                       {"status", NameOf(result.status)},
                       {"fills", ordered_json::array()},
                       {"why", result.why},
                       {"culprits", ordered_json::array()},
                       {"unfillable", ordered_json::array()},
                       {"nodes", statistics.nodes},
                       {"fails", statistics.fails},
                       {"restarts", statistics.restarts},
                       {"propagations", statistics.propagations},
                       {"seconds", result.seconds}};
  for (const Result& fill : report.fills)
    json["fills"].push_back({{"rows", TextRows(report.Filled(fill))},
                             {"lowest", fill.lowestScore},
                             {"mean", fill.meanScore}});
  for (const autofill::Culprit& culprit : result.culprits)
    json["culprits"].push_back(
        {{"entry", culprit.entry}, {"mask", culprit.mask}});
  for (const auto& [entry, why] : report.problem.unfillable)
    json["unfillable"].push_back({{"entry", entry}, {"why", why}});
  if (!report.best.empty() || report.tried)
    json["best"] = {{"tried", report.tried}, {"impossible", report.proved}};
  return json;
}

ordered_json JsonOfFailure(const std::string& name, const std::string& why) {
  return {{"puzzle", EscapedName(name)},
          {"status", "failed"},
          {"fills", ordered_json::array()},
          {"why", EscapedName(why)}};
}

std::string TextOf(const autofill::Problem::Unfillable& entry) {
  return entry.entry + " is left as it is: " + entry.why;
}
