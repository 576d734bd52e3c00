#pragma once

#include "tests/psd/DocumentCursor.h"
#include "tests/psd/LayeredDocument.h"

#include <QByteArray>

/// Reads the payload of an effects block: seven records in their fixed order, with their fixed sizes.
LayeredDocument::Effects readEffects(DocumentCursor &file);

/// Reads "8BIM" and a blend mode.
QByteArray readBlendMode(DocumentCursor &file);
