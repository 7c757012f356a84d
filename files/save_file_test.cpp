#include "files/save_file.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "tests/fakes.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

struct SaveDesk : Desk {
  TestFolder folder;

  bool Save(const std::string& path) {
    return SaveFile(host, path, [] { return "new"; });
  }
};

}  // namespace

TEST(SaveFile, AsksBeforeAWriteProtectedFileIsReplaced) {
  SaveDesk desk;
  const std::string path = desk.folder.Write("a", "old");
  chmod(path.c_str(), 0444);
  const std::string question = path + " is write-protected.\r\n";
  desk.host.script = {{question, "no"}};
  EXPECT_FALSE(desk.Save(path));
  EXPECT_EQ(desk.folder.Read("a"), "old");
  desk.host.script = {{question, "yes"}};
  EXPECT_TRUE(desk.Save(path));
  EXPECT_EQ(desk.folder.Read("a"), "new");
  EXPECT_THAT(desk.host.told, testing::IsEmpty());
}

TEST(SaveFile, TellsWhyItCouldNot) {
  SaveDesk desk;
  const std::string path = desk.folder.Path("none/a");
  EXPECT_FALSE(desk.Save(path));
  EXPECT_FALSE(desk.Save("/dev/full"));
  const std::string pipe = desk.folder.Path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_FALSE(desk.Save(pipe));
  EXPECT_THAT(
      desk.host.told,
      ElementsAre(path + ": cannot be written: there is no such folder",
                  "/dev/full: cannot be written: No space left on device",
                  pipe + ": cannot be written: this is a pipe"));
  EXPECT_EQ(desk.host.pointer, PointerShape::Normal);
}

TEST(ConfirmChange, AsksWhenAnotherProgramChangedOrRemovedTheFile) {
  SaveDesk desk;
  const std::string path = desk.folder.Write("a", "as read");
  const FileStamp stamp = StampOf(path);
  EXPECT_EQ(stamp, StampOfContent("as read"));
  const auto may = [&](const FileStamp& before, const char* question,
                       const char* answer) {
    desk.host.script = {{question, answer}};
    const bool agreed = ConfirmChange(desk.host, path, before);
    EXPECT_TRUE(desk.host.script.empty()) << question;
    return agreed;
  };
  EXPECT_TRUE(ConfirmChange(desk.host, path, stamp));
  // As long, and as old, but not the same.
  const auto time = fs::last_write_time(path);
  desk.folder.Write("a", "as READ");
  fs::last_write_time(path, time);
  EXPECT_FALSE(may(stamp, "Another program has changed ", "no"));
  EXPECT_TRUE(may(stamp, "Another program has changed ", "yes"));
  desk.folder.Write("a", "as read");
  EXPECT_TRUE(ConfirmChange(desk.host, path, stamp)) << "written again";
  EXPECT_TRUE(may({}, "Another program has changed ", "yes")) << "a new one";
  fs::remove(path);
  EXPECT_FALSE(may(stamp, "Another program has removed ", "no"));
  EXPECT_TRUE(ConfirmChange(desk.host, path, {})) << "it never was there";
}
