#include "files/recovery.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/fakes.h"

namespace {

namespace fs = std::filesystem;
using testing::UnorderedElementsAre;

constexpr char kPuzzle[] = "Old\r\n#A.\r\n...\r\n..#\r\n";

std::vector<std::string> Names(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder))
    names.push_back(entry.path().filename().string());
  return names;
}

// The number of a process that has ended.
std::string EndedProcess() {
  const pid_t child = fork();
  if (child == 0) _exit(0);
  waitpid(child, nullptr, 0);
  return std::to_string(child);
}

// The one file of a folder that ends so.
std::string Only(const std::string& folder, const std::string& ending) {
  std::string found;
  for (const std::string& name : Names(folder)) {
    if (!name.ends_with(ending)) continue;
    EXPECT_EQ(found, "");
    found = folder + "/" + name;
  }
  return found;
}

}  // namespace

// Whatever else is lost, a copy never takes another puzzle's path.
TEST(Recovery, ACopyHoldsItsPuzzlesPathItself) {
  const TestFolder folder;
  for (const std::string path :
       {"", "/home/me/a.kdp", "/caf\xe9/100%/line\nend\r/caf\xc3\xa9%0a"}) {
    Recovery recovery(folder.Path("state"));
    recovery.Write(kPuzzle, "/before.kdp");
    recovery.Write(kPuzzle, path);
    fs::create_directories(folder.Path("elsewhere"));
    fs::copy_file(Only(folder.Path("state"), ".kdp"),
                  folder.Path("elsewhere/1.kdp"),
                  fs::copy_options::overwrite_existing);
    const auto found = Recovery(folder.Path("elsewhere")).FindAbandoned();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].puzzlePath, path);
    EXPECT_EQ(found[0].puzzle.title, "Old");
    EXPECT_EQ(found[0].puzzle.cells[0], ".A ");
    recovery.Remove();
    EXPECT_THAT(Names(folder.Path("state")), testing::IsEmpty());
  }
}

TEST(Recovery, ReadsCopiesOfOlderVersions) {
  const TestFolder folder;
  folder.Write("1-2-0.kdp", kPuzzle);
  folder.Write("1-2-0.lock", "/home/me/old.kdp");
  const auto found = Recovery(folder.Path(".")).FindAbandoned();
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].puzzlePath, "/home/me/old.kdp");
}

TEST(Recovery, IsForTheUserAlone) {
  const TestFolder folder;
  const mode_t before = umask(0);
  fs::create_directory(folder.Path("state"));
  chmod(folder.Path("state").c_str(), 0755);
  Recovery recovery(folder.Path("state"));
  recovery.Write(kPuzzle, "");
  umask(before);
  struct stat status;
  for (const auto& [path, mode] : std::map<std::string, mode_t>{
           {folder.Path("state"), 0700},
           {Only(folder.Path("state"), ".kdp"), 0600},
           {Only(folder.Path("state"), ".lock"), 0600}}) {
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, mode) << path;
  }
  recovery.Remove();
  chmod(folder.Path("state").c_str(), 0755);
  EXPECT_TRUE(recovery.FindAbandoned().empty());
  ASSERT_EQ(stat(folder.Path("state").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0700u);
}

TEST(Recovery, ClearsWhatEndedProgramsLeft) {
  const TestFolder folder;
  const std::string ended = ".kelda-" + EndedProcess() + "-0";
  const std::string running = ".kelda-" + std::to_string(getpid()) + "-0";
  for (const std::string& name :
       {ended, running, std::string("1-2-0.kdp.Ab3dEf"),
        std::string("1-2-1.lock"), std::string("before-Ab3dEf"),
        std::string("notes.txt"), std::string("5.kdp.damaged")})
    folder.Write(name, "x");
  folder.Write("7-7-0.kdp.Ab3dEf", "x");
  folder.Write("7-7-0.lock", "");
  const RecoveryLock held(folder.Path("7-7-0.lock"), false);
  ASSERT_TRUE(held.Held());
  EXPECT_TRUE(Recovery(folder.Path(".")).FindAbandoned().empty());
  EXPECT_THAT(
      Names(folder.Path(".")),
      UnorderedElementsAre(running, "before-Ab3dEf", "notes.txt",
                           "5.kdp.damaged", "7-7-0.kdp.Ab3dEf", "7-7-0.lock"));
}
