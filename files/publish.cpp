#include "files/publish.h"

#include <filesystem>

#include "base/utf8.h"
#include "files/save_file.h"
#include "files/sheet.h"
#include "grid/drawing.h"

namespace {

// The name of a file that may be written; "" when there is none.
std::string AskTarget(Host& host, const FileRequest& request) {
  const std::string path = host.AskFileName(request);
  return path.empty() || !ConfirmOverwrite(host, path) ? "" : path;
}

FileRequest RequestTarget(std::string title, std::string types,
                          std::string name) {
  return {FileRequest::Mode::Save, std::move(title), std::move(types),
          std::move(name)};
}

}  // namespace

void CopyToBitmap(Host& host, BitmapClipboard& clipboard) {
  const std::string path = AskTarget(
      host,
      RequestTarget("Select destination file for a bitmap copy of this puzzle",
                    "*.bmp", "Puzzle Bitmap Files"));
  if (path.empty()) return;
  const bool written = SaveFile(host, path, [&] {
    clipboard.CopyPicture();
    std::string bitmap = clipboard.Bitmap();
    clipboard.Empty();
    return bitmap;
  });
  if (!written) return;
  std::error_code error;
  const auto length = std::filesystem::file_size(path, error);
  host.Tell("Puzzle copied to:" + std::string(kLineBreak) + path +
            std::string(kLineBreak) +
            Str(error ? 0 : static_cast<long>(length)) + " bytes");
}

void SaveAsPdf(const State& state, Host& host, Publisher& publisher) {
  const std::string path =
      AskTarget(host, RequestTarget("Select a file for the printed sheet",
                                    "*.pdf", "PDF Files"));
  if (path.empty()) return;
  const bool written = SaveFile(host, path, [&] {
    return publisher.Pdf(FromUnknown(state.Text5), [&](Canvas& canvas) {
      DrawSheet(state, SheetMode::Full, canvas);
    });
  });
  if (written) host.Tell("Saved to: " + path);
}

void SaveAsPicture(const State& state, Host& host, Publisher& publisher) {
  const auto choice = publisher.AskPicture(state.GridSize);
  if (!choice) return;
  const bool svg = choice->kind == PictureKind::Svg;
  const std::string path = AskTarget(
      host, RequestTarget("Select a file for a picture of this puzzle",
                          svg ? "*.svg" : "*.png",
                          svg ? "SVG Pictures" : "PNG Pictures"));
  if (path.empty()) return;
  const bool written = SaveFile(host, path, [&] {
    return publisher.PictureFile(PaintOf(state, choice->letters),
                                 FromUnknown(state.Text5), *choice);
  });
  if (written) host.Tell("Saved to: " + path);
}

void PreviewSheet(State& state, Host& host, Publisher& publisher,
                  Printer& printer) {
  const State sheet = state;
  const bool print = publisher.Preview(
      [&](Canvas& canvas) { DrawSheet(sheet, SheetMode::Full, canvas); });
  if (print) PrintPuzzle(state, host, printer, SheetMode::Full);
}
