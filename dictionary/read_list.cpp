#include "dictionary/read_list.h"

#include <algorithm>
#include <numeric>

#include "base/text_file.h"

namespace {

constexpr std::string_view kReasons[kRefusals] = {
    "shorter than 3 letters", "longer than 51 letters", "not of letters A-Z",
    "score not from 0 to 100"};

// ISO 8859-1 from 0xC0 without accents; ' ' for what is no letter.
constexpr std::string_view kPlain =
    "AAAAAAACEEEEIIII NOOOOO OUUUUY SAAAAAAACEEEEIIII NOOOOO OUUUUY Y";

bool IsPunctuation(unsigned char c) {
  return c == ' ' || c == '-' || c == '\'' || c == '.' || c == ',' ||
         c == '!' || c == '?' || c == '&' || c == '/' || c == ':' || c == '(' ||
         c == ')' || c == '"' || c == '`' || c == '_' || c == '*' || c == '+';
}

// One accented letter at text[i] of UTF-8 or ISO 8859-1; moves i past it.
bool AddAccented(std::string_view text, size_t& i, std::string& word) {
  auto byte = static_cast<unsigned char>(text[i]);
  if (byte == 0xE2 && i + 2 < text.size() && text[i + 1] == '\x80') {
    i += 2;  // typographic dashes and quotation marks
    return true;
  }
  if (byte == 0xC3 && i + 1 < text.size() && (text[i + 1] & 0xC0) == 0x80)
    byte = static_cast<unsigned char>((text[++i] & 0x3F) + 0xC0);
  const char plain = byte < 0xC0 ? ' ' : kPlain[byte - 0xC0];
  if (plain == ' ') return false;
  word += plain;
  if (byte == 0xC6 || byte == 0xE6) word += 'E';
  if (byte == 0xDF) word += 'S';
  return true;
}

std::string_view Trim(std::string_view text) {
  size_t begin = text.find_first_not_of(" \r\t");
  if (begin == text.npos) return {};
  return text.substr(begin, text.find_last_not_of(" \r\t") + 1 - begin);
}

// A number from 0 to 100, perhaps with decimals, which are cut off; else -1.
int ParseScore(std::string_view text) {
  text = Trim(text);
  size_t point = std::min(text.find('.'), text.size());
  if (point == 0 || point > 3) return -1;
  int score = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    if (i == point) continue;
    if (text[i] < '0' || text[i] > '9') return -1;
    if (i < point) score = score * 10 + text[i] - '0';
  }
  return score <= kBestScore ? score : -1;
}

void Refuse(ListLine& line, Refusal why) {
  line.kind = ListLine::Kind::Refused;
  line.refusal = why;
}

void CheckSize(const WordListBuilder& builder, const LineReader& reader) {
  if (builder.Words() > kMostWords)
    reader.Fail("the lists have more than 2,000,000 words");
  if (builder.Bytes() > kMostBytes)
    reader.Fail("the lists take more than 1,000 MB of memory");
}

}  // namespace

bool FoldWord(std::string_view text, std::string& word) {
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c >= 'A' && c <= 'Z')
      word += c;
    else if (c >= 'a' && c <= 'z')
      word += static_cast<char>(c - 'a' + 'A');
    else if (!IsPunctuation(static_cast<unsigned char>(c)) &&
             !AddAccented(text, i, word))
      return false;
  }
  return true;
}

void ParseLine(std::string_view text, ListLine& line) {
  line.kind = ListLine::Kind::Nothing;
  line.score = kPlainScore;
  text = Trim(text);
  if (text.empty() || text[0] == '#') return;
  size_t end = text.find_first_of(";\t");
  const bool comma = end == text.npos;
  if (comma) end = text.find(',');
  if (end != text.npos) {
    std::string_view rest = text.substr(end + 1);
    const int score = ParseScore(rest.substr(0, rest.find_first_of(";\t,")));
    if (score >= 0) {
      line.score = score;
      text = Trim(text.substr(0, end));
    } else if (!comma) {
      Refuse(line, Refusal::BadScore);
      return;
    }
  }
  line.word.clear();
  const bool isWord = FoldWord(text, line.word);
  line.folded = line.word != text;
  if (!isWord)
    Refuse(line, Refusal::NoLetter);
  else if (line.word.size() < kShortestWord)
    Refuse(line, Refusal::TooShort);
  else if (line.word.size() > kLongestWord)
    Refuse(line, Refusal::TooLong);
  else
    line.kind = ListLine::Kind::Word;
}

int64_t LoadReport::Refused() const {
  return std::accumulate(refused.begin(), refused.end(), int64_t{0});
}

std::string LoadReport::Text() const {
  std::string text = path + ": " + std::to_string(taken) + " words";
  auto add = [&](int64_t count, const char* what) {
    if (count) text += "; " + std::to_string(count) + what;
  };
  add(below, " below the minimum score");
  add(repeated, " repeated");
  add(folded, " folded");
  add(Refused(), " refused");
  std::string why;
  for (int i = 0; i < kRefusals; ++i) {
    if (!refused[i]) continue;
    why += (why.empty() ? " (" : "; ") + std::to_string(refused[i]) + " " +
           std::string(kReasons[i]) + ", from line " +
           std::to_string(firstRefused[i]);
  }
  return why.empty() ? text : text + why + ")";
}

LoadReport ReadList(const std::string& path, int minimum, int number,
                    WordListBuilder& builder) {
  LoadReport report;
  report.path = path;
  LineReader reader(path);
  ListLine line;
  for (std::string_view text; reader.Next(text);) {
    if (reader.LineNumber() == 1 && text.starts_with("\xEF\xBB\xBF"))
      text.remove_prefix(3);
    ParseLine(text, line);
    if (line.kind == ListLine::Kind::Nothing) continue;
    ++report.lines;
    if (line.kind == ListLine::Kind::Refused) {
      const int why = static_cast<int>(line.refusal);
      if (!report.refused[why]++)
        report.firstRefused[why] = reader.LineNumber();
      continue;
    }
    report.folded += line.folded;
    if (!builder.Add(line.word, line.score, minimum, number)) {
      ++report.repeated;
    } else {
      ++(line.score >= minimum ? report.taken : report.below);
      CheckSize(builder, reader);
    }
  }
  return report;
}
