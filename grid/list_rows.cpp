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
