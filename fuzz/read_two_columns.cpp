// Files of two columns.
#include "fuzz/profile_formats.h"

KOPRAX_FUZZ_PROFILE_FORMAT(koprax::formats::TwoColumns)
