#include "fit/peak_fit_window.h"

namespace koprax {

bool Form19::ShowProfile(int slot) { return slot != 0; }

}  // namespace koprax
