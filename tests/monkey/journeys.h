// Ways through the windows that chance alone would hardly find: scripts, of which the monkey plays a part
// before it goes on by itself.
#pragma once

#include <string>
#include <vector>

#include "tests/monkey/sample_files.h"

namespace koprax {

/// The commands of a script, one a line, without those that only look.
using Journey = std::vector<std::string>;

/// The journeys of tests/monkey/journeys.kop and the examples, under the folder of the sources. The files
/// that they name lie among the samples and the examples; what they save goes where samples may be saved.
[[nodiscard]] std::vector<Journey> ReadJourneys(const std::string& sources, const SampleFiles& files);

/// The same command for other buffers: those of a pair take the place of a and b.
[[nodiscard]] std::string WithBuffers(std::string line, const std::string& letters);

}  // namespace koprax
