#include "files/puz.h"

#include <gtest/gtest.h>

#include <functional>

#include "files/puz_layout.h"
#include "tests/document_text.h"

namespace {

std::string Bytes(std::string_view hex) {
  std::string bytes;
  for (std::size_t i = 0; i + 1 < hex.size(); i += 3)
    bytes +=
        static_cast<char>(std::stoi(std::string(hex.substr(i, 2)), {}, 16));
  return bytes;
}

// A file that another program made.
std::string MiniFile() {
  using namespace std::literals;
  return Bytes("E8 99 ") + "ACROSS&DOWN\0"s + Bytes("00 52 ") +
         Bytes("49 C9 11 DB 13 C9 A6 2E ") + "1.3\0"s + std::string(16, '\0') +
         Bytes("03 03 04 00 01 00 00 00 ") + "CATA.ERED" + "----.----" +
         "Mini\0A. Setter\0(c) 2026\0"s + "Pet\0Auto\0Talk name\0Scarlet\0"s +
         "Hi\0"s;
}

Document Mini() {
  Document mini = DocumentOf({"CAT", "A#E", "RED"});
  mini.title = "Mini";
  mini.author = "A. Setter";
  mini.copyright = "(c) 2026";
  mini.notes = "Hi";
  mini.clues[{Direction::Across, {1, 1}}].text = "Pet";
  mini.clues[{Direction::Down, {1, 1}}].text = "Auto";
  mini.clues[{Direction::Down, {1, 3}}].text = "Talk name";
  mini.clues[{Direction::Across, {3, 1}}].text = "Scarlet";
  return kPuzFormat.Read(kPuzFormat.Write(mini)).document;
}

std::vector<std::string> Texts(const std::vector<Loss>& losses) {
  std::vector<std::string> texts;
  for (const Loss& loss : losses) texts.push_back(loss.text);
  return texts;
}

std::string SectionOf(std::string_view name, std::string_view data) {
  std::string section(name);
  for (const int number : {static_cast<int>(data.size()), +PuzSum(data)})
    section.append({static_cast<char>(number), static_cast<char>(number >> 8)});
  return section.append(data) + '\0';
}

// The data of a section, or "".
std::string Section(const std::string& file, std::string_view name) {
  const std::size_t at = file.find(name);
  if (at == std::string::npos) return "";
  const auto size = static_cast<unsigned char>(file[at + 4]) |
                    static_cast<unsigned char>(file[at + 5]) << 8;
  return file.substr(at + 8, size);
}

struct OffFile {
  std::string what;
  std::function<void(std::string&)> change;
  std::vector<std::string> passedOver;
  std::function<void(Document&)> changed = {};
};
void TakeLetters(Document& d) {
  for (Cell& cell : d.cells) cell.solution.clear();
  for (auto& [key, clue] : d.clues) clue.answer.clear();
}

const std::vector<OffFile> kOffFiles = {
    {"junk before the magic",
     [](std::string& f) { f.insert(0, "HTTP/1.1 200 OK\r\n"); },
     {"17 bytes before the puzzle"}},
    {"checksum of the solution",
     [](std::string& f) { f[0x11] ^= 1; },
     {"the checksum of the solution is wrong"}},
    {"checksum of the file",
     [](std::string& f) { f[0] ^= 1; },
     {"the checksum of the file is wrong"}},
    {"a letter changed by hand",
     [](std::string& f) { f[0x34] = 'B'; },
     {"the checksum of the file is wrong",
      "the checksum of the solution is wrong"},
     [](Document& d) {
       d.At({1, 1}).solution = "B";
       d.clues[{Direction::Across, {1, 1}}].answer = "BAT";
       d.clues[{Direction::Down, {1, 1}}].answer = "BAR";
     }},
    {"no NUL at the end", [](std::string& f) { f.pop_back(); }, {}},
    {"locked",
     [](std::string& f) { f[kPuzKind] = kPuzLocked; },
     {"locked: no letters can be read", "the checksum of the file is wrong",
      "the checksum of the header is wrong"},
     TakeLetters},
    {"diagramless with its own blocks",
     [](std::string& f) {
       f[kPuzType + 1] = 4;
       f[kPuzHeaderSize + 4] = ':';
     },
     {"it is a diagramless puzzle: its blocks are shown",
      "the checksum of the file is wrong",
      "the checksum of the header is wrong",
      "the checksum of the solution is wrong"}},
    {"fewer clues than entries",
     [](std::string& f) {
       f[kPuzClueCount] = 3;
       f.erase(f.find("Scarlet"), 8);
     },
     {"the checksum of the file is wrong",
      "the checksum of the header is wrong",
      "the checksum of the texts is wrong", "there are 3 clues for 4 entries"},
     [](Document& d) {
       d.clues.erase({Direction::Across, {3, 1}});
     }},
    {"more clues than entries",
     [](std::string& f) {
       f[kPuzClueCount] = 5;
       f.insert(f.find("Hi"), std::string("Spare\0", 6));
     },
     {"the checksum of the file is wrong",
      "the checksum of the header is wrong",
      "the checksum of the texts is wrong", "1 clue for no entry, \"Spare\""}},
    {"a player's letters",
     [](std::string& f) { f[kPuzHeaderSize + 9] = 'C'; },
     {"the checksum of the file is wrong",
      "the checksum of the player's letters is wrong", "a player's letters"}},
    {"a player's time and longer answers",
     [](std::string& f) {
       f += SectionOf("LTIM", "9,1") + SectionOf("RUSR", "A");
     },
     {"a player's time", "a player's letters"}},
    {"a section that is too short",
     [](std::string& f) { f += SectionOf("GEXT", Bytes("80 00 ")); },
     {"the section GEXT has 2 cells instead of 9"},
     [](Document& d) {
       d.At({1, 1}).circled = true;
     }},
    {"a section that the file ends within",
     [](std::string& f) {
       f += SectionOf("GEXT", std::string(9, '\x80')).substr(0, 9);
     },
     {"the file ends within the section GEXT",
      "the section GEXT has 1 cells instead of 9"},
     [](Document& d) {
       d.At({1, 1}).circled = true;
     }},
    {"a rebus without a text",
     [](std::string& f) {
       f += SectionOf("GRBS", Bytes("02 00 00 00 00 00 00 00 00 "));
     },
     {"1 rebus without a text, at row 1, column 1"}},
    {"bytes between the sections",
     [](std::string& f) { f += "ABCD"; },
     {"4 bytes that are no section"}},
};

}  // namespace

TEST(Puz, WritesAndReadsTheFileOfAnotherProgram) {
  EXPECT_EQ(kPuzFormat.Write(Mini()), MiniFile());
  const Reading reading = kPuzFormat.Read(MiniFile());
  EXPECT_EQ(reading.document, Mini());
  EXPECT_EQ(reading.document.notes, "Hi");
  EXPECT_EQ(reading.document.At({3, 3}).solution, "D");
  EXPECT_TRUE(reading.passedOver.empty());
  EXPECT_TRUE(kPuzFormat.Losses(Mini()).empty());
}

TEST(Puz, ReadsWhatIsOffAndTellsIt) {
  for (const OffFile& c : kOffFiles) {
    std::string file = MiniFile();
    c.change(file);
    Document expected = Mini();
    if (c.changed) c.changed(expected);
    EXPECT_TRUE(kPuzFormat.recognises(file)) << c.what;
    const Reading reading = kPuzFormat.Read(file);
    EXPECT_EQ(reading.passedOver, c.passedOver) << c.what;
    EXPECT_EQ(reading.document, expected) << c.what;
  }
}

TEST(Puz, RefusesWithThePlace) {
  const std::string mini = MiniFile();
  const auto sized = [&](int width, int height) {
    std::string file = mini;
    file[kPuzWidth] = static_cast<char>(width);
    file[kPuzHeight] = static_cast<char>(height);
    return file;
  };
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "offset 2: expected \"ACROSS&DOWN\""},
      {mini.substr(1), "offset 2: expected \"ACROSS&DOWN\""},
      {mini.substr(0, 51), "offset 0: the header has 51 bytes instead of 52"},
      {"xy" + mini.substr(0, 60),
       "offset 54: the solution has 8 cells instead of 9"},
      {sized(255, 255),
       "the grid is 255 x 255 cells; 3 to 51 a side can be read"},
      {sized(3, 0), "the grid is 3 x 0 cells; 3 to 51 a side can be read"},
  };
  for (const auto& [file, message] : cases) {
    EXPECT_EQ(RefusalOf(kPuzFormat, file), message);
  }
}

TEST(Puz, LettersBeyondLatin1MakeItVersion2) {
  Document document = DocumentOf({"CAT", "A#E", "RED"});
  document.At({1, 1}).solution = "\u00C9";
  document.title = "caf\u00E9";
  std::string file = kPuzFormat.Write(document);
  EXPECT_EQ(file.substr(kPuzVersion, 3), "1.3");
  EXPECT_EQ(file.substr(kPuzHeaderSize, 9),
            "\xC9"
            "ATA.ERED");
  EXPECT_NE(file.find("caf\xE9"), std::string::npos);
  EXPECT_EQ(Section(file, "RTBL"), "");

  document.notes = "\u2026";
  file = kPuzFormat.Write(document);
  EXPECT_EQ(file.substr(kPuzVersion, 3), "2.0");
  EXPECT_EQ(file.substr(kPuzHeaderSize, 9), "XATA.ERED");
  EXPECT_NE(file.find("caf\u00E9"), std::string::npos);
  EXPECT_EQ(Section(file, "RTBL"), " 0:\u00C9;");
  EXPECT_EQ(kPuzFormat.Read(file).document, document);

  // Texts of a version 2.0 that are no UTF-8, and a version without notes.
  file.replace(file.find("caf\u00E9"), 5, "caf\xE9!");
  EXPECT_EQ(kPuzFormat.Read(file).document.title, "caf\u00E9!");
  file = MiniFile().replace(kPuzVersion, 4, "1.2c");
  EXPECT_EQ(kPuzFormat.Read(file).document, Mini());
}

TEST(Puz, RebusCirclesGivenLettersAndHoles) {
  Document document = DocumentOf({"CAT", "A#E", "RED"});
  document.At({1, 1}).solution = "HEART";
  document.At({1, 2}).solution = "-";
  document.At({1, 3}).solution = "HEART";
  document.At({1, 3}).circled = document.At({3, 1}).given = true;
  document.At({2, 2}).kind = Cell::Kind::Void;
  const std::string file = kPuzFormat.Write(document);
  EXPECT_EQ(file.substr(kPuzHeaderSize, 18), "HXHA:ERED----.-R--");
  EXPECT_EQ(Section(file, "GRBS"), Bytes("01 02 01 00 00 00 00 00 00 "));
  EXPECT_EQ(Section(file, "RTBL"), " 0:HEART; 1:-;");
  EXPECT_EQ(Section(file, "GEXT"), Bytes("00 00 80 00 00 00 40 00 00 "));
  EXPECT_EQ(kPuzFormat.Read(file).document, document);
}

TEST(Puz, WithoutAnyLetterThereIsNoSolution) {
  Document document = DocumentOf({"...", ".#.", "..."});
  document.At({1, 1}).circled = true;
  std::string file = kPuzFormat.Write(document);
  EXPECT_EQ(file[kPuzKind], kPuzNoSolution);
  EXPECT_EQ(file.substr(kPuzHeaderSize, 9), "----.----");
  EXPECT_EQ(kPuzFormat.Read(file).document, document);
  // As other programs write it.
  file.replace(kPuzHeaderSize, 9, "XXXX.XXXX");
  EXPECT_EQ(kPuzFormat.Read(file).document, document);
}

TEST(Puz, TellsWhatItCannotHold) {
  Document document(12, 12);
  for (std::size_t i = 0; i < document.cells.size(); ++i)
    document.cells[i].solution = "R" + std::to_string(i);
  document.cells[0].solution = "A;B";
  document.cells[3].barRight = true;
  document.cells[5].shade = Colour{1, 2, 3};
  EXPECT_EQ(Texts(kPuzFormat.Losses(document)),
            (std::vector<std::string>{
                "44 cells' letters, first \"A;B\" at row 1, column 1",
                "1 bar, between row 1, column 4 and row 1, column 5",
                "1 shade, at row 1, column 6"}));
  const Document read = kPuzFormat.Read(kPuzFormat.Write(document)).document;
  EXPECT_EQ(read.cells[0].solution, "A");
  EXPECT_EQ(read.cells[100].solution, "R100");
  EXPECT_EQ(read.cells[101].solution, "R");
}
