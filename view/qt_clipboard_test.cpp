#include "view/qt_clipboard.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QClipboard>
#include <QEventLoop>
#include <QGuiApplication>
#include <QProcess>

#include "files/publish.h"
#include "grid/drawing.h"
#include "tests/fakes.h"

namespace {

// A small puzzle on a real picture, with a highlighted cell.
struct Drawn {
  Drawn() {
    DrawGridLines(desk.state);
    RedrawAllCells(desk.state);
    DrawCell(desk.state, {2, 2}, ColourBlackSquare);
    DrawCell(desk.state, {1, 1}, ColourGreen);
    picture.Update();
  }

  Desk desk{{"ABC", "D#E", "FGH"}};
  QtPicture picture{desk.state.paint};
};

int Number(const std::string& bytes, std::size_t at, int size) {
  unsigned value = 0;
  for (int i = size; i-- > 0;)
    value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
  return static_cast<int>(value);
}

// What another program finds on the clipboard.
QByteArray SeenOutside(const QString& type) {
  QProcess xclip;
  QEventLoop loop;  // the clipboard's owner has to answer meanwhile
  QObject::connect(&xclip, &QProcess::finished, &loop, &QEventLoop::quit);
  xclip.start("timeout",
              {"20", "xclip", "-selection", "clipboard", "-t", type, "-o"});
  if (!xclip.waitForStarted()) return "xclip does not start";
  loop.exec();
  return xclip.readAllStandardOutput();
}

}  // namespace

TEST(QtClipboard, TheBitmapFileHasThePicturesPixels) {
  Drawn drawn;
  QtBitmapClipboard clipboard(drawn.picture);
  clipboard.CopyPicture();
  const std::string bytes = clipboard.Bitmap();
  const QImage& image = drawn.picture.Image();
  const int side = image.width();
  ASSERT_GT(bytes.size(), 54u);
  EXPECT_EQ(bytes.substr(0, 2), "BM");
  EXPECT_EQ(Number(bytes, 2, 4), static_cast<int>(bytes.size()));
  ASSERT_EQ(Number(bytes, 18, 4), side);
  ASSERT_EQ(Number(bytes, 22, 4), side);
  ASSERT_EQ(Number(bytes, 28, 2), 24);
  const int start = Number(bytes, 10, 4), stride = (side * 3 + 3) / 4 * 4;
  ASSERT_EQ(static_cast<int>(bytes.size()), start + stride * side);
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      const std::size_t at = start + (side - 1 - y) * stride + x * 3;
      ASSERT_EQ(Number(bytes, at, 3),
                static_cast<int>(image.pixel(x, y) & 0xffffff))
          << x << "," << y;
    }
  }
  EXPECT_EQ(image.pixelColor(16, 26), QColor(100, 200, 100));
  clipboard.Empty();
  EXPECT_TRUE(QGuiApplication::clipboard()->image().isNull());
}

TEST(ClipboardUnderX, OtherProgramsSeeTheCopyAndThenAnEmptyClipboard) {
  ASSERT_EQ(QGuiApplication::platformName(), "xcb")
      << "run it by ctest -R clipboard_under_x";
  Drawn drawn;
  QtBitmapClipboard clipboard(drawn.picture);
  clipboard.CopyPicture();
  const QImage seen = QImage::fromData(SeenOutside("image/png"));
  EXPECT_EQ(seen.convertToFormat(QImage::Format_RGB32),
            drawn.picture.Image().convertToFormat(QImage::Format_RGB32));
  TestFolder folder;
  const std::string path = folder.Path("grid.bmp");
  drawn.desk.host.script = {{"Select destination file", path}};
  CopyToBitmap(drawn.desk.host, clipboard);
  EXPECT_EQ(drawn.desk.host.told,
            std::vector<std::string>{"Puzzle copied to:\r\n" + path + "\r\n" +
                                     Str(std::filesystem::file_size(path)) +
                                     " bytes"});
  EXPECT_EQ(QImage(QString::fromStdString(path)).size(),
            drawn.picture.Image().size());
  EXPECT_EQ(SeenOutside("image/png"), "");
}
