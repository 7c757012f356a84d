#include "files/publish.h"

#include <gmock/gmock.h>

#include "tests/paper_fakes.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Office : Desk {
  Office() : Desk({"ABC", "D#E", "FGH"}) { state.Text5 = "Title"; }

  TestFolder folder;
  FakeClipboard clipboard;
  FakePublisher publisher;
  FakePrinter printer;

  void Answer(const std::string& title, const std::string& path) {
    host.script.push_back({title, path});
  }
};

constexpr char kBitmapTitle[] =
    "Select destination file for a bitmap copy of this puzzle";

TEST(CopyToBitmap, WritesThePictureThroughTheClipboardAndEmptiesIt) {
  Office office;
  const std::string path = office.folder.Write("a.bmp", "");
  office.Answer(kBitmapTitle, path);  // an empty file is no question
  CopyToBitmap(office.host, office.clipboard);
  EXPECT_EQ(office.folder.Read("a.bmp"), "BM and pixels");
  EXPECT_FALSE(office.clipboard.content);
  EXPECT_THAT(office.host.told,
              ElementsAre("Puzzle copied to:\r\n" + path + "\r\n 13 bytes"));
  EXPECT_EQ(office.host.pointer, PointerShape::Normal);
}

TEST(CopyToBitmap, LeavesClipboardAndFileAloneUnlessTheUserAgrees) {
  Office office;
  const std::string path = office.folder.Write("a.bmp", "old");
  office.Answer(kBitmapTitle, "");
  CopyToBitmap(office.host, office.clipboard);
  office.Answer(kBitmapTitle, path);
  office.Answer("OverWrite file: " + path + " ?", "no");
  CopyToBitmap(office.host, office.clipboard);
  EXPECT_EQ(office.clipboard.copies, 0);
  EXPECT_EQ(office.folder.Read("a.bmp"), "old");
  EXPECT_THAT(office.host.told, IsEmpty());
  office.Answer(kBitmapTitle, path);
  office.Answer("OverWrite file: ", "yes");
  CopyToBitmap(office.host, office.clipboard);
  EXPECT_EQ(office.folder.Read("a.bmp"), "BM and pixels");
}

TEST(CopyToBitmap, TellsOfAFileThatCannotBeWritten) {
  Office office;
  for (const char* path : {"/dev/full", "/nowhere/a.bmp"}) {
    office.host.told.clear();
    office.Answer(kBitmapTitle, path);
    CopyToBitmap(office.host, office.clipboard);
    EXPECT_THAT(office.host.told,
                ElementsAre(testing::StartsWith(std::string(path) +
                                                ": cannot be written")));
    EXPECT_FALSE(office.clipboard.content);
    EXPECT_EQ(office.host.pointer, PointerShape::Normal);
  }
}

TEST(SaveAsPdf, WritesTheFullSheet) {
  Office office;
  const std::string path = office.folder.Path("a.pdf");
  office.Answer("Select a file for the printed sheet", path);
  SaveAsPdf(office.state, office.host, office.publisher);
  EXPECT_EQ(office.folder.Read("a.pdf"), "PDF Title");
  EXPECT_EQ(office.publisher.madeOf, "text 750,0 14b Title");
  EXPECT_THAT(office.host.told, ElementsAre("Saved to: " + path));
}

TEST(SaveAsPicture, AsksForTheKindFirst) {
  Office office;
  SaveAsPicture(office.state, office.host, office.publisher);  // cancelled
  EXPECT_THAT(office.host.told, IsEmpty());
  office.publisher.choice = {PictureKind::Svg, 2, true};
  const std::string path = office.folder.Write("a.svg", "old");
  office.Answer("Select a file for a picture", path);
  office.Answer("OverWrite file: ", "yes");
  SaveAsPicture(office.state, office.host, office.publisher);
  EXPECT_THAT(office.folder.Read("a.svg"), HasSubstr("picture 2"));
  office.Answer("Select a file for a picture", "/dev/full");
  SaveAsPicture(office.state, office.host, office.publisher);
  EXPECT_THAT(office.host.told,
              ElementsAre("Saved to: " + path,
                          HasSubstr("/dev/full: cannot be written")));
}

TEST(PreviewSheet, PrintsOnlyWhenTold) {
  Office office;
  PreviewSheet(office.state, office.host, office.publisher, office.printer);
  EXPECT_EQ(office.publisher.pagesSeen, 1);
  EXPECT_FALSE(office.printer.sent);
  office.publisher.printAfterPreview = true;
  PreviewSheet(office.state, office.host, office.publisher, office.printer);
  EXPECT_TRUE(office.printer.sent);
  EXPECT_THAT(office.host.told, ElementsAre("Printing completed"));
}

}  // namespace
