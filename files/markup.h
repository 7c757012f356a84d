// The HTML of .ipuz and .jpz texts.  Documents hold plain texts: tags are
// taken out and told of, "&eacute;" becomes the letter that it names.  Nothing
// in a text is ever interpreted or opened.

#pragma once

#include <string>
#include <string_view>

// The plain text of HTML.  Only tags that are known and whole are tags, so
// "I <3 U" and "AT&T" stay; `hadTags` is set when there was any.
std::string PlainText(std::string_view html, bool& hadTags);

// HTML that reads as a plain text, with no more escapes than it takes.
std::string HtmlText(std::string_view plain);
