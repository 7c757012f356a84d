#include "cli/puzzles.h"

#include <iostream>

OpenedDocument OpenPuzzleFile(const std::string& path,
                              const std::string& prefix) {
  OpenedDocument opened = ReadDocument(path);
  for (const std::string& text : opened.reading.passedOver)
    std::cerr << "passed over: " << prefix << text << "\n";
  return opened;
}

bool TellLosses(const Format& format, const Document& document,
                const std::string& prefix) {
  const std::vector<Loss> losses = format.Losses(document);
  for (const Loss& loss : losses)
    std::cerr << "lost: " << prefix << loss.text << "\n";
  return !losses.empty();
}
