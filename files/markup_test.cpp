#include "files/markup.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/random_document.h"

TEST(Markup, TagsGoAndLettersAreDecoded) {
  struct Case {
    const char* html;
    const char* plain;
    bool hadTags;
  };
  for (const Case& c : std::initializer_list<Case>{
           {"<i>Emma</i> author", "Emma author", true},
           {"H<sub>2</sub>O<br/>", "H2O", true},
           {"a<BR>b<p class='x'>c</p>", "a\nb\nc", true},
           {"<span style=\"x\">red</span>", "red", true},
           {"I <3 U & AT&T; x < y > z", "I <3 U & AT&T; x < y > z", false},
           {"<noun> of <b", "<noun> of <b", false},
           {"Caf&eacute; &#233;&#xE9; &amp;lt; &bogus; &#0; &#xD800;",
            "Café éé &lt; &bogus; &#0; &#xD800;", false},
           {"&lt;b&gt; &quot;&nbsp;&#39;", "<b> \" '", false}}) {
    bool hadTags = false;
    EXPECT_EQ(PlainText(c.html, hadTags), c.plain);
    EXPECT_EQ(hadTags, c.hadTags) << c.html;
  }
  // No more escapes than it takes.
  EXPECT_EQ(HtmlText("AT&T <3 & <b> &amp;"), "AT&T <3 & &lt;b> &amp;amp;");
}

RC_GTEST_PROP(Markup, APlainTextComesBack, ()) {
  const std::string plain = *GenText(true);
  bool hadTags = false;
  RC_ASSERT(PlainText(HtmlText(plain), hadTags) == plain);
  RC_ASSERT(!hadTags);
}
