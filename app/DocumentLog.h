#pragma once

#include <QLoggingCategory>

/// What was done with the document, shown where a person asks for it (QT_LOGGING_RULES="wallwright.*=true").
Q_DECLARE_LOGGING_CATEGORY(lcDocument)
