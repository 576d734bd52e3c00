#pragma once

#include <QLoggingCategory>

/// Diagnostic lines of the canvas; shown only where a person asks for them (QT_LOGGING_RULES="wallwright.*=true").
Q_DECLARE_LOGGING_CATEGORY(lcCanvas)
