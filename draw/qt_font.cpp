#include "draw/qt_font.h"

#include <algorithm>
#include <cmath>

QStringList FontFamilies(const TextStyle& style) {
  if (style.fixedPitch)
    return {"Courier New", "Liberation Mono", "DejaVu Sans Mono"};
  return {"Arial", "Liberation Sans", "DejaVu Sans"};
}

const FontBook::Entry& FontBook::Of(const TextStyle& style) const {
  const int size =
      std::max(1, static_cast<int>(std::lround(style.points * 20)));
  const int key = size * 4 + style.bold * 2 + style.fixedPitch;
  const auto found = entries_.find(key);
  if (found != entries_.end()) return found->second;
  QFont font(FontFamilies(style));
  font.setStyleHint(style.fixedPitch ? QFont::Monospace : QFont::SansSerif);
  font.setFixedPitch(style.fixedPitch);
  font.setBold(style.bold);
  font.setPixelSize(size);
  font.setHintingPreference(QFont::PreferNoHinting);
  return entries_.try_emplace(key, Entry{font, QFontMetricsF(font)})
      .first->second;
}

int FontBook::TextWidth(std::string_view text, const TextStyle& style) const {
  const double width = Of(style).metrics.horizontalAdvance(FromText(text));
  return static_cast<int>(std::ceil(width));
}
