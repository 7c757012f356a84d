#include "files/xd.h"

#include "tests/fuzz/format_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data,
                                      std::size_t size) {
  FuzzFormat(kXdFormat, data, size);
  return 0;
}
