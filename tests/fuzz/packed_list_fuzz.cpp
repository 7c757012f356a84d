// Whatever the bytes, a packed word list is read or refused with its line.

#include "base/text_file.h"
#include "dictionary/packed.h"
#include "tests/fuzz/fuzz_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data,
                                      std::size_t size) {
  const FuzzFile file(data, size);
  WordTable words;
  try {
    const auto list = ReadPackedDictionary(words, file.Path());
    if (words.TotalWords != static_cast<int>(list.size())) std::abort();
    words.BuildIndex();
  } catch (const FileError&) {
  }
  return 0;
}
