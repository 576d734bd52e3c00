#pragma once

#include "show/Project.h"

#include <QString>

/// A show in which every kind of value appears: colours that eight bits hold and do not hold, none, outside 0 to 1;
/// fractions, negative numbers, letters of many scripts, the text "$null", hidden panels with and without a list, a
/// plain still and one with an address in parts. 3840 x 2160, three screens and three stills.
Project sampleProject(LayerHost &host);

/// What the archive of a layer holds, key by key, in words; for comparing layers.
QString archiveText(const Layer &layer);
QString archiveText(const Project &project);
