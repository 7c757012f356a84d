#include "base/write_file.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstddef>

#include "base/signal_hold.h"
#include "tests/fakes.h"

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

constexpr uid_t kNobody = 65534;

std::string Failure(const std::string& path, std::string_view content,
                    const WriteRules& rules = {}) {
  try {
    WriteFile(path, content, rules);
  } catch (const FileError& error) {
    return error.what();
  }
  return "";
}

// The names in a folder, in order.
std::vector<std::string> Names(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    names.push_back(entry.path().filename().string());
  std::ranges::sort(names);
  return names;
}

mode_t ModeOf(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
  return status.st_mode & 07777;
}

// Runs in a process of its own what changes the process; what it returns.
std::string InChild(const std::function<std::string()>& action) {
  int ends[2];
  EXPECT_EQ(pipe(ends), 0);
  const pid_t child = fork();
  if (child == 0) {
    const std::string result = action();
    (void)!write(ends[1], result.data(), result.size());
    _exit(0);
  }
  close(ends[1]);
  std::string result;
  char c = 0;
  while (read(ends[0], &c, 1) == 1) result += c;
  close(ends[0]);
  waitpid(child, nullptr, 0);
  return result;
}

void BecomeNobody() {
  if (geteuid() != 0) return;
  EXPECT_EQ(setgid(kNobody), 0);
  EXPECT_EQ(setuid(kNobody), 0);
}

// From here on no file can be larger.
void LimitFileSize(rlim_t bytes) {
  signal(SIGXFSZ, SIG_IGN);
  const rlimit limit = {bytes, bytes};
  EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
}

// From here on the file system seems to know no unnamed files.
void RefuseUnnamedFiles() {
  constexpr auto kFlags = offsetof(seccomp_data, args[2]);
  sock_filter steps[] = {
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_openat, 0, 3),
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, kFlags),
      BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, O_TMPFILE & ~O_DIRECTORY, 0, 1),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EOPNOTSUPP),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
  const sock_fprog program = {std::size(steps), steps};
  EXPECT_EQ(prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0), 0);
  EXPECT_EQ(prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program), 0);
}

}  // namespace

TEST(WriteFile, ReplacesAFileWholeOrNotAtAll) {
  const TestFolder folder;
  const std::string path = folder.Write("a", "old");
  chmod(path.c_str(), 0640);
  const bool isRoot = geteuid() == 0;
  if (isRoot) {
    EXPECT_EQ(chown(path.c_str(), 4711, 4712), 0);
  }
  WriteFile(path, "new");
  EXPECT_EQ(folder.Read("a"), "new");
  struct stat status;
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0640u);
  if (isRoot) {
    EXPECT_EQ(status.st_uid, 4711u);
    EXPECT_EQ(status.st_gid, 4712u);
  }
  WriteFile(folder.Path("secret"), "x", {.mode = 0600});
  EXPECT_EQ(ModeOf(folder.Path("secret")), 0600u);

  EXPECT_THAT(Failure(folder.Path("none/a"), "x"),
              EndsWith("none/a: cannot be written: there is no such folder"));
  EXPECT_THAT(Failure(folder.Path("."), "x"), EndsWith(": Is a directory"));
  EXPECT_THAT(Failure("/dev/full", "x"), HasSubstr("No space left"));
  EXPECT_THAT(Names(folder.Path(".")), ElementsAre("a", "secret"));
}

TEST(WriteFile, WritesWhatALinkStandsForAndLeavesTheLink) {
  const TestFolder folder;
  folder.Write("a", "old");
  const auto link = [&](const char* target, const char* name) {
    ASSERT_EQ(symlink(target, folder.Path(name).c_str()), 0);
  };
  link("a", "to-a");
  link("to-a", "twice");
  link("not-yet", "dangling");
  link("none/a", "nowhere");
  link("loop", "loop");
  WriteFile(folder.Path("twice"), "new");
  WriteFile(folder.Path("dangling"), "made");
  EXPECT_EQ(folder.Read("a"), "new");
  EXPECT_EQ(folder.Read("not-yet"), "made");
  EXPECT_THAT(Failure(folder.Path("nowhere"), "x"),
              HasSubstr("no such folder"));
  EXPECT_THAT(Failure(folder.Path("loop"), "x"), HasSubstr("symbolic links"));
  for (const char* name : {"to-a", "twice", "dangling", "nowhere", "loop"}) {
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path(name))) << name;
  }
}

TEST(WriteFile, TakesNamesAsLongAsTheSystemDoes) {
  const TestFolder folder;
  const std::string longest = folder.Path(std::string(255, 'n'));
  for (const char* content : {"first", "second"})
    EXPECT_EQ(Failure(longest, content), "");
  EXPECT_EQ(folder.Read(std::string(255, 'n')), "second");
  EXPECT_THAT(Failure(longest + "n", "x"), HasSubstr("name too long"));
}

TEST(WriteFile, LeavesAWriteProtectedFileAloneUnlessTold) {
  const TestFolder folder;
  const std::string path = folder.Write("a", "old");
  chmod(path.c_str(), 0444);
  EXPECT_THROW(WriteFile(path, "new"), FileIsProtected);
  EXPECT_EQ(folder.Read("a"), "old");
  WriteFile(path, "new", {.replaceProtected = true});
  EXPECT_EQ(folder.Read("a"), "new");
  EXPECT_EQ(ModeOf(path), 0444u);
}

// A full disk, as far as a process can make one.
TEST(WriteFile, AFileThatGetsTooLargeLeavesTheOldOne) {
  const TestFolder folder;
  const std::string path = folder.Write("a", "old");
  for (const bool unnamed : {true, false}) {
    const std::string failure = InChild([&] {
      if (!unnamed) RefuseUnnamedFiles();
      LimitFileSize(100);
      return Failure(path, std::string(1000, 'x'));
    });
    EXPECT_THAT(failure, EndsWith("a: cannot be written: File too large"));
    EXPECT_EQ(folder.Read("a"), "old");
    EXPECT_THAT(Names(folder.Path(".")), ElementsAre("a"));
  }
}

TEST(WriteFile, NeedsNoUnnamedFiles) {
  const TestFolder folder;
  for (const std::string content : {"first", "second"}) {
    const std::string failure = InChild([&] {
      RefuseUnnamedFiles();
      const int file =
          open(folder.Path(".").c_str(), O_TMPFILE | O_WRONLY, 0600);
      return file < 0 ? Failure(folder.Path("a"), content) : "is unnamed";
    });
    EXPECT_EQ(failure, "");
    EXPECT_EQ(folder.Read("a"), content);
  }
  EXPECT_THAT(Names(folder.Path(".")), ElementsAre("a"));
}

// In a folder that takes no new file, an old one is written over, and a copy
// of it is kept while that lasts.
TEST(WriteFile, WritesOverAFileInAClosedFolder) {
  const TestFolder root;
  chmod(root.Path(".").c_str(), 0755);
  mkdir(root.Path("closed").c_str(), 0777);
  mkdir(root.Path("state").c_str(), 0777);
  chmod(root.Path("state").c_str(), 0777);
  const std::string path = root.Write("closed/a", "the old text");
  chmod(path.c_str(), 0666);
  chmod(root.Path("closed").c_str(), 0555);
  const auto write = [&](std::string_view content, rlim_t most) {
    return InChild([&] {
      BecomeNobody();
      setenv("XDG_STATE_HOME", root.Path("state").c_str(), 1);
      LimitFileSize(most);
      return Failure(path, content);
    });
  };
  EXPECT_EQ(write("new", 1000), "");
  EXPECT_EQ(root.Read("closed/a"), "new");
  EXPECT_EQ(write("another old text", 1000), "");
  EXPECT_THAT(write(std::string(500, 'x'), 100), EndsWith("File too large"));
  EXPECT_EQ(root.Read("closed/a"), "another old text")
      << "what was there is back";
  EXPECT_THAT(Names(root.Path("state/kelda")), ElementsAre());
  EXPECT_EQ(ModeOf(root.Path("state/kelda")), 0700u);
  const std::string failure = InChild([&] {
    BecomeNobody();
    return Failure(root.Path("closed/new"), "x");
  });
  EXPECT_THAT(failure,
              EndsWith("closed/new: cannot be written: Permission denied"));
  chmod(root.Path("closed").c_str(), 0755);
}

TEST(SignalHold, PutsOffWhatWouldEndTheProgram) {
  for (const int signal : SignalHold::kHeld) {
    EXPECT_EXIT(
        {
          {
            const SignalHold hold;
            kill(getpid(), signal);
            std::cerr << "went on";
          }
          std::cerr << " too far";
        },
        testing::KilledBySignal(signal), "^went on$");
  }
  signal(SIGHUP, SIG_IGN);
  {
    const SignalHold hold;
    raise(SIGHUP);
  }
  EXPECT_EQ(signal(SIGHUP, SIG_DFL), SIG_IGN) << "and that stays so";
}
