#include "files/jpz.h"

#include <gtest/gtest.h>

#include "files/zip.h"
#include "tests/document_text.h"

namespace {

// CAT / A#E / RED under a namespace, with a circle and bars.
const std::string kGrid = R"(
 <grid width="3" height="3"><grid-look numbering-scheme="normal"/>
  <cell x="1" y="1" solution="C" number="1" background-shape="circle"/>
  <cell x="2" y="1" solution="A" right-bar="true"/>
  <cell x="3" y="1" solution="T" number="2" background-color="#ff0000"/>
  <cell x="1" y="2" solution="A"/><cell x="2" y="2" type="block"/>
  <cell x="3" y="2" solution="E" solve-state="E" hint="true"/>
  <cell x="1" y="3" solution="R" number="3" top-bar="true"/>
  <cell x="2" y="3" solution="E"/><cell x="3" y="3" solution="D"/></grid>)";

std::string File(const std::string& crossword) {
  return R"(<?xml version="1.0"?>
<!DOCTYPE x [<!ENTITY big "gone"><!ENTITY f SYSTEM "file:///etc/passwd">]>
<k:crossword-compiler xmlns:k="urn:any"><k:rectangular-puzzle>
<metadata><title>Mini &amp; more</title><creator> A. Setter
</creator><copyright/><description>Two
lines</description><editor>E</editor></metadata>
<k:crossword>)" +
         crossword +
         "</k:crossword></k:rectangular-puzzle></k:crossword-compiler>";
}

const std::string kClues = R"(
 <word id="7" x="3" y="1-3"/><word id="1" x="1-2" y="1"/>
 <word id="9"><cells x="1" y="3"/><cells x="2-3" y="3"/></word>
 <clues><title><b>Across</b></title>
  <clue word="9" number="3" format="1,2">&lt;i&gt;Scarlet&lt;/i&gt; &f;</clue>
  <clue word="1" number="1"><i>A</i> pet&#233;
     of <b>ours</b></clue></clues>
 <clues><title>Down</title><clue word="7" number="2"><span>1 &lt;b&gt;
  </span></clue><clue word="77" number="1a">Nowhere</clue></clues>)";

}  // namespace

TEST(Jpz, ReadsWhatIsFoundInTheWild) {
  const std::string xml = File(kGrid + kClues);
  for (const std::string& bytes : {xml, Zipped("a.xml", xml)}) {
    ASSERT_TRUE(kJpzFormat.recognises(bytes));
    const Reading reading = kJpzFormat.Read(bytes);
    const Document& document = reading.document;
    EXPECT_EQ(RowsText(document), "CAT/A#E/RED");
    EXPECT_EQ(CluesText(document),
              "1A A peté of ours; 3A Scarlet &f; (1,2); 2D 1 <b>");
    EXPECT_EQ(document.title, "Mini & more");
    EXPECT_EQ(document.author, "A. Setter");
    EXPECT_EQ(document.notes, "Two\nlines");
    EXPECT_TRUE(document.At({1, 1}).circled);
    EXPECT_TRUE(document.At({1, 2}).barRight);
    EXPECT_TRUE(document.At({2, 1}).barBelow);
    EXPECT_TRUE(document.At({2, 3}).given);
    EXPECT_EQ(document.At({1, 3}).shade, (Colour{255, 0, 0}));
    EXPECT_EQ(
        reading.passedOver,
        (std::vector<std::string>{"the editor, E",
                                  "the clue 1aD, Nowhere, has no place in the "
                                  "grid",
                                  "the markup of texts, such as italics"}));
  }
}

TEST(Jpz, TellsOfCellsThatAreOff) {
  const Reading reading = kJpzFormat.Read(File(
      R"(<grid width="3" height="3"><cell x="1" y="1" solution="A"/>
      <cell x="9" y="1"/><cell x="-2" y="99999999999"/>
      <cell x="2" y="1" solve-state="Q" foreground-color="red"/>
      <cell x="3" y="1" type="clue"/></grid>
      <word id="1" x="1-99" y="1"/><word id="2" x="1-3" y="1-3"/>)"));
  EXPECT_EQ(RowsText(reading.document), "A../___/___");
  EXPECT_EQ(reading.passedOver,
            (std::vector<std::string>{
                "2 cells outside the grid", "the editor, E",
                "the cells have no numbers",

                "6 cells left out of the file, taken for holes, first at row "
                "2, column 1",
                "1 cell of type \"clue\", taken as white, at row 1, column 3",
                "1 cell with \"foreground-color\", which is not kept, at row "
                "1, column 2",
                "1 cell with a letter of a solver, which is not kept, at row "
                "1, column 2"}));
}

TEST(Jpz, RefusesWhatIsNone) {
  const std::string whole = Zipped("a.xml", File(kGrid));
  for (const auto& [bytes, message] :
       std::vector<std::pair<std::string, std::string>>{
           {"<a><b></a>", "line 1: Start-end tags mismatch"},
           {"<a/>", "there is no crossword"},
           {File("<grid width='999999' height='3'/>"),
            "the grid is 999999 x 3 cells; 3 to 51 a side can be read"},
           {whole.substr(0, whole.size() / 2), "the zip archive is damaged"},
           {Zipped("a.xml", std::string((1 << 26) + 1, ' ')),
            "the file in the zip archive is larger than 64 MiB"}}) {
    EXPECT_EQ(RefusalOf(kJpzFormat, bytes), message);
  }
}

TEST(Zip, TakesTheXmlOfManyFiles) {
  EXPECT_EQ(Zipped("a", "x"), Zipped("a", "x"));
  EXPECT_EQ(Unzipped(Zipped("a.xml", "x"), ".XML"), "x");
  EXPECT_EQ(Unzipped(Zipped("other", "x"), ".xml"), "x");
  EXPECT_THROW(Unzipped(Zipped("folder/", ""), ".xml"), FormatError);
}
