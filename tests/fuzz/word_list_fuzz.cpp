// Whatever the bytes, a word list is read or refused, and every word that it
// gave fits its own letters.

#include "grid/choose_dictionary.h"
#include "solver/matcher.h"
#include "tests/fuzz/fuzz_file.h"
#include "tests/quiet_host.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data,
                                      std::size_t size) {
  const FuzzFile file(data, size);
  QuietDesk desk;
  WordTable words;
  try {
    ReadDictionary(desk.state, words, desk.host, file.Path());
  } catch (const FileError&) {
    return 0;
  }
  Matcher matcher(desk.state, words);
  std::vector<Candidate> matches;
  for (int n = 3; n <= LongestWordLength; ++n) {
    for (int j = 1; j <= words.WordCount(n); ++j) {
      matcher.FindMatches(Mask(words.WordAt(n, j)), matches);
      if (matches.empty()) std::abort();
    }
  }
  return 0;
}
