// The help texts of the calibration.
#include "workspace/help_texts.h"

namespace koprax {

std::string_view CalibrationHelp(HelpTopic /*topic*/) { return {}; }

}  // namespace koprax
