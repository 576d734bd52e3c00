#include "canvas/Logging.h"

Q_LOGGING_CATEGORY(lcCanvas, "wallwright.canvas", QtInfoMsg)
