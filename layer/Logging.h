#pragma once

#include <QLoggingCategory>

/// Log lines about layers. Warnings are shown; diagnostic lines only where a person asks for them
/// (QT_LOGGING_RULES="wallwright.*=true").
Q_DECLARE_LOGGING_CATEGORY(lcScreen)
Q_DECLARE_LOGGING_CATEGORY(lcStill)
