#include "draw/qt_pages.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <cmath>
#include <cstring>
#include <optional>
#include <vector>

#include "draw/qt_canvas.h"
#include "draw/qt_svg.h"

namespace {

constexpr int kTwipsPerInch = 1440;
constexpr double kTwipsPerPoint = 20;
constexpr int kPictureDpi = 192;  // whole pixels to a cell

// The two lists side by side.  On narrower paper everything is smaller.
constexpr int kLeastWidth = 10240;

// How a page is drawn: its printable part in the canvas's units.
struct PagePlan {
  double scale = 1;
  int width = 0, height = 0;
};

PagePlan PlanFor(const Paper& paper) {
  const double width = paper.width - paper.left - paper.right;
  const double height = paper.height - paper.top - paper.bottom;
  const double scale = std::min(1.0, width / kLeastWidth);
  return {scale, static_cast<int>(width / scale),
          static_cast<int>(height / scale)};
}

QPageLayout LayoutOf(const Paper& paper) {
  const auto points = [](int twips) { return twips / kTwipsPerPoint; };
  const QPageSize size(QSizeF(points(paper.width), points(paper.height)),
                       QPageSize::Point);
  QPageLayout layout(size, QPageLayout::Portrait,
                     QMarginsF(points(paper.left), points(paper.top),
                               points(paper.right), points(paper.bottom)),
                     QPageLayout::Point);
  return layout;
}

std::string Bytes(const QByteArray& array) {
  return std::string(array.constData(), static_cast<std::size_t>(array.size()));
}

QImage BlankPage(const Paper& paper) {
  const auto pixels = [](int twips) {
    return static_cast<int>(
        std::lround(double(twips) * kPictureDpi / kTwipsPerInch));
  };
  QImage page(pixels(paper.width), pixels(paper.height),
              QImage::Format_Grayscale8);
  page.fill(Qt::white);
  return page;
}

void StartPage(QPainter& painter, QImage& page, const Paper& paper,
               double scale) {
  constexpr double kPixelsPerTwip = double(kPictureDpi) / kTwipsPerInch;
  painter.begin(&page);
  painter.setRenderHint(QPainter::TextAntialiasing);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(kPixelsPerTwip, kPixelsPerTwip);
  painter.translate(paper.left, paper.top);
  painter.scale(scale, scale);
}

QImage Stacked(const std::vector<QImage>& pages) {
  const QImage& first = pages.front();
  QImage all(first.width(), first.height() * static_cast<int>(pages.size()),
             first.format());
  int row = 0;
  for (const QImage& page : pages)
    for (int y = 0; y < page.height(); ++y)
      std::memcpy(all.scanLine(row++), page.constScanLine(y),
                  static_cast<std::size_t>(page.bytesPerLine()));
  return all;
}

// A canvas on the pages of a device.
class PagedCanvas {
 public:
  PagedCanvas(QPagedPaintDevice& device, const Paper& paper)
      : plan_(PlanFor(paper)),
        painter_(Prepared(device, paper)),
        canvas(painter_, plan_.width, plan_.height,
               [&device] { device.newPage(); }) {
    const double unit = plan_.scale * device.logicalDpiX() / kTwipsPerInch;
    painter_.scale(unit, unit);
  }

  void End() { painter_.end(); }

 private:
  static QPagedPaintDevice* Prepared(QPagedPaintDevice& device,
                                     const Paper& paper) {
    device.setPageLayout(LayoutOf(paper));
    return &device;
  }

  PagePlan plan_;
  QPainter painter_;

 public:
  PainterCanvas canvas;
};

}  // namespace

struct PdfDocument::Parts {
  Parts(const Paper& paper, std::string_view title)
      : buffer(&bytes), writer(Opened(buffer)) {
    writer.setResolution(kTwipsPerInch);
    writer.setTitle(FromText(title));
    writer.setCreator("Kelda");
    pages.emplace(writer, paper);
  }

  static QBuffer* Opened(QBuffer& buffer) {
    buffer.open(QIODevice::WriteOnly);
    return &buffer;
  }

  QByteArray bytes;
  QBuffer buffer;
  QPdfWriter writer;
  std::optional<PagedCanvas> pages;
};

PdfDocument::PdfDocument(const Paper& paper, std::string_view title)
    : parts_(std::make_unique<Parts>(paper, title)) {}

PdfDocument::~PdfDocument() = default;

Canvas& PdfDocument::Pages() {
  return parts_->pages->canvas;
}

std::string PdfDocument::Finish() {
  parts_->pages->End();
  return Bytes(parts_->bytes);
}

void PaintPages(QPagedPaintDevice& device, const Paper& paper,
                const DrawPages& draw) {
  PagedCanvas pages(device, paper);
  draw(pages.canvas);
}

std::string PagesAsPdf(const Paper& paper, std::string_view title,
                       const DrawPages& draw) {
  PdfDocument document(paper, title);
  draw(document.Pages());
  return document.Finish();
}

std::string PagesAsSvg(const Paper& paper, std::string_view title,
                       const DrawPages& draw) {
  const PagePlan plan = PlanFor(paper);
  SvgCanvas canvas(plan.width, plan.height);
  draw(canvas);
  const SvgPage page{paper.width, paper.height, paper.left, paper.top,
                     plan.scale};
  return canvas.File(page, title);
}

std::string PagesAsPng(const Paper& paper, const DrawPages& draw) {
  const PagePlan plan = PlanFor(paper);
  std::vector<QImage> pages = {BlankPage(paper)};
  QPainter painter;
  StartPage(painter, pages.back(), paper, plan.scale);
  PainterCanvas canvas(painter, plan.width, plan.height, [&] {
    painter.end();
    pages.push_back(BlankPage(paper));
    StartPage(painter, pages.back(), paper, plan.scale);
  });
  draw(canvas);
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  QImage all = Stacked(pages);
  all.setDotsPerMeterX(std::lround(kPictureDpi / 0.0254));
  all.setDotsPerMeterY(all.dotsPerMeterX());
  all.save(&buffer, "PNG");
  return Bytes(bytes);
}
