#include "files/format.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "files/across_lite.h"
#include "files/ipuz.h"
#include "files/jpz.h"
#include "files/kdp.h"
#include "files/losses.h"
#include "files/puz.h"
#include "files/tidy.h"
#include "files/xd.h"

namespace {

constexpr std::array kFormats = {&kIpuzFormat, &kJpzFormat,        &kPuzFormat,
                                 &kXdFormat,   &kAcrossLiteFormat, &kKdpFormat};

}  // namespace

Reading Format::Read(std::string_view bytes) const {
  Reading reading = decode(bytes);
  Document& document = reading.document;
  std::ranges::move(Tidy(document), std::back_inserter(reading.passedOver));
  if (!holds.ours) TakeAnswersFromGrid(document);
  return reading;
}

Document Format::Fitted(const Document& document) const {
  Document fitted = FitInto(document, holds);
  if (fit) fitted = fit(fitted);
  if (!holds.ours) TakeAnswersFromGrid(fitted);
  return fitted;
}

std::vector<Loss> Format::Losses(const Document& document) const {
  Document tidy = document;
  Tidy(tidy);
  return LossesBetween(tidy, Fitted(document));
}

std::string Format::Refusal(const Document& document) const {
  const bool isOddSquare =
      document.width == document.height && document.width % 2 == 1;
  if (!holds.oddSquaresOnly || isOddSquare) return "";
  return "a " + std::string(id) + " file holds odd squares only, and this " +
         "puzzle is " + std::to_string(document.width) + " x " +
         std::to_string(document.height) + " cells";
}

std::string Format::Write(const Document& document) const {
  return encode(Fitted(document));
}

std::span<const Format* const> AllFormats() {
  return kFormats;
}

const Format* FindFormat(std::string_view id) {
  const auto found = std::ranges::find(kFormats, id, &Format::id);
  return found == kFormats.end() ? nullptr : *found;
}

const Format* FormatOfName(std::string_view path) {
  const std::string name = UpperCase(path);
  for (const Format* format : kFormats)
    if (name.ends_with(UpperCase(format->pattern.substr(1)))) return format;
  return nullptr;
}

const Format* FormatOfBytes(std::string_view bytes, std::string_view path) {
  const Format* byName = FormatOfName(path);
  if (byName && byName->recognises(bytes)) return byName;
  const auto found = std::ranges::find_if(
      kFormats, [&](const Format* f) { return f->recognises(bytes); });
  return found == kFormats.end() ? nullptr : *found;
}

OpenedDocument ReadDocument(const std::string& path, Opens what) {
  const std::string bytes = ReadFile(path, what);
  const Format* format = FormatOfBytes(bytes, path);
  // What no format recognises is refused by the one that its name tells.
  if (!format) format = FormatOfName(path);
  if (!format) throw FileError(path + ": this is no puzzle of a known format");
  try {
    return {format->Read(bytes), format};
  } catch (const FormatError& error) {
    throw FileError(path + ": " + error.what());
  }
}
