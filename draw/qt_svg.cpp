#include "draw/qt_svg.h"

#include <cstdio>

namespace {

constexpr double kTwipsPerPixel = 15;

// A number as SVG writes it, whatever the locale: "0.487".
std::string Number(double value) {
  return QByteArray::number(value, 'g', 6).toStdString();
}

std::string Attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + value + "\"";
}

std::string Hex(Colour colour) {
  char text[8];
  std::snprintf(text, sizeof text, "#%02x%02x%02x", colour.red & 255,
                colour.green & 255, colour.blue & 255);
  return text;
}

std::string Xml(std::string_view text) {
  QString clean = FromText(text);
  for (QChar& c : clean)
    if (c < u' ') c = u' ';
  return clean.toHtmlEscaped().toStdString();
}

std::string BoxPath(const Box& box) {
  return "M" + std::to_string(box.left) + " " + std::to_string(box.top) + "H" +
         std::to_string(box.right) + "V" + std::to_string(box.bottom) + "H" +
         std::to_string(box.left) + "Z";
}

std::string Families(bool fixedPitch) {
  std::string families;
  for (const QString& family : FontFamilies({10, false, fixedPitch}))
    families += "'" + family.toStdString() + "',";
  return families + (fixedPitch ? "monospace" : "sans-serif");
}

}  // namespace

void SvgCanvas::EndPath() {
  if (path_.empty()) return;
  pages_.back() += "<path" + pathStyle_ + Attribute("d", path_) + "/>\n";
  path_.clear();
}

void SvgCanvas::Outline(const Box& box, Colour colour, int width) {
  const std::string style = Attribute("fill", "none") +
                            Attribute("stroke", Hex(colour)) +
                            Attribute("stroke-width", std::to_string(width));
  if (style != pathStyle_) EndPath();
  pathStyle_ = style;
  path_ += BoxPath(box);
}

void SvgCanvas::Fill(const Box& box, Colour colour) {
  const std::string style = Attribute("fill", Hex(colour));
  if (style != pathStyle_) EndPath();
  pathStyle_ = style;
  path_ += BoxPath(box);
}

void SvgCanvas::Circle(const Box& box, Colour colour, int width) {
  EndPath();
  pages_.back() += "<ellipse" + Attribute("fill", "none") +
                   Attribute("stroke", Hex(colour)) +
                   Attribute("stroke-width", std::to_string(width)) +
                   Attribute("cx", Number((box.left + box.right) / 2.0)) +
                   Attribute("cy", Number((box.top + box.bottom) / 2.0)) +
                   Attribute("rx", Number((box.right - box.left) / 2.0)) +
                   Attribute("ry", Number((box.bottom - box.top) / 2.0)) +
                   "/>\n";
}

void SvgCanvas::Text(int x, int y, std::string_view text,
                     const TextStyle& style) {
  EndPath();
  const FontBook::Entry& entry = fonts_.Of(style);
  std::string element = "<text";
  element += Attribute("class", style.fixedPitch ? "f" : "p");
  element += Attribute("x", std::to_string(x));
  element += Attribute("y", Number(y + entry.metrics.ascent()));
  element += Attribute("font-size", std::to_string(entry.font.pixelSize()));
  if (style.bold) element += Attribute("font-weight", "bold");
  if (FromText(text).size() > 1) {
    element += Attribute(
        "textLength", Number(entry.metrics.horizontalAdvance(FromText(text))));
    element += Attribute("lengthAdjust", "spacingAndGlyphs");
  }
  pages_.back() += element + ">" + Xml(text) + "</text>\n";
}

void SvgCanvas::NewPage() {
  EndPath();
  pages_.emplace_back();
}

std::string SvgCanvas::File(const SvgPage& page, std::string_view title) {
  EndPath();
  const int count = static_cast<int>(pages_.size());
  const double unit = page.shownScale / kTwipsPerPixel;
  std::string file = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg";
  file += Attribute("xmlns", "http://www.w3.org/2000/svg");
  file += Attribute("width", Number(page.width * unit));
  file += Attribute("height", Number(count * page.height * unit));
  file += Attribute("viewBox", "0 0 " + std::to_string(page.width) + " " +
                                   std::to_string(count * page.height));
  file += ">\n<title>" + Xml(title) + "</title>\n<style>text{white-space:pre}";
  file += ".f{font-family:" + Families(true) + "}";
  file += ".p{font-family:" + Families(false) + "}</style>\n";
  file += "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
  for (int i = 0; i < count; ++i) {
    file += "<g xml:space=\"preserve\"";
    file +=
        Attribute("transform", "translate(" + std::to_string(page.left) + " " +
                                   std::to_string(i * page.height + page.top) +
                                   ") scale(" + Number(page.scale) + ")");
    file += ">\n" + pages_[i] + "</g>\n";
  }
  return file + "</svg>\n";
}
