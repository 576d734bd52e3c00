#pragma once

#include "tests/psd/LayeredDocument.h"
#include "tests/psd/RandomDocument.h"

/// What the file of a planned document must hold, worked out pixel by pixel and without the writer.
/// Without layers it has no visible ones, and there must be no file.
LayeredDocument expectedDocument(const PlannedDocument &planned);
