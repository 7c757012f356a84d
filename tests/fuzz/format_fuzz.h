// What holds of every reader of puzzles: whatever the bytes, they are refused
// or read, and what was read comes back equal from a file as far as the
// format holds it.

#pragma once

#include <cstdint>
#include <cstdlib>

#include "files/format.h"

inline void FuzzFormat(const Format& format, const std::uint8_t* data,
                       std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  format.recognises(bytes);
  try {
    const Document document = format.Read(bytes).document;
    if (!format.Refusal(document).empty()) return;
    const Document again = format.Read(format.Write(document)).document;
    if (again != format.Fitted(document)) std::abort();
  } catch (const FormatError&) {
  }
}
