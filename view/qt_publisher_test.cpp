#include "view/qt_publisher.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "files/sheet.h"
#include "tests/fakes.h"
#include "view/qt_picture_dialog.h"
#include "view/qt_print_preview.h"

namespace {

Desk Lattice(int n) {
  std::vector<std::string> rows(n, std::string(n, 'E'));
  for (int row = 1; row < n; row += 2)
    for (int col = 1; col < n; col += 2) rows[row][col] = '#';
  return Desk(rows);
}

template <class Widget>
Widget* Find(const QWidget& window, const char* name) {
  auto* widget = window.findChild<Widget*>(name);
  EXPECT_TRUE(widget) << name;
  return widget;
}

}  // namespace

TEST(PreviewDialog, ShowsThePagesAndEndsAcceptedByPrint) {
  State state;
  {
    const Desk desk = Lattice(51);
    state = desk.state;
  }
  PreviewDialog dialog(nullptr, kA4, [&](Canvas& canvas) {
    EXPECT_EQ(canvas.Width(), 10466);
    DrawSheet(state, SheetMode::Full, canvas);
    canvas.NewPage();
  });
  dialog.show();
  QCoreApplication::processEvents();
  EXPECT_EQ(dialog.Pages().pageCount(), 3);
  for (const char* name : {"zoomIn", "zoomOut", "allPages", "singlePage"})
    Find<QPushButton>(dialog, name)->click();
  EXPECT_TRUE(dialog.isVisible());
  Find<QPushButton>(dialog, "print")->click();
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST(PictureDialog, GivesWhatIsChosen) {
  PictureDialog dialog(nullptr, 15);
  const PictureChoice usual = dialog.Choice();
  EXPECT_EQ(usual.kind, PictureKind::Png);
  EXPECT_EQ(usual.scale, 1);
  EXPECT_TRUE(usual.letters);
  EXPECT_EQ(Find<QLabel>(dialog, "size")->text(), "427 x 427 pixels");
  Find<QRadioButton>(dialog, "svg")->click();
  Find<QCheckBox>(dialog, "letters")->click();
  Find<QDoubleSpinBox>(dialog, "scale")->setValue(2.5);
  EXPECT_EQ(Find<QLabel>(dialog, "size")->text(), "1067 x 1067 pixels");
  const PictureChoice choice = dialog.Choice();
  EXPECT_EQ(choice.kind, PictureKind::Svg);
  EXPECT_EQ(choice.scale, 2.5);
  EXPECT_FALSE(choice.letters);
  // No scale can be chosen that cannot be drawn.
  Find<QDoubleSpinBox>(dialog, "scale")->setValue(1e6);
  EXPECT_EQ(Find<QLabel>(dialog, "size")->text(), "9984 x 9984 pixels");
}

TEST(QtPublisher, AsksOnlyOnceAndTakesCancelForNothing) {
  QtPublisher publisher(nullptr);
  const auto press = [](bool accept) {
    QTimer::singleShot(0, [accept] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_TRUE(dialog);
      accept ? dialog->accept() : dialog->reject();
    });
  };
  press(false);
  EXPECT_FALSE(publisher.AskPicture(15));
  press(true);
  EXPECT_TRUE(publisher.AskPicture(15));
  press(false);
  EXPECT_FALSE(publisher.Preview([](Canvas&) {}));
  press(true);
  EXPECT_TRUE(publisher.Preview([](Canvas&) {}));
}

// Paper that is narrower than the two lists has everything smaller.
TEST(Pages, NarrowPaperHoldsTheWholeSheet) {
  constexpr Paper kA5{8391, 11906};
  int width = 0;
  const std::string pdf = PagesAsPdf(kA5, "", [&](Canvas& canvas) {
    width = canvas.Width();
    EXPECT_GE(width, canvas.TextWidth(std::string(85, '_'), {10, false, true}));
  });
  EXPECT_GE(width, 10240);
  EXPECT_TRUE(pdf.starts_with("%PDF-"));
}
