#include "dictionary/meanings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <set>

namespace {

constexpr std::size_t kLongestLine = 1 << 16;
constexpr std::size_t kLongestTerm = 80;
constexpr std::size_t kMostSenses = 100;

struct Ending {
  std::string_view suffix, replacement;
};

struct PartOfSpeech {
  std::string_view file;  // noun: index.noun, data.noun, noun.exc
  std::string_view name;
  std::vector<Ending> endings;
};

const std::array<PartOfSpeech, 4> kPartsOfSpeech = {{
    {"noun",
     "noun",
     {{"s", ""},
      {"ses", "s"},
      {"xes", "x"},
      {"zes", "z"},
      {"ches", "ch"},
      {"shes", "sh"},
      {"men", "man"},
      {"ies", "y"}}},
    {"verb",
     "verb",
     {{"s", ""},
      {"ies", "y"},
      {"es", "e"},
      {"es", ""},
      {"ed", "e"},
      {"ed", ""},
      {"ing", "e"},
      {"ing", ""}}},
    {"adj", "adjective", {{"er", ""}, {"est", ""}, {"er", "e"}, {"est", "e"}}},
    {"adv", "adverb", {}},
}};

// A text file whose lines are in ascending order of their first words.
class SortedFile {
 public:
  explicit SortedFile(const std::string& path)
      : in_(path, std::ios::binary | std::ios::ate) {
    size_ = in_ ? static_cast<std::int64_t>(in_.tellg()) : 0;
  }

  std::optional<std::string> LineOf(std::string_view word) {
    std::int64_t low = 0, high = size_;  // a line starts in [low, high)
    while (low < high) {
      const std::int64_t middle = low + (high - low) / 2;
      std::int64_t start = middle;
      if (middle > low) {  // go on to the start of a line
        start = LineStartAfter(middle);
        if (start >= high) {
          high = middle;
          continue;
        }
      }
      const std::string line = LineAt(start);
      const auto key = std::string_view(line).substr(0, line.find(' '));
      if (key == word) return line;
      if (key < word) {
        low = start + static_cast<std::int64_t>(line.size()) + 1;
      } else {
        if (middle == low) return std::nullopt;
        high = middle;
      }
    }
    return std::nullopt;
  }

  // The line that starts at a place; "" outside the file.
  std::string LineAt(std::int64_t start) {
    if (start < 0 || start >= size_) return "";
    in_.clear();
    in_.seekg(start);
    std::string line;
    for (int c; line.size() < kLongestLine && (c = in_.get()) != '\n' &&
                c != std::ifstream::traits_type::eof();)
      line += static_cast<char>(c);
    return line;
  }

 private:
  std::int64_t LineStartAfter(std::int64_t place) {
    return place + static_cast<std::int64_t>(LineAt(place).size()) + 1;
  }

  std::ifstream in_;
  std::int64_t size_ = 0;
};

std::vector<std::string> SplitAtBlanks(std::string_view line) {
  std::vector<std::string> fields;
  while (!line.empty()) {
    const auto end = std::min(line.find(' '), line.size());
    if (end > 0) fields.emplace_back(line.substr(0, end));
    line.remove_prefix(std::min(end + 1, line.size()));
  }
  return fields;
}

template <class Number>
Number NumberIn(const std::string& text, int base = 10) {
  Number number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number, base);
  return number;
}

std::string Shown(std::string word) {
  std::ranges::replace(word, '_', ' ');
  const auto marker = word.find('(');  // "(p)": where an adjective may stand
  return word.substr(0, marker);
}

void SplitGloss(std::string_view gloss, Sense& sense) {
  const auto quote = gloss.find('"');
  std::string_view text = gloss.substr(0, quote);
  while (!text.empty() && (text.back() == ' ' || text.back() == ';'))
    text.remove_suffix(1);
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  sense.gloss = text;
  if (quote == std::string_view::npos) return;
  gloss.remove_prefix(quote + 1);
  for (auto end = gloss.find('"'); end != std::string_view::npos;
       end = gloss.find('"')) {
    sense.examples.emplace_back(gloss.substr(0, end));
    const auto next = gloss.find('"', end + 1);
    if (next == std::string_view::npos) break;
    gloss.remove_prefix(next + 1);
  }
}

Sense SenseIn(const std::string& line, const std::string& word) {
  Sense sense;
  const auto bar = line.find('|');
  const auto fields = SplitAtBlanks(std::string_view(line).substr(0, bar));
  constexpr std::size_t kCount = 3, kFirstWord = 4;
  if (fields.size() > kCount) {
    const auto words = NumberIn<unsigned>(fields[kCount], 16);
    for (std::size_t i = 0, at = kFirstWord; i < words && at < fields.size();
         ++i, at += 2) {
      if (fields[at] != word) sense.synonyms.push_back(Shown(fields[at]));
    }
  }
  if (bar != std::string::npos)
    SplitGloss(std::string_view(line).substr(bar + 1), sense);
  return sense;
}

std::optional<Meaning> MeaningAs(const std::string& folder,
                                 const PartOfSpeech& part,
                                 const std::string& word) {
  const std::string name(part.file);
  const auto line = SortedFile(folder + "/index." + name).LineOf(word);
  if (!line) return std::nullopt;
  // lemma pos count pointers [pointer ...] senses tagged offset...
  const auto fields = SplitAtBlanks(*line);
  const std::size_t senses =
      fields.size() > 2 ? NumberIn<std::size_t>(fields[2]) : 0;
  if (senses == 0 || senses >= fields.size()) return std::nullopt;
  Meaning meaning{std::string(part.name), Shown(word), {}};
  SortedFile data(folder + "/data." + name);
  for (std::size_t i = fields.size() - senses; i < fields.size(); ++i) {
    const std::string entry = data.LineAt(NumberIn<std::int64_t>(fields[i]));
    // An entry begins with its own place.
    if (entry.starts_with(fields[i]) && meaning.senses.size() < kMostSenses)
      meaning.senses.push_back(SenseIn(entry, word));
  }
  if (meaning.senses.empty()) return std::nullopt;
  return meaning;
}

// A word and the words that it may be a form of.
std::vector<std::string> BaseForms(const std::string& folder,
                                   const PartOfSpeech& part,
                                   const std::string& word) {
  std::vector<std::string> forms = {word};
  const std::string exceptions = folder + "/" + std::string(part.file);
  if (const auto line = SortedFile(exceptions + ".exc").LineOf(word)) {
    const auto fields = SplitAtBlanks(*line);
    forms.insert(forms.end(), fields.begin() + 1, fields.end());
  }
  for (const auto& [suffix, replacement] : part.endings) {
    if (word.size() > suffix.size() + 1 && word.ends_with(suffix)) {
      forms.push_back(word.substr(0, word.size() - suffix.size()) +
                      std::string(replacement));
    }
  }
  return forms;
}

std::string Escaped(std::string_view text) {
  std::string html;
  for (char c : text) {
    switch (c) {
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '&':
        html += "&amp;";
        break;
      case '"':
        html += "&quot;";
        break;
      default:
        html += c;
    }
  }
  return html;
}

std::string Link(const std::string& word) {
  std::string term;
  for (char c : word) {
    if (c == ' ')
      term += "%20";
    else
      term += c;
  }
  return "<a href=\"/cgi-bin/dict.pl?term=" + Escaped(term) + "\">" +
         Escaped(word) + "</a>";
}

std::string SenseHtml(const Sense& sense) {
  std::string html = "<li>" + Escaped(sense.gloss);
  for (const std::string& example : sense.examples)
    html += "<br><i>\xE2\x80\x9C" + Escaped(example) + "\xE2\x80\x9D</i>";
  if (!sense.synonyms.empty()) html += "<br>Also: ";
  for (std::size_t i = 0; i < sense.synonyms.size(); ++i)
    html += (i > 0 ? ", " : "") + Link(sense.synonyms[i]);
  return html + "</li>";
}

}  // namespace

std::string MeaningsFolder() {
  std::error_code error;
  for (const char* folder : {KELDA_DATA_DIR "/wordnet", "/usr/share/wordnet"})
    if (std::filesystem::exists(std::string(folder) + "/index.noun", error))
      return folder;
  return "";
}

std::vector<Meaning> FindMeanings(const std::string& folder,
                                  std::string_view word) {
  std::string term;
  for (char c : word.substr(0, kLongestTerm)) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    if (c == ' ' && (term.empty() || term.back() == '_')) continue;
    term += c == ' ' ? '_' : c;
  }
  while (!term.empty() && term.back() == '_') term.pop_back();
  std::vector<Meaning> meanings;
  if (term.empty() || folder.empty()) return meanings;
  for (const PartOfSpeech& part : kPartsOfSpeech) {
    std::set<std::string> seen;
    for (const std::string& form : BaseForms(folder, part, term)) {
      if (!seen.insert(form).second) continue;
      if (auto meaning = MeaningAs(folder, part, form))
        meanings.push_back(std::move(*meaning));
    }
  }
  return meanings;
}

std::string MeaningPage(const std::string& folder, std::string_view word) {
  std::string html = "<h2>" + Escaped(word) + "</h2>";
  if (folder.empty()) {
    return html +
           "<p>The dictionary of meanings is not installed. It comes with the "
           "package wordnet-base.</p>";
  }
  const auto meanings = FindMeanings(folder, word);
  if (meanings.empty())
    html += "<p>No meaning of this word is known to the dictionary.</p>";
  for (const Meaning& meaning : meanings) {
    html += "<h3>" + Escaped(meaning.word) + " <i>(" +
            Escaped(meaning.partOfSpeech) + ")</i></h3><ol>";
    for (const Sense& sense : meaning.senses) html += SenseHtml(sense);
    html += "</ol>";
  }
  return html +
         "<hr><p><small>From WordNet 3.0, Copyright 2006 by Princeton "
         "University. All rights reserved.</small></p>";
}
