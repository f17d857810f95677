#include "cell/cell_window.h"
