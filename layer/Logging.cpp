#include "layer/Logging.h"

Q_LOGGING_CATEGORY(lcScreen, "wallwright.screen", QtInfoMsg)
Q_LOGGING_CATEGORY(lcStill, "wallwright.still", QtInfoMsg)
