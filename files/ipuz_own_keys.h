// The keys of an .ipuz file that only Kelda has (files/ipuz.h).

#pragma once

#include "files/format.h"
#include "files/json_text.h"

// Reads them into the document; what is none of theirs is passed over.
void ReadIpuzOwnKeys(const Json& root, Reading& reading);
