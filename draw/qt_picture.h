// The grid picture and its miniature, on images that stay as they are drawn.
//
// What is asked for is only noted; Update() brings the images up to date.  A
// cell that already looks as it should costs nothing, so a caller may repaint
// every cell as often as it likes.  Works without a window, at any scale:
// 15 twips are a pixel at scale 1.

#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QRegion>
#include <array>

#include "base/picture.h"

inline constexpr int kTwipsPerPixel = 15;

// What a cell shows.
struct CellPaint {
  Colour fill = ColourBackground;
  bool outlined = false;
  int number = 0;  // 0 for none
  char letter = ' ';
  bool operator==(const CellPaint&) const = default;
};

class GridPaint {
 public:
  CellPaint& operator[](Pos p) { return cells_[p.row * kSide + p.col]; }
  const CellPaint& operator[](Pos p) const {
    return cells_[p.row * kSide + p.col];
  }
  static bool Holds(Pos p) {
    return p.row >= 1 && p.row <= MaxGridSize && p.col >= 1 &&
           p.col <= MaxGridSize;
  }
  void Clear() { cells_.fill({}); }

 private:
  static constexpr int kSide = MaxGridSize + 1;
  std::array<CellPaint, kSide * kSide> cells_;
};

// An image of a grid that is n cells wide.
class GridImage {
 public:
  virtual ~GridImage() = default;

  // Starts again with an empty image; `scale` is device pixels per pixel.
  void Reset(int n, double scale);
  // Draws the cells that look different from `wanted`; returns where the
  // image changed, in device pixels.
  QRegion Update(const GridPaint& wanted);

  const QImage& Image() const { return image_; }
  double Scale() const { return scale_; }

 protected:
  // The side of the whole image in device pixels.
  virtual int Side() const = 0;
  // Device pixels per twip.
  virtual double PixelsPerTwip() const = 0;
  // Draws what is inside a cell's outline, on its fill.
  virtual void DrawTexts(QPainter& painter, Pos p, const CellPaint& cell) = 0;
  virtual void PrepareFonts() {}

  // Where a place of the picture, in twips, is in the image.
  int Pixel(int twips) const;
  // The box of a cell, its outline included, and what the outline leaves.
  QRect Box(Pos p) const;
  QRect Inside(Pos p) const;

  int n_ = 0;
  double scale_ = 1;

 private:
  void DrawCell(QPainter& painter, Pos p, const CellPaint& cell);

  QImage image_;
  GridPaint drawn_;
};

// The grid picture: clue numbers and letters.
class PictureImage : public GridImage {
 protected:
  int Side() const override;
  double PixelsPerTwip() const override { return scale_ / kTwipsPerPixel; }
  void DrawTexts(QPainter& painter, Pos p, const CellPaint& cell) override;
  void PrepareFonts() override;

 private:
  // Characters of a font, each drawn once.
  struct Glyphs {
    QFont font;
    std::array<QImage, 256> images;

    const QImage& Of(char character, const QImage& device);
  };

  Glyphs numbers_, letters_;
  QPoint letterShift_;
};

// The picture of the overview: a "+" for each letter.
class OverviewImage : public GridImage {
 public:
  // The side of the square that the whole miniature takes, in pixels.
  void SetSide(int side) { side_ = side; }

 protected:
  int Side() const override;
  double PixelsPerTwip() const override;
  void DrawTexts(QPainter& painter, Pos p, const CellPaint& cell) override;

 private:
  int side_ = 250;
};

// The port, with both images.
class QtPicture : public Picture {
 public:
  QtPicture();

  void Clear() override;
  void GridLines(int n) override;
  void FillCell(Pos cell, Colour colour) override;
  void CellText(Pos cell, int number, char letter) override;

  // Sets device pixels per pixel; the image is drawn anew.
  void SetScale(double scale);
  // Draws what has changed; where, in pixels of the window.
  QRegion Update();
  // The image as of the last update.
  const QImage& Image() const { return image_.Image(); }
  int Cells() const { return n_; }  // per row and column
  const CellPaint& At(Pos p) const { return paint_[p]; }

  // The miniature.
  void SetOverview(int side, double scale);
  bool UpdateOverview();  // whether it changed
  const QImage& OverviewPicture() const { return overview_.Image(); }

 private:
  GridPaint paint_;
  int n_ = 0;
  PictureImage image_;
  OverviewImage overview_;
  bool redrawn_ = false;  // all of the image is new
  bool overviewRedrawn_ = false;
};

// "Courier New", or what is installed in its place.
QFont FixedPitchFont();
