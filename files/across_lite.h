// Puzzles as plain text for Across Lite (*.txt): sections under tags, first
// <ACROSS PUZZLE>, with their lines indented.  ISO 8859-1; UTF-8 is read too.
//
// "." is a block, "-" an empty cell.  What needs it is written as version 2:
// ":" is a hole, small letters are circled where <REBUS> has the line
// "MARK;", and "1:HEART:H" tells what a character stands for.  Clues are a
// line each in the order of the entries; "-" is that of an entry without one.

#pragma once

#include "files/format.h"

extern const Format kAcrossLiteFormat;
