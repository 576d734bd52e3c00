#pragma once

#include "archive/PropertyList.h"

#include <vector>

/// A copy of a node as it is; a text whose letters are none has U+FFFD in their place, since libplist writes such a
/// text so that it cannot read it again. The copy's references keep their numbers and go on `references`, that to the
/// class last. The caller owns the copy.
plist_t copyOfNode(plist_t node, std::vector<plist_t> &references);
