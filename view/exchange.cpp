#include "view/exchange.h"

#include <algorithm>

#include "files/puzzle_file.h"
#include "files/save_file.h"
#include "grid/bridge.h"
#include "view/unsaved.h"

namespace {

constexpr std::size_t kMostLosses = 12;  // that are named one by one

std::vector<FileChoice> KindsOf(std::span<const Format* const> formats) {
  std::vector<FileChoice> kinds;
  for (const Format* format : formats)
    kinds.push_back({std::string(format->name), std::string(format->pattern)});
  return kinds;
}

// Lines of a list, cut when it is long.
std::string Lines(const std::vector<std::string>& texts) {
  std::string lines;
  for (std::size_t i = 0; i < texts.size() && i < kMostLosses; ++i)
    lines += std::string(kLineBreak) + texts[i];
  if (texts.size() > kMostLosses)
    lines += std::string(kLineBreak) + "and" +
             Str(static_cast<long>(texts.size() - kMostLosses)) + " more";
  return lines;
}

std::vector<std::string> LossesOf(const Format& format,
                                  const Document& document) {
  std::vector<std::string> texts;
  for (const Loss& loss : format.Losses(document)) texts.push_back(loss.text);
  return texts;
}

// Writes the puzzle to a file that the user names; whether it was written.
bool ExportAs(App& app, std::span<const Format* const> formats) {
  const std::string path = app.host.AskFileName({FileRequest::Mode::Save,
                                                 "Select a file to export to",
                                                 "", "", KindsOf(formats)});
  if (path.empty()) return false;
  const Format* format = FormatOfName(path);
  if (!format) {
    app.host.Tell(path + ": no puzzle format has such an ending");
    return false;
  }
  const Writing writing = AskAboutLosses(app, *format);
  if (writing != Writing::GoesOn) return writing == Writing::IsDone;
  if (!ConfirmOverwrite(app.host, path)) return false;
  const Document document = LiveDocument(app);
  if (!SaveFile(app.host, path, [&] { return format->Write(document); }))
    return false;
  if (app.history.File().empty() && format->Losses(document).empty())
    app.history.NoteSaved("");
  app.host.Tell("Exported to: " + path);
  return true;
}

}  // namespace

void ImportPuzzle(App& app) {
  if (!MayLeavePuzzle(app)) return;
  const std::string path = app.host.AskFileName(
      {FileRequest::Mode::Open, "Select a puzzle to import", "", "",
       KindsOf(AllFormats())});
  if (!path.empty()) ImportFile(app, path, "Import");
}

void ImportFile(App& app, const std::string& path, std::string_view caption) {
  const Reading reading = ReadDocument(path, Opens::RegularFiles).reading;
  ShowDocument(app.state, app.host, reading.document);
  NameFile(app.state, "");
  app.history.Replace(caption, reading.document, "");
  app.history.NoteSaved("");
  if (reading.passedOver.empty()) return;
  app.host.Tell("Not all of the file could be used:" +
                Lines(reading.passedOver));
}

void ExportPuzzle(App& app) {
  (void)ExportAs(app, AllFormats());
}

Writing AskAboutLosses(App& app, const Format& format) {
  const Document document = LiveDocument(app);
  const std::string refusal = format.Refusal(document);
  const std::vector<std::string> losses = LossesOf(format, document);
  if (refusal.empty() && losses.empty()) return Writing::GoesOn;
  const std::string kind = "A file of the kind \"" + std::string(format.name) +
                           "\" (" + std::string(format.pattern) + ") ";
  const std::string text =
      refusal.empty()
          ? kind +
                "cannot hold all of this puzzle. It would lack:" + Lines(losses)
          : kind + "cannot be written: " + refusal + ".";
  const Format* const whole[] = {FindFormat("ipuz")};
  switch (app.host.AskLosses(text, refusal.empty())) {
    case LossesAnswer::Write:
      return Writing::GoesOn;
    case LossesAnswer::ExportWhole:
      return ExportAs(app, whole) ? Writing::IsDone : Writing::IsCancelled;
    case LossesAnswer::Cancel:
      break;
  }
  return Writing::IsCancelled;
}
