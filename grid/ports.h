// The ports through which the program meets the outside: the user, the
// screen, paper.  The desktop program, the command line and the tests each
// bring their own.

#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "grid/slot.h"

struct Colour {
  int red = 0, green = 0, blue = 0;  // 0..255
  bool operator==(const Colour&) const = default;
};

inline constexpr Colour ColourGreen{100, 200, 100};
inline constexpr Colour ColourRed{200, 100, 100};
inline constexpr Colour ColourBlackSquare{20, 20, 20};
inline constexpr Colour ColourLightGrey{200, 200, 200};
inline constexpr Colour ColourGrey{150, 150, 150};
inline constexpr Colour ColourBackground{255, 255, 255};  // paper
// What the check paints.
inline constexpr Colour ColourDivides{128, 0, 0};      // red
inline constexpr Colour ColourBadLength{0, 0, 255};    // light blue
inline constexpr Colour ColourUncrossed{0, 128, 128};  // cyan

inline constexpr int CellSize = 420;   // twips, the side of a cell
inline constexpr int GridMargin = 32;  // twips, of every cell box

enum class PointerShape { Normal, Hourglass };

enum class TriesAnswer { Abort = 3, Retry = 4, Ignore = 5 };

enum class UnsavedAnswer { Save, Discard, Cancel };

// What the program opens beside its messages.
enum class Window { BlacksMenu, SolutionMenu, Overview, Help, About, Meaning };

// What a file name is asked for with.
struct FileRequest {
  enum class Mode { Open, Save };
  Mode mode = Mode::Open;
  std::string Title;
  std::string FileTypes;      // "*.txt;*.dic;*.dat"
  std::string FileTypesName;  // "Dictionary Files"
};

class Host {
 public:
  virtual ~Host() = default;

  // Message and question boxes, without a title.
  virtual void Tell(std::string_view text) = 0;
  virtual bool AskYesNo(std::string_view text) = 0;
  virtual TriesAnswer AskTries(std::string_view text) = 0;
  // A line of text; "" when cancelled.
  virtual std::string AskText(std::string_view prompt, std::string_view title,
                              std::string_view preset) = 0;
  // The full path of a file; "" when cancelled.
  virtual std::string AskFileName(const FileRequest& request) = 0;

  // Whether to save a puzzle that is about to be replaced.
  virtual UnsavedAnswer AskUnsaved(std::string_view) {
    return UnsavedAnswer::Discard;
  }

  // Opens a window or a pop-up menu and returns when the user can work with
  // it; Meaning returns when it is closed.  Nothing where there is no screen.
  virtual void Open(Window) {}
  // Leaves the program when no command runs, unless the user cancels.
  virtual void Quit() {}

  // A line that the solver's log has just taken; returns when the user has
  // seen it, which makes the fill run step by step.
  virtual void ShowLogLine(std::string_view line) = 0;

  // Runs pending events if the user has pressed anything; the only point in
  // a long loop at which Halt can be seen.
  virtual void Poll() = 0;
  // Runs pending events once.
  virtual void RunEvents() = 0;
  // Takes the place of Poll where only Halt can end the task, for example
  // because "no further black square can be placed".
  virtual void AwaitHalt(std::string_view why) = 0;

  virtual void Pointer(PointerShape shape) = 0;

  // A random number, 0 <= x < 1.
  virtual double Chance() = 0;

  // The program cannot go on.  Says why, keeps the user's work, and does not
  // return.
  [[noreturn]] virtual void EndProgram(std::string_view why) = 0;
};

// The grid picture and its miniature in the overview: a surface that stays
// as it was drawn.
class Picture {
 public:
  virtual ~Picture() = default;

  virtual void Clear() = 0;
  // The outlines of all cells of an n x n grid, which takes a square of
  // n * CellSize + 100 twips.
  virtual void GridLines(int n) = 0;
  // Fills a cell's box and draws its outline; its texts are gone.
  virtual void FillCell(Pos cell, Colour colour) = 0;
  // A cell's clue number (0 for none) and letter, in place of those that
  // were there.
  virtual void CellText(Pos cell, int number, char letter) = 0;
};

// A rectangle, in twips.
struct Box {
  int left = 0, top = 0, right = 0, bottom = 0;
  bool operator==(const Box&) const = default;
};

struct TextStyle {
  double points = 10;  // font size
  bool bold = false;
  bool fixedPitch = false;  // as wide as Courier New: 0.6 of the font size
};

// Pages to draw on.  Positions are twips from the top left of the part of a
// page that can be printed on.
class Canvas {
 public:
  virtual ~Canvas() = default;

  // The part of a page that can be printed on.
  virtual int Width() const = 0;
  virtual int Height() const = 0;

  virtual int TextWidth(std::string_view text,
                        const TextStyle& style) const = 0;

  // A line of a width along the edges of a box, half of it outside.
  virtual void Outline(const Box& box, Colour colour, int width) = 0;
  virtual void Fill(const Box& box, Colour colour) = 0;
  // A line of ISO 8859-1 text, black, whose top left is at (x, y).
  virtual void Text(int x, int y, std::string_view text,
                    const TextStyle& style) = 0;
  // Goes on to the next page.
  virtual void NewPage() = 0;
};

// Why nothing came out of the printer, in plain words for the user.
class PrintError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The system's default printer.  Each call throws PrintError where it fails.
class Printer {
 public:
  virtual ~Printer() = default;

  // Begins a document on the printer's paper.  The canvas holds until Send.
  virtual Canvas& Begin(std::string_view title) = 0;
  // Ends the document and sends it to the printer.
  virtual void Send() = 0;
  // Waits a moment for word of what was sent; true when it is printed, or
  // takes so long that there is no point in waiting for more.
  virtual bool Settled() = 0;
};

// What a picture of the puzzle is made as.
enum class PictureKind { Png, Svg, Bmp };

struct PictureChoice {
  PictureKind kind = PictureKind::Png;
  double scale = 1;  // 1 is as on the screen
  bool letters = true;
};

// The system's clipboard, for bitmaps of the grid picture.
class BitmapClipboard {
 public:
  virtual ~BitmapClipboard() = default;

  // Puts the grid picture's pixels on the clipboard.
  virtual void CopyPicture() = 0;
  // The clipboard's bitmap as the bytes of a .bmp file.
  virtual std::string Bitmap() = 0;
  virtual void Empty() = 0;
};

using DrawPages = std::function<void(Canvas&)>;

struct State;

// Makes files of the puzzle and shows its pages.
class Publisher {
 public:
  virtual ~Publisher() = default;

  // The bytes of a PDF file, on the paper that the user usually prints on.
  virtual std::string Pdf(std::string_view title, const DrawPages& draw) = 0;
  // Asks what a picture is to be like; nothing when cancelled.
  virtual std::optional<PictureChoice> AskPicture(int gridSize) = 0;
  // The bytes of a picture file.
  virtual std::string PictureFile(const State& state,
                                  const PictureChoice& choice) = 0;
  // Shows pages until the user has seen enough; returns whether they are to
  // be printed.
  virtual bool Preview(const DrawPages& draw) = 0;
};

struct Ports {
  Host& host;
  Picture& picture;
};

// A whole number 1..max, each as likely as the next.
int RandomUpTo(Host& host, int max);
