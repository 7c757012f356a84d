// The puzzle as files for others: the sheet as PDF, the grid as a picture,
// and the grid picture's own pixels as a bitmap.
//
// A file that cannot be written is told of in plain words, and what was there
// is left as it was.

#pragma once

#include "base/clipboard.h"
#include "base/printer.h"
#include "files/publisher.h"
#include "grid/state.h"

// "Copy to Bitmap": copies the grid picture to the clipboard, writes the
// clipboard's bitmap to a file and empties the clipboard.  Says in the end
//   Puzzle copied to:
//   /home/me/grid.bmp
//    545334 bytes
void CopyToBitmap(Host& host, BitmapClipboard& clipboard);

// "Save as PDF": the full sheet.
void SaveAsPdf(const State& state, Host& host, Publisher& publisher);

// "Save as Picture": the grid as PNG or SVG.
void SaveAsPicture(const State& state, Host& host, Publisher& publisher);

// "Print Preview": shows the full sheet, and prints it if the user wants.
void PreviewSheet(State& state, Host& host, Publisher& publisher,
                  Printer& printer);
