// The grid picture and its miniature, on images that stay as they are drawn.
//
// Update() brings an image up to date with a paint.  A cell that already looks
// as it should costs nothing, so operations may repaint every cell as often as
// they like.  Works without a window, at any scale: 15 twips are a pixel at
// scale 1.

#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QRegion>
#include <array>
#include <vector>

#include "puzzle/paint.h"

inline constexpr int kTwipsPerPixel = 15;

// An image of a grid.
class GridImage {
 public:
  virtual ~GridImage() = default;

  // Sets device pixels per pixel; the next update draws all anew.
  void SetScale(double scale);
  // Draws the cells that look different from `wanted`; returns where the
  // image changed, in device pixels.
  QRegion Update(const Paint& wanted);

  const QImage& Image() const { return image_; }
  double Scale() const { return scale_; }

 protected:
  // The size of the whole image in device pixels.
  virtual QSize Size() const = 0;
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

  int Columns() const { return drawn_.width; }
  int Rows() const { return drawn_.height; }
  // Makes the next update draw all anew.
  void StartAnew() { image_ = QImage(); }

 private:
  void Reset(int columns, int rows);
  // The cells that have to be drawn for `wanted`, in reading order.
  std::vector<Pos> Changed(const Paint& wanted) const;
  QRegion DrawCells(const std::vector<Pos>& cells);
  void DrawOutline(QPainter& painter, Pos p);
  void DrawCell(QPainter& painter, Pos p, const CellPaint& cell);
  void DrawBars(QPainter& painter, Pos p, const CellPaint& cell);

  double scale_ = 1;
  QImage image_;
  Paint drawn_;  // what the image shows
};

// The grid picture: clue numbers and letters.
class PictureImage : public GridImage {
 protected:
  QSize Size() const override;
  double PixelsPerTwip() const override { return Scale() / kTwipsPerPixel; }
  void DrawTexts(QPainter& painter, Pos p, const CellPaint& cell) override;
  void PrepareFonts() override;

 private:
  // Characters of a font, each drawn once.
  struct Glyphs {
    QFont font;
    std::array<QImage, 256> images;

    const QImage& Of(char character, const QImage& device);
  };

  void DrawCircle(QPainter& painter, const QRect& inside);
  // A text of several letters, as large as the cell allows, about the same
  // height as a letter whose box begins at `top`.
  void DrawFitted(QPainter& painter, const QRect& inside, int top,
                  const QString& text);

  Glyphs numbers_, letters_;
  QPoint letterShift_;
};

// The picture of the overview: a "+" for each letter.
class OverviewImage : public GridImage {
 public:
  // The side of the square that the whole miniature takes, in pixels.
  void SetSide(int side);

 protected:
  QSize Size() const override;
  double PixelsPerTwip() const override;
  void DrawTexts(QPainter& painter, Pos p, const CellPaint& cell) override;

 private:
  int side_ = 250;
};

// Both images of a paint, which must outlive them.
class QtPicture {
 public:
  explicit QtPicture(const Paint& paint) : paint_(paint) {}

  // Sets device pixels per pixel; the image is drawn anew.
  void SetScale(double scale) { image_.SetScale(scale); }
  // Draws what has changed; where, in pixels of the window.
  QRegion Update();
  // The image as of the last update.
  const QImage& Image() const { return image_.Image(); }

  // The miniature for a square of `side` pixels, each of which is `scale`
  // device pixels wide.
  const QImage& Overview(int side, double scale);

 private:
  const Paint& paint_;
  PictureImage image_;
  OverviewImage overview_;
};

// "Courier New", or what is installed in its place.
QFont FixedPitchFont();
