#pragma once

#include "facts/Finding.h"

#include <vector>

struct Project;

/// Findings in a project, for people and for programs.
namespace CheckReport {

/// A line each, and one that counts them:
///
///     show.Orv: layer 0 "Main", port 1: error: One row of panels has ... [port-over-limit]
///     1 error, 0 warnings, 0 notes
///
/// and ", 1 meant" where somebody means some.
QString lines(const QString &input, const Project &project, const std::vector<Finding> &findings);

/// An object with all members in this order:
///
///     {
///       "format": 1,
///       "errors": 1,
///       "warnings": 0,
///       "notes": 0,
///       "findings": [
///         {
///           "check": "port-over-limit", which never changes
///           "level": "error",           "warning", "note" or "meant"
///           "layer": 0,                 from the top of the list; null: the show as a whole
///           "label": "Main",            of the layer, or null
///           "cell": null,               or "row,column" of a panel, from the top left, from 0
///           "port": 1,                  or null
///           "processor": "A",           of the show, with that port; left out where it is about none
///           "sentence": "One row of panels has ..."
///         }
///       ]
///     }
QString json(const Project &project, const std::vector<Finding> &findings);

} // namespace CheckReport
