// Many runs as one table of comma-separated values, a row for each.
#pragma once

#include <string>
#include <vector>

#include "app/collected_run.h"

namespace koprax {

/// The records of the table without their line ends: the names of the columns, then one a run. The columns
/// are file, ok, failed and error, then those of the values in the order in which they first come up. A field
/// is quoted where it has to be; line breaks inside stay.
[[nodiscard]] std::vector<std::string> TableOfRuns(const std::vector<CollectedRun>& runs);

}  // namespace koprax
