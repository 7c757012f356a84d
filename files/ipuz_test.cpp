#include "files/ipuz.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/document_text.h"

namespace {

struct Case {
  std::string name;
  std::string keys;  // besides version and kind
  std::string rows;
  std::string clues;
  std::vector<std::string> passedOver;
};

std::string File(const std::string& keys) {
  return R"({"version":"http://ipuz.org/v2","kind":)"
         R"(["http://ipuz.org/crossword#1"],)" +
         keys + "}";
}

// CAT / A#E / RED.
const std::string kCells =
    R"("dimensions":{"width":3,"height":3},)"
    R"("puzzle":[[1,0,2],[0,"#",0],[3,0,0]],)"
    R"("solution":[["C","A","T"],["A","#","E"],["R","E","D"]])";

const std::vector<Case> kCases = {
    {"as others write it",
     kCells + R"(,"clues":{"Across":[[1,"Pet"],[3,"Scarlet"]],
        "Down":[[1,"Auto"],[2,"Talk name"]]})",
     "CAT/A#E/RED",
     "1A Pet; 3A Scarlet; 1D Auto; 2D Talk name",
     {}},
    {"clues as objects, numbers as texts, markup",
     kCells + R"j(,"showenumerations":true,"clues":{"Across":[
        {"number":"1","clue":"<i>Pet</i> &amp; co","enumeration":"3"},
        {"numbers":[3,1],"clue":"Red (3)","enumeration":"3"}],"down":
        [{"cells":[[1,1],[1,2],[1,3]],"clue":"By cells","references":[]}]})j",
     "CAT/A#E/RED",
     "1A Pet & co (3); 3A Red (3); 1D By cells",
     {"the markup of texts, such as italics"}},
    {"clues in order, cells counted from 0",
     kCells + R"(,"clues":{"Across":["Pet","Scarlet"],"Down":[
        {"number":9,"clue":"Auto","cells":[[0,0],[0,1],[0,2]]},
        {"clue":"Talk","cells":[[2,0],[2,1],[2,2]]}]})",
     "CAT/A#E/RED",
     "1A Pet; 3A Scarlet; 1D Auto; 2D Talk",
     {}},
    {"labels of its own",
     R"("puzzle":[["a",0,"b"],["","#",0],["c",0,0]],"clues":{
        "Across":[["a","Pet"],["c","Red"],["x","Lost"],["c","Again"]],
        "Down":[["b","Talk"],["c","Nothing down here"]],"Zones":[]})",
     ".../.#./...",
     "1A Pet; 3A Red; 2D Talk; - Nothing down here",
     {"the clues of the list Zones",
      "3 cells that are not numbered as usual, first at row 1, column 1",
      "the clue xA, Lost, has no place in the grid", "a second clue cA, Again",
      "1 clue that belongs to no entry, cD"}},
    {"no solution, other marks, rows of unequal length, wrong dimensions",
     R"("dimensions":{"width":4,"height":3},"block":"X","empty":"-",
        "puzzle":[[1,"2","3"],["-","X"],[null,"-",{"cell":"-"}]])",
     ".../.#_/_..",
     "",
     {"the dimensions are not those of the grid",
      "1 cell left out of the file, taken for holes, at row 2, column 3"}},
    {"letters in odd places",
     R"("puzzle":[[1,2,3],[4,"#",0],[5,0,0]],"solution":[["HEART",
        {"value":"#"},["A","B"]],["#","Q",0],["","x y",7,"Z"]],
        "saved":[["A"]],"checksum":"c7")",
     "[HEART]#A/.#./.[xy]7",
     "",
     {"letters of the solution outside the grid",
      "the checksum of the solution",
      "1 cell white in the puzzle, a block in the solution, at row 2, column 1",
      "1 cell with letters but not white, at row 2, column 2",
      std::string("1 cell with several solutions, of which the first is ") +
          "kept, at row 1, column 3",
      "blanks or too many letters in 1 cell, at row 3, column 2"}},
};

}  // namespace

TEST(Ipuz, ReadsWhatIsFoundInTheWild) {
  for (const Case& c : kCases) {
    for (const std::string& bytes :
         {File(c.keys), "\xEF\xBB\xBF\n ipuz(" + File(c.keys) + ");\n"}) {
      ASSERT_TRUE(kIpuzFormat.recognises(bytes)) << c.name;
      const Reading reading = kIpuzFormat.Read(bytes);
      EXPECT_EQ(RowsText(reading.document), c.rows) << c.name;
      EXPECT_EQ(CluesText(reading.document), c.clues) << c.name;
      EXPECT_EQ(reading.passedOver, c.passedOver) << c.name;
    }
  }
}

TEST(Ipuz, ReadsStylesOfCells) {
  const Reading reading = kIpuzFormat.Read(File(
      R"("styles":{"c":{"shapebg":"circle","mark":{"TL":"x"}}},"puzzle":[
      [{"cell":1,"style":"c"},{"cell":2,"style":{"highlight":true}},
       {"cell":3,"style":"gone"}],
      [{"cell":4,"style":{"color":"#F80","barred":"RB"},"value":"A"},5,
       {"cell":"#","style":{"color":"00ff10"}}],
      [{"cell":6,"style":{"barred":"L"}},{"cell":0,"style":{"barred":"TL"}},
       {"cell":0,"style":{"color":3}}]])"));
  const Document& document = reading.document;
  EXPECT_TRUE(document.At({1, 1}).circled);
  EXPECT_EQ(document.At({1, 2}).shade, kPlainShade);
  EXPECT_EQ(document.At({2, 1}).shade, (Colour{255, 136, 0}));
  EXPECT_TRUE(document.At({2, 1}).given);
  EXPECT_EQ(document.At({2, 1}).solution, "A");
  EXPECT_EQ(document.At({2, 3}).shade, (Colour{0, 255, 16}));
  std::string bars;
  for (const Cell& cell : document.cells)
    bars += cell.barRight && cell.barBelow ? "+"
            : cell.barRight                ? "|"
            : cell.barBelow                ? "-"
                                           : ".";
  EXPECT_EQ(bars, "...+-.|..");
  EXPECT_EQ(reading.passedOver.size(), 2u);
}

// What is not Kelda's own comes back where it stood.
TEST(Ipuz, KeepsWhatIsNotItsOwn) {
  const std::string bytes = File(
      R"("dimensions":{"width":3,"height":3},"puzzle":[
        [{"cell":1,"style":{"mark":{"TL":"é"},"color":"FF8000"}},
         {"cell":0,"com.other:x":[1,2.5,null],"value":"A"},2],
        [0,{"cell":"#","style":{"imagebg":"x.png"}},0],
        [{"cell":0,"style":{"shapebg":"star","divided":"/"}},
         {"cell":null,"com.other:x":"hole"},{"cell":0,"y":false}]],
      "solution":[["C","A","T"],["A","#","E"],["R",null,"D"]],
      "clues":{"Across":[{"number":1,"clue":"Pet","references":[[1,2]],
          "continued":{"direction":"Down","number":2},"enumeration":"3"}],
        "Down":[{"number":1,"clue":"","highlight":true},
          {"number":2,"clue":"Talk","image":"y.png","com.other:z":{}}]},
      "publisher":"P & Q","com.other:x":{"a":[1,2.5,null]},"editor":"E",
      "org.kelda:later":true,"intro":"<b>Hi</b>","explanation":"Because",
      "title":"A &lt;b> C","date":"11/23/2026","difficulty":"Hard",
      "uniqueid":"u1","saved":[["A",0,0]],"showenumerations":false,
      "styles":{"s":{"mark":1}},"cell 1,1":{"a":1})");
  const Reading reading = kIpuzFormat.Read(bytes);
  EXPECT_EQ(reading.passedOver, std::vector<std::string>());
  EXPECT_EQ(reading.document.title, "A <b> C");
  auto json = nlohmann::json::parse(kIpuzFormat.Write(reading.document));
  EXPECT_EQ(json["origin"], "Kelda");
  json.erase("origin");
  EXPECT_EQ(json, nlohmann::json::parse(bytes));
}

TEST(Ipuz, KeepsFurtherKeysOfWhatIsThereAndOfThatSize) {
  struct Further {
    std::string style, clueKey;
    std::vector<std::string> passedOver;
    std::string written, losses;
  };
  const std::string tooMuch =
      "further keys of cells and clues: they are too much";
  std::string deep = "1";
  for (int i = 0; i < 96; ++i) deep = "[" + deep + "]";
  for (const auto& [style, number, passedOver, cell, loss] :
       std::vector<Further>{
           {R"({"divided":"/"})",
            "1",
            {},
            R"({"cell":1,"style":{"divided":"/"}})",
            ""},
           {R"({"divided":"/"})",
            "2",
            {"1 clue that belongs to no entry, 2A"},
            R"({"cell":1,"style":{"divided":"/"}})",
            "1 clue's further fields, across at row 1, column 3"},
           {R"({"color":"102030","a":")" + std::string(1 << 20, 'x') + "\"}",
            "1",
            {tooMuch},
            R"({"cell":1,"style":{"color":"102030"}})",
            ""},
           {"{\"a\":" + deep + "}", "1", {tooMuch}, "1", ""}}) {
    const Reading reading = kIpuzFormat.Read(
        File(R"("puzzle":[[{"cell":1,"style":"s"},0,2],[0,"#",0],[3,0,0]],
        "styles":{"s":)" +
             style + R"(},"clues":{"Across":[
        {"number":)" +
             number + R"(,"clue":"Pet","continued":true}]})"));
    EXPECT_EQ(reading.passedOver, passedOver);
    const auto losses = kIpuzFormat.Losses(reading.document);
    EXPECT_EQ(losses.empty() ? "" : losses[0].text, loss);
    const auto bytes = kIpuzFormat.Write(reading.document);
    EXPECT_EQ(nlohmann::json::parse(bytes)["puzzle"][0][0],
              nlohmann::json::parse(cell));
    EXPECT_NO_THROW((void)kIpuzFormat.Read(bytes));
  }
}

TEST(Ipuz, RefusesWhatIsNone) {
  const auto row = [](int n) {
    std::string cells = "0";
    for (int i = 1; i < n; ++i) cells += ",0";
    return "[" + cells + "]";
  };
  std::string deep = "\"x\":";
  for (int i = 0; i < 100000; ++i) deep += "[";
  for (const auto& [keys, message] :
       std::vector<std::pair<std::string, std::string>>{
           {"\"puzzle\":3", "puzzle: a list was expected"},
           {"\"puzzle\":[[0,0,0],4,5]",
            "puzzle: row 2: a list of cells was expected"},
           {"\"title\":\"x\"", "there is no puzzle"},
           {"\"puzzle\":[[0,0]]",
            "the grid is 2 x 1 cells; 3 to 51 a side can be read"},
           {"\"puzzle\":[" + row(52) + "," + row(1) + "," + row(1) + "]",
            "the grid is 52 x 3 cells; 3 to 51 a side can be read"},
           {deep, "lists within lists, too deep"}}) {
    EXPECT_EQ(RefusalOf(kIpuzFormat, File(keys)), message);
  }
  for (const char* bytes :
       {"", "{", "[]", "{\"kind\":[\"http://ipuz.org/sudoku#1\"]}",
        "{\"puzzle\":[[1e999]]}", "ipuz(", "\xFF\xFE"})
    EXPECT_THROW((void)kIpuzFormat.Read(bytes), FormatError) << bytes;
}
