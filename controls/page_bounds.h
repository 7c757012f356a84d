// What of a page from outside is laid out.  A few kilobytes of nested tables
// can keep a page view busy for hours, and a style can name files; so a page
// is written anew from the elements and attributes of plain pages, and one
// past the bounds is shown as its text alone.

#pragma once

#include <QString>
#include <optional>

// A page without scripts, styles and pictures: "<p onclick=x>a <b>c</b>" is
// "<p>a <b>c</b>".  Nothing when it has more than 64 kB, elements more than
// 50 deep, tables more than 5 deep, or more than 1,000 table cells and list
// items in all, where a cell counts as often as it spans columns and rows.
std::optional<QString> PageWithinBounds(const QString& html);

// The text of a page without its markup: "<p>a &lt; b</p>" is "a < b".
QString TextOfPage(const QString& html);

// The first 64 kB of a text; "..." stands for the rest.
QString BoundedText(const QString& text);
