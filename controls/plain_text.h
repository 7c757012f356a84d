// Texts from outside, made safe to show.
//
// Qt takes a tool tip, a label or a box's second line for a page when it
// looks like one, and then opens the files that the page names.  So every
// text that goes to one of these, and every one that Qt may make one of these
// of, comes from here; a check among the tests finds those that do not.

#pragma once

#include <QString>

// The invisible characters: one that keeps markup from being seen as such,
// one that lets a long word wrap.
inline constexpr QChar kJoiner(0x2060), kMayBreak(0x200B);

// The text, so that it is shown as it stands.  One that looks like a page,
// "<img src=x>", gets an invisible character after each "<" and "&".
QString Plain(const QString& text);

// The same for a tool tip: in lines of up to 80 characters, at most 20.
QString PlainTip(const QString& text);

// The same for a message: of a long text the beginning and the end, at most
// 600 characters and 20 lines, which wrap also within a long word.
QString PlainBrief(const QString& text);
