// The host: the user, the clock's events and chance, as operations meet them.
//
// The desktop program, the command line and the tests each bring their own.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

enum class PointerShape { Normal, Hourglass };

enum class TriesAnswer { Abort = 3, Retry = 4, Ignore = 5 };

enum class UnsavedAnswer { Save, Discard, Cancel };

enum class LossesAnswer { Write, ExportWhole, Cancel };

// What the program opens beside its messages.
enum class Window { BlacksMenu, SolutionMenu, Overview, Help, About, Meaning };

// A kind of file to choose: "ipuz puzzle", "*.ipuz".
struct FileChoice {
  std::string name, pattern;
};

// What a file name is asked for with.
struct FileRequest {
  enum class Mode { Open, Save };
  Mode mode = Mode::Open;
  std::string Title;
  std::string FileTypes;      // "*.txt;*.dic;*.dat"
  std::string FileTypesName;  // "Dictionary Files"
  // To choose from, in place of the two above.
  std::vector<FileChoice> kinds{};
};

// What the user asked of the running task, beside the commands that have run
// meanwhile.
struct Events {
  bool halt = false;
  bool log = false;  // that the solver's log be on
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

  // Whether to write a file that would lack something, or that cannot be
  // written at all.
  virtual LossesAnswer AskLosses(std::string_view, bool /*canWrite*/) {
    return LossesAnswer::Cancel;
  }

  // Opens a window or a pop-up menu and returns when the user can work with
  // it; Meaning returns when it is closed.  Nothing where there is no screen.
  virtual void Open(Window) {}
  // Leaves the program when no command runs, unless the user cancels.
  virtual void Quit() {}

  // Operations call these four through grid/events.h, which takes what
  // happened into the state.

  // A line that the solver's log has just taken; returns when the user has
  // seen it, which makes the fill run step by step.
  virtual Events ShowLogLine(std::string_view line) = 0;
  // Runs pending events if the user has pressed anything; the only point in
  // a long loop at which Halt can be seen.
  virtual Events Poll() = 0;
  // Runs pending events once.
  virtual Events RunEvents() = 0;
  // Takes the place of Poll where only Halt can end the task, for example
  // because "no further black square can be placed".
  virtual Events AwaitHalt(std::string_view why) = 0;

  virtual void Pointer(PointerShape shape) = 0;

  // A random number, 0 <= x < 1.
  virtual double Chance() = 0;

  // The program cannot go on.  Says why, keeps the user's work, and does not
  // return.
  [[noreturn]] virtual void EndProgram(std::string_view why) = 0;
};

// A number, 0 <= x < 1, of random bits.
double ChanceOf(std::uint64_t bits);

// A whole number 1..max, each as likely as the next.
int RandomUpTo(Host& host, int max);
