#include "calibration/calibration_window.h"
