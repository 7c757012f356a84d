// The ports through which the program meets the outside: the user, the
// screen, paper.  The desktop program, the command line and the tests each
// bring their own.

#pragma once

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

struct Ports {
  Host& host;
  Picture& picture;
};

// A whole number 1..max, each as likely as the next.
int RandomUpTo(Host& host, int max);
