#pragma once

#include "show/Project.h"

/// Three walls over a picture, `folder`/plate.png, which this writes, in its own size, a larger and a smaller one.
/// `large`: the wall's and the picture's pixels, the output's and a value that this version does not know take several
/// MiB each.
Project sampleShow(LayerHost &host, const QString &folder, bool large);

/// Two walls; `large`: one has a name of a MiB.
std::vector<LayerPointer> samplePresets(LayerHost &host, bool large);
