// Printing and pictures through the window.

#include <gmock/gmock.h>

#include <QDir>
#include <QFileDialog>
#include <QImage>
#include <QMenu>

#include "tests/paper_fakes.h"
#include "tests/qt_window_desk.h"
#include "view/qt_clipboard.h"
#include "view/qt_publisher.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct PaperDesk : WindowDesk {
  PaperDesk() {
    app.outlets = {&printer, &clipboard, &publisher};
    Press("Command2");
    boxes.clear();
  }

  // The file dialog is answered with a name in the test's folder.
  std::string AnswerFileDialog(const QString& name) {
    onDialog = [this, name](QDialog* dialog) {
      auto* files = qobject_cast<QFileDialog*>(dialog);
      if (!files) return dialog->accept();
      filters = files->nameFilters();
      files->selectFile(QString::fromStdString(Folder()) + "/" + name);
      dialog->accept();
    };
    return Folder() + "/" + name.toStdString();
  }

  FakePrinter printer;
  QtBitmapClipboard clipboard{picture};
  QtPublisher publisher{window.get()};
  QStringList filters;
};

TEST(Paper, TheMenuHasTheItemsBelowTheRequiredOnes) {
  PaperDesk desk;
  QStringList names;
  for (const QAction* item : desk.Find<QMenu>("kdpx")->actions())
    names << item->objectName();
  EXPECT_EQ(names.join(" ").toStdString(),
            "loadx Savey savex copx overviewx helpx aboutx dash1 exitx dash3 "
            "importx exportx previewx pdfx picturex");
}

TEST(Paper, BothPrintButtonsAskAndPrint) {
  PaperDesk desk;
  desk.answers = {"No"};
  desk.Press("Command18");
  EXPECT_FALSE(desk.printer.sent);
  desk.answers = {"Yes", "OK"};
  desk.Press("Command18");
  EXPECT_THAT(desk.boxes, ElementsAre("Do you want to print solution?",
                                      "Do you want to print solution?",
                                      "Printing completed"));
  EXPECT_FALSE(desk.printer.canvas.Calls("text 250,").empty());
  desk.boxes.clear();
  desk.printer.canvas.calls.clear();
  desk.printer.fault = FakePrinter::Fault::Send;
  desk.answers = {"Yes", "OK"};
  desk.Press("Command7");
  EXPECT_THAT(desk.boxes,
              ElementsAre("Do you want to print grid?", "No paper."));
  EXPECT_TRUE(desk.printer.canvas.Calls("text 250,").empty());
}

TEST(Paper, CopyToBitmapWritesThePictureAsItIsShown) {
  PaperDesk desk;
  desk.ClickCell(1, 2, Qt::ShiftModifier);
  const std::string path = desk.AnswerFileDialog("grid.bmp");
  desk.Choose("copx");
  const QImage saved(QString::fromStdString(path));
  desk.picture.Update();
  EXPECT_EQ(saved.convertToFormat(QImage::Format_RGB32),
            desk.picture.Image().convertToFormat(QImage::Format_RGB32));
  EXPECT_THAT(desk.boxes.back(), HasSubstr("Puzzle copied to:"));
  EXPECT_THAT(desk.filters, ElementsAre("Puzzle Bitmap Files (*.bmp)"));
}

TEST(Paper, SavesSheetAndPicture) {
  PaperDesk desk;
  const std::string sheet = desk.AnswerFileDialog("sheet.pdf");
  desk.Choose("pdfx");
  EXPECT_EQ(desk.boxes.back(), "Saved to: " + sheet);
  const std::string picture = desk.AnswerFileDialog("grid.png");
  desk.Choose("picturex");
  EXPECT_EQ(desk.boxes.back(), "Saved to: " + picture);
  EXPECT_EQ(QImage(QString::fromStdString(picture)).width(), 427);
}

}  // namespace
