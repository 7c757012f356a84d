// The playable page: a puzzle as one HTML file that any browser plays
// offline.
//
// The page is made of data/page/.  It asks nothing of the network, which its
// content security policy holds; texts of the puzzle are only ever shown.
// The answers are covered, not encrypted: nobody reads them by accident.

#pragma once

#include <string>

#include "puzzle/document.h"

std::string PlayablePage(const Document& document);
