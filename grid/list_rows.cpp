#include "grid/list_rows.h"

std::string SlotRow::Text() const {
  std::string text = slot.Text();
  if (mask) text.append("=").append(mask->View());
  return text;
}

std::string CountRow::Text() const {
  std::string text = Padded(count, 5) + slot.Text();
  if (mask.Size() > 0) text.append("=").append(mask.View());
  return text;
}

std::string CensusRow::Text() const {
  return Padded(key, 5) + slot.Text();
}

std::uint64_t ScoreOrder(int score) {
  // A number in base 11 with the digits of the text from the left, then an
  // end mark that is above every digit, as a letter is.
  constexpr int kBase = 11, kEnd = 10, kPlaces = 11;
  int first = 100000;  // the value of the first digit
  while (score / first >= 10) first *= 10;
  std::uint64_t order = 0;
  int places = 1;
  for (; first > 0; first /= 10, ++places)
    order = order * kBase + score / first % 10;
  order = order * kBase + kEnd;
  for (; places < kPlaces; ++places) order *= kBase;
  return order;
}

std::string Candidate::Text() const {
  return Padded(score, 6) + std::string(word.View());
}

std::string Placement::Text() const {
  std::string text(word.View());
  text.append(";").append(mask.View()).append(";");
  text += Str(first.row) + ";" + Str(first.col) + ";";
  text += static_cast<char>(direction);
  return text;
}

std::string LetterRow::Text() const {
  return Padded(count, 6) + letter;
}

std::string LengthRow::Text() const {
  return Padded(count, 6) + "len=" + Padded(length, 4);
}

std::string CellKey::Text() const {
  return Padded(index, digits);
}

std::string CellGroup::Text() const {
  std::string text = cells.front().Text() + ",";
  for (CellKey cell : cells) text += cell.Text() + ",";
  return text;
}
