// A walk through the workbench by a user who clicks, types and drags whatever the input says, and answers
// every question as it says: nothing breaks, the laws of the workbench hold, and there is always a way on.
#include <cstdint>
#include <cstdlib>

#include "fuzz/law.h"
#include "tests/monkey/decisions.h"
#include "tests/monkey/sample_files.h"
#include "tests/monkey/walk.h"
#include "tests/monkey/walk_record.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr int most_steps = 200;
  static koprax::SampleFiles files;
  files.Restore();
  koprax::ByteDecisions decisions(koprax::InputBytes(data, size));
  // Set to see the way that led to a finding.
  koprax::WalkRecord record(std::getenv("KOPRAX_TELL_WALK") != nullptr);
  koprax::Walk walk(decisions, files, record);
  walk.Start();
  for (int step = 0; step < most_steps && !decisions.AtEnd() && !walk.Ended(); ++step) walk.Step();
  return 0;
}
