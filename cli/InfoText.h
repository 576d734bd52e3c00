#pragma once

#include <QString>

struct ProjectFacts;

/// A project's facts for people.
namespace InfoText {

/// Lines with thousands separators, one block a layer, the total current last.
QString of(const ProjectFacts &facts);

} // namespace InfoText
