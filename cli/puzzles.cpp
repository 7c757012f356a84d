#include "cli/puzzles.h"

#include <iostream>

OpenedDocument OpenPuzzleFile(const std::string& path) {
  OpenedDocument opened = ReadDocument(path);
  for (const std::string& text : opened.reading.passedOver)
    std::cerr << "passed over: " << text << "\n";
  return opened;
}

bool TellLosses(const Format& format, const Document& document) {
  const std::vector<Loss> losses = format.Losses(document);
  for (const Loss& loss : losses) std::cerr << "lost: " << loss.text << "\n";
  return !losses.empty();
}
