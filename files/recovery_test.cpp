#include "files/recovery.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "files/format.h"
#include "tests/document_text.h"
#include "tests/fakes.h"

namespace {

namespace fs = std::filesystem;
using testing::UnorderedElementsAre;

constexpr char kOldPuzzle[] = "Caf\xe9\r\n#A.\r\n...\r\n..#\r\n";

// A puzzle that no other kind of file holds.
Document Rich() {
  Document document(4, 3);
  document.title = "Caf\u00e9 <b> \"&\"";
  document.author = "A. Setter";
  document.notes = "First line\nsecond";
  document.At({1, 1}).solution = "HEART";
  document.At({1, 2}).circled = document.At({1, 3}).barRight = true;
  document.At({2, 2}).shade = Colour{255, 136, 0};
  document.At({2, 3}).barBelow = true;
  document.At({2, 4}).kind = Cell::Kind::Block;
  document.At({3, 4}).kind = Cell::Kind::Void;
  document.clues[{Direction::Across, {1, 1}}] = {"Chest", "HEART?"};
  document.clues[{Direction::Down, {2, 3}}] = {"Of no entry", ""};
  document.pins.insert({Direction::Down, {1, 1}});
  document.rejected = {"HEART"};
  document.extras["com.other:x"] = "[1,2.5,null]";
  return document;
}

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
TEST(Recovery, ACopyHoldsAllOfThePuzzleAndItsPath) {
  const TestFolder folder;
  const Document rich = Rich();
  for (const std::string path :
       {"", "/home/me/a.kdp",
        "/caf\xe9/100%/line\nend\r/\"\\\x7f/caf\xc3\xa9%0a"}) {
    Recovery recovery(folder.Path("state"));
    recovery.Write(Document(5, 5), "/before.kdp");
    recovery.Write(rich, "/before.kdp");
    recovery.Write(rich, path);
    fs::create_directories(folder.Path("elsewhere"));
    fs::copy_file(Only(folder.Path("state"), ".ipuz"),
                  folder.Path("elsewhere/1.ipuz"),
                  fs::copy_options::overwrite_existing);
    const auto found = Recovery(folder.Path("elsewhere")).FindAbandoned();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].puzzlePath, path);
    EXPECT_TRUE(found[0].document == rich);
    // Nor does the path get out when a copy is opened as a puzzle.
    EXPECT_TRUE(ReadDocument(found[0].path).reading.document == rich);
    EXPECT_TRUE(recovery.HasCopy());
    recovery.Remove();
    EXPECT_FALSE(recovery.HasCopy());
    EXPECT_THAT(Names(folder.Path("state")), testing::IsEmpty());
  }
}

TEST(Recovery, WritesOnlyWhatTheCopyDoesNotHold) {
  const TestFolder folder;
  Recovery recovery(folder.Path("state"));
  const auto writes = [&](const Document& document, const std::string& path) {
    const std::string before = Only(folder.Path("state"), ".ipuz");
    if (!before.empty()) fs::resize_file(before, 0);
    recovery.Write(document, path);
    return fs::file_size(Only(folder.Path("state"), ".ipuz")) > 0;
  };
  Document document = Rich();
  fs::create_directory(folder.Path("state"));
  EXPECT_TRUE(writes(document, "/a.kdp"));
  EXPECT_FALSE(writes(document, "/a.kdp"));
  EXPECT_TRUE(writes(document, "/b.kdp"));
  document.clues.begin()->second.text = "Core";
  EXPECT_TRUE(writes(document, "/b.kdp"));
  recovery.Remove();
  EXPECT_TRUE(writes(document, "/b.kdp"));
}

TEST(Recovery, ReadsCopiesOfOlderVersions) {
  for (const auto& [line, lock, path] : std::vector<std::array<std::string, 3>>{
           {"", "/home/me/old.kdp", "/home/me/old.kdp"},
           {"", "", ""},
           {"org.kelda:path=/home/caf\xe9/100%25%0a.kdp\r\n", "",
            "/home/caf\xe9/100%\n.kdp"},
           {"org.kelda:path=\r\n", "/of/another.kdp", ""}}) {
    const TestFolder folder;
    folder.Write("1-2-0.kdp", kOldPuzzle + line);
    folder.Write("1-2-0.lock", lock);
    const auto found = Recovery(folder.Path(".")).FindAbandoned();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].puzzlePath, path);
    EXPECT_EQ(found[0].document.title, "Caf\u00e9");
    EXPECT_EQ(RowsText(found[0].document), "#A./.../..#");
    Recovery::Discard(found[0]);
    EXPECT_THAT(Names(folder.Path(".")), testing::IsEmpty());
  }
}

TEST(Recovery, PutsDamagedCopiesAside) {
  const TestFolder folder;
  const std::string whole = FindFormat("ipuz")->Write(Rich());
  for (const std::string& content :
       {std::string(), std::string(3, '\0'), std::string("{}"),
        whole.substr(0, whole.size() / 2)}) {
    for (const std::string name : {"1.ipuz", "1.kdp"}) {
      folder.Write(name, content);
      EXPECT_TRUE(Recovery(folder.Path(".")).FindAbandoned().empty());
      EXPECT_THAT(Names(folder.Path(".")),
                  UnorderedElementsAre(name + ".damaged"));
      EXPECT_EQ(folder.Read(name + ".damaged"), content);
      fs::remove(folder.Path(name + ".damaged"));
    }
  }
  // A path that is no text is none.
  std::string odd = whole;
  odd.insert(1, "\"org.kelda:path\":[1],");
  folder.Write("1.ipuz", odd);
  const auto found = Recovery(folder.Path(".")).FindAbandoned();
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].puzzlePath, "");
  EXPECT_TRUE(Recovery("/nowhere/at/all").FindAbandoned().empty());
}

TEST(Recovery, IsForTheUserAlone) {
  const TestFolder folder;
  const mode_t before = umask(0);
  fs::create_directory(folder.Path("state"));
  chmod(folder.Path("state").c_str(), 0755);
  Recovery recovery(folder.Path("state"));
  recovery.Write(Rich(), "");
  umask(before);
  struct stat status;
  for (const auto& [path, mode] : std::map<std::string, mode_t>{
           {folder.Path("state"), 0700},
           {Only(folder.Path("state"), ".ipuz"), 0600},
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
