#include "controls/page_bounds.h"

#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <algorithm>
#include <functional>

namespace {

constexpr qsizetype kLargestPage = 64 << 10;
constexpr qsizetype kDeepestElement = 50;
constexpr qsizetype kDeepestTable = 5;  // each doubles the time
constexpr double kMostCells = 1000;     // and list items

const QSet<QString> kInLine = {"a",   "abbr", "b",     "big",  "cite",   "code",
                               "del", "dfn",  "em",    "i",    "kbd",    "q",
                               "s",   "samp", "small", "span", "strong", "sub",
                               "sup", "tt",   "u",     "var"};
const QSet<QString> kBlocks = {
    "blockquote", "br",    "caption", "center", "dd",  "div",   "dl",
    "dt",         "h1",    "h2",      "h3",     "h4",  "h5",    "h6",
    "hr",         "li",    "ol",      "p",      "pre", "table", "td",
    "th",         "tbody", "tfoot",   "thead",  "tr",  "ul"};
const QSet<QString> kWithoutEnd = {"br", "hr"};
// One of these ends one that is still open.
const QSet<QString> kEndedByNext = {"p", "li", "dt", "dd", "tr", "td", "th"};
const QSet<QString> kWithoutText = {"script", "style", "title"};
const QSet<QString> kAttributes = {"href",    "name",    "id",
                                   "colspan", "rowspan", "align"};

struct Tag {
  QString name;
  bool ends = false;  // "</p>"
  QStringView attributes;
};

// The parts of a page in their order.
struct Reader {
  std::function<void(QStringView)> onText;
  std::function<void(const Tag&)> onTag;
};

// Where the tag that begins at `from` ends: after its ">", which may not
// stand in a value's quotes.
qsizetype EndOfTag(QStringView html, qsizetype from) {
  QChar quote, before;
  for (qsizetype i = from; i < html.size(); ++i) {
    const QChar c = html[i];
    if (!quote.isNull())
      quote = c == quote ? QChar() : quote;
    else if (before == '=' && (c == '"' || c == '\''))
      quote = c;
    else if (c == '>')
      return i + 1;
    if (!c.isSpace()) before = c;
  }
  return html.size();
}

qsizetype EndOfComment(QStringView html, qsizetype from) {
  const auto end = html.indexOf(QLatin1String("-->"), from);
  return end < 0 ? html.size() : end + 3;
}

// What does not begin a tag: "a < b".
bool IsText(QStringView html, qsizetype at) {
  if (at + 1 >= html.size()) return true;
  const QChar next = html[at + 1];
  return !next.isLetter() && next != '/' && next != '!' && next != '?';
}

Tag TagIn(QStringView text) {
  Tag tag;
  tag.ends = text.startsWith('/');
  if (tag.ends) text = text.mid(1);
  qsizetype length = 0;
  while (length < text.size() && text[length].isLetterOrNumber()) ++length;
  tag.name = text.left(length).toString().toLower();
  tag.attributes = text.mid(length);
  return tag;
}

void Read(QStringView html, const Reader& reader) {
  for (qsizetype at = 0; at < html.size();) {
    auto open = html.indexOf('<', at);
    while (open >= 0 && IsText(html, open)) open = html.indexOf('<', open + 1);
    if (open < 0) open = html.size();
    if (open > at) reader.onText(html.mid(at, open - at));
    if (open == html.size()) return;
    if (html.mid(open).startsWith(QLatin1String("<!--"))) {
      at = EndOfComment(html, open);
      continue;
    }
    at = EndOfTag(html, open);
    const Tag tag = TagIn(html.mid(open + 1, at - open - 1));
    reader.onTag(tag);
    if (tag.ends || !kWithoutText.contains(tag.name)) continue;
    const auto end = html.indexOf("</" + tag.name, at, Qt::CaseInsensitive);
    at = end < 0 ? html.size() : end;
  }
}

// Writes a page anew while it is within its bounds.
class PageWriter {
 public:
  void AddText(QStringView text) {
    html += text.toString().replace('<', "&lt;").replace('>', "&gt;");
  }

  void AddTag(const Tag& tag) {
    if (!withinBounds) return;
    if (!kInLine.contains(tag.name) && !kBlocks.contains(tag.name)) return;
    if (tag.ends)
      End(tag.name);
    else
      Begin(tag);
    withinBounds = open_.size() <= kDeepestElement &&
                   open_.count("table") <= kDeepestTable &&
                   cells_ <= kMostCells;
  }

  QString html;
  bool withinBounds = true;

 private:
  void Begin(const Tag& tag) {
    const bool endsLast = kEndedByNext.contains(tag.name) && !open_.isEmpty() &&
                          open_.last() == tag.name;
    if (endsLast) End(tag.name);
    if (!kWithoutEnd.contains(tag.name)) open_.append(tag.name);
    html += '<' + tag.name;
    const double cells = AddAttributes(tag.attributes);
    if (tag.name == "td" || tag.name == "th" || tag.name == "li")
      cells_ += cells;
    html += '>';
  }

  // Ends an element with all that are open in it.
  void End(const QString& name) {
    if (!open_.contains(name)) return;
    QString last;
    do {
      last = open_.takeLast();
      html += "</" + last + '>';
    } while (last != name);
  }

  // Returns how many cells a cell with these takes.
  double AddAttributes(QStringView attributes) {
    static const QRegularExpression kAttribute(
        "([a-z]+)\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)'|([^\\s\"'>]+))",
        QRegularExpression::CaseInsensitiveOption);
    double cells = 1;
    for (auto found = kAttribute.globalMatch(attributes.toString());
         found.hasNext();) {
      const auto match = found.next();
      const QString name = match.captured(1).toLower();
      if (!kAttributes.contains(name)) continue;
      const QString value =
          match.captured(2) + match.captured(3) + match.captured(4);
      if (name.endsWith("span")) cells *= std::max(1.0, value.toDouble());
      html += ' ' + name + "=\"" +
              QString(value).replace('"', "&quot;").replace('<', "&lt;") + '"';
    }
    return cells;
  }

  QStringList open_;
  double cells_ = 0;
};

QString WithoutEntities(QString text) {
  for (const auto& [entity, character] : {std::pair("&lt;", "<"),
                                          {"&gt;", ">"},
                                          {"&quot;", "\""},
                                          {"&nbsp;", " "},
                                          {"&#39;", "'"},
                                          {"&amp;", "&"}})
    text.replace(QLatin1String(entity), QLatin1String(character));
  return text;
}

}  // namespace

std::optional<QString> PageWithinBounds(const QString& html) {
  if (html.toUtf8().size() > kLargestPage) return std::nullopt;
  PageWriter writer;
  Read(html, {[&](QStringView text) { writer.AddText(text); },
              [&](const Tag& tag) { writer.AddTag(tag); }});
  if (!writer.withinBounds) return std::nullopt;
  return writer.html;
}

QString TextOfPage(const QString& html) {
  QString text;
  Read(html, {[&](QStringView part) { text += part; },
              [&](const Tag& tag) {
                if (kBlocks.contains(tag.name) && !text.endsWith('\n'))
                  text += '\n';
              }});
  return WithoutEntities(text).trimmed();
}

QString BoundedText(const QString& text) {
  if (text.size() <= kLargestPage) return text;
  return text.left(kLargestPage) + "\n...";
}
