#pragma once

#include "tests/psd/LayeredDocument.h"
#include "tests/psd/RandomDocument.h"

#include <QByteArray>

#include <optional>

/// The four bytes of a blend mode.
QByteArray keyOf(const KXPSDBlendMode &mode);

/// What the file must hold of planned effects: none where none is enabled, else all six, those that are not there as
/// disabled ones.
std::optional<LayeredDocument::Effects> expectedEffects(const PlannedEffects &planned);
