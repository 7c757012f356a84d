// Fakes for what leaves the program: paper that is written down as text, a
// printer, a clipboard and a publisher.

#pragma once

#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "base/clipboard.h"
#include "base/printer.h"
#include "files/publisher.h"
#include "tests/fakes.h"

// Writes down every call as a line: "text 750,0 14b Title".  A character is
// 0.6 of its font size wide.
class TextCanvas : public Canvas {
 public:
  TextCanvas(int width, int height) : width_(width), height_(height) {}

  int Width() const override { return width_; }
  int Height() const override { return height_; }
  int TextWidth(std::string_view text, const TextStyle& style) const override {
    return static_cast<int>(text.size() * style.points * 12);
  }
  void Outline(const Box& box, Colour, int width) override {
    Line("box", box) << " line " << width;
    Keep();
  }
  void Fill(const Box& box, Colour) override {
    Line("fill", box);
    Keep();
  }
  void Circle(const Box& box, Colour, int width) override {
    Line("circle", box) << " line " << width;
    Keep();
  }
  void Text(int x, int y, std::string_view text,
            const TextStyle& style) override {
    line_ << "text " << x << "," << y << " " << style.points
          << (style.bold ? "b" : "") << (style.fixedPitch ? "f" : "") << " "
          << text;
    Reach(x + TextWidth(text, style),
          y + static_cast<int>(style.points * 20 * 1.13));
    Keep();
  }
  void NewPage() override {
    ++pages;
    line_ << "page";
    Keep();
  }

  // The lines that begin with a text.
  std::vector<std::string> Calls(std::string_view kind) const {
    std::vector<std::string> found;
    for (const std::string& call : calls)
      if (call.starts_with(kind)) found.push_back(call);
    return found;
  }

  std::vector<std::string> calls;
  int pages = 1;
  int right = 0, bottom = 0;  // how far the drawing reaches

 private:
  std::ostream& Line(const char* name, const Box& box) {
    Reach(box.right, box.bottom);
    return line_ << name << " " << box.left << "," << box.top << " "
                 << box.right << "," << box.bottom;
  }
  void Reach(int x, int y) {
    right = std::max(right, x);
    bottom = std::max(bottom, y);
  }
  void Keep() {
    calls.push_back(line_.str());
    line_.str("");
  }

  int width_, height_;
  std::ostringstream line_;
};

class FakePrinter : public Printer {
 public:
  TextCanvas canvas{10466, 15398};
  std::string title;
  // The call that fails, and with what.
  enum class Fault { None, Begin, Send, Settled } fault = Fault::None;
  int looksUntilSettled = 3;
  bool sent = false;

  Canvas& Begin(std::string_view text) override {
    title = text;
    FailIf(Fault::Begin);
    return canvas;
  }
  void Send() override {
    FailIf(Fault::Send);
    sent = true;
  }
  bool Settled() override {
    FailIf(Fault::Settled);
    return --looksUntilSettled <= 0;
  }

 private:
  void FailIf(Fault here) const {
    if (fault == here) throw PrintError("No paper.");
  }
};

class FakeClipboard : public BitmapClipboard {
 public:
  std::optional<std::string> content;
  std::string picture = "BM and pixels";
  int copies = 0;

  void CopyPicture() override {
    ++copies;
    content = picture;
  }
  std::string Bitmap() override { return content.value_or(""); }
  void Empty() override { content.reset(); }
};

class FakePublisher : public Publisher {
 public:
  std::optional<PictureChoice> choice;
  std::string madeOf;  // what a file was made of
  bool printAfterPreview = false;
  int pagesSeen = 0;

  std::string Pdf(std::string_view title, const DrawPages& draw) override {
    TextCanvas canvas(10466, 15398);
    draw(canvas);
    madeOf = canvas.calls.front();
    return "PDF " + std::string(title);
  }
  std::optional<PictureChoice> AskPicture(int) override { return choice; }
  std::string PictureFile(const Paint&, std::string_view,
                          const PictureChoice& wanted) override {
    return "picture " + std::to_string(wanted.scale);
  }
  bool Preview(const DrawPages& draw) override {
    TextCanvas canvas(10466, 15398);
    draw(canvas);
    pagesSeen = canvas.pages;
    return printAfterPreview;
  }
};
