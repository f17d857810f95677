// The tokeniser against its definition.
#include <cstdint>
#include <string>

#include "forms/text_file.h"
#include "fuzz/law.h"
#include "tests/files/plain_tokeniser.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace koprax;
  const std::string text = InputText(data, size);
  plain::TokenisedLine found;  // the tables go on from line to line: none may leave anything behind
  LineReader lines(text);
  while (!lines.AtEnd()) {
    const auto line = lines.NextLine();
    found = plain::Tokenised(line, found.Tables);
    Require(found == plain::PlainlyTokenised(line),
            "words and columns are those of '" + std::string(line) + "'");
  }
  return 0;
}
