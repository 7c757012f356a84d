#include "base/text_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/fakes.h"

namespace {

std::vector<std::string> Lines(const std::string& path) {
  LineReader file(path);
  std::vector<std::string> lines;
  for (std::string_view line; file.Next(line);) lines.emplace_back(line);
  return lines;
}

std::string Failure(const std::string& path) {
  try {
    Lines(path);
  } catch (const FileError& error) {
    return error.what();
  }
  return "";
}

}  // namespace

TEST(LineReader, TakesEveryKindOfLineEnd) {
  using Texts = std::vector<std::string>;
  const TestFolder folder;
  EXPECT_EQ(Lines(folder.Write("a", "x\r\ny\nz\r\r\nw")),
            (Texts{"x", "y", "z", "", "w"}));
  EXPECT_EQ(Lines(folder.Write("b", "x\n\n")), (Texts{"x", ""}));
  EXPECT_EQ(Lines(folder.Write("c", "")), Texts{});
  // A line end that two reads of the file part.
  const std::string chunk(65535, 'x');
  EXPECT_EQ(Lines(folder.Write("d", chunk + "\r\ny")), (Texts{chunk, "y"}));
}

TEST(LineReader, RefusesWhatIsNoTextFile) {
  const TestFolder folder;
  EXPECT_NE(Failure(folder.Path("none")).find("none: cannot be opened: No"),
            std::string::npos);
  EXPECT_NE(Failure(folder.Path(".")).find("cannot be read"),
            std::string::npos);
  const std::string zeros(100, '\0');
  EXPECT_NE(Failure(folder.Write("a", "x\n" + zeros)).find("not a text file"),
            std::string::npos);
  EXPECT_EQ(Failure(folder.Write("b", zeros.substr(0, 5))), "")
      << "a few strange characters are let through";
  EXPECT_NE(Failure(folder.Write("c", "x\n" + std::string(70000, 'x')))
                .find("c:2: the line is too long"),
            std::string::npos);
  EXPECT_NE(Failure("/dev/zero").find("not a text file"), std::string::npos);
}

TEST(LineReader, WaitsForNoPipeWhereOnlyRegularFilesMayBeOpened) {
  const TestFolder folder;
  const std::string pipe = folder.Path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const std::string link = folder.Path("link");
  ASSERT_EQ(symlink(pipe.c_str(), link.c_str()), 0);
  for (const std::string& path :
       {pipe, link, folder.Path("."), std::string("/dev/tty"),
        std::string("/dev/zero"), std::string("-"), folder.Path("none")})
    EXPECT_THROW(LineReader(path, Opens::RegularFiles), FileError) << path;
  LineReader file(folder.Write("a", "x"), Opens::RegularFiles);
  std::string_view line;
  EXPECT_TRUE(file.Next(line));
  EXPECT_EQ(line, "x");
}
