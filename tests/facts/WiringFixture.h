#pragma once

#include "facts/WiringChecks.h"
#include "show/Project.h"
#include "tests/screen/TestHost.h"
#include "tests/screen/WiredWalls.h"

#include <gtest/gtest.h>

/// A show of walls with panels of 128 x 128.
class WiringFixture : public ::testing::Test
{
protected:
    LayerPointer add(const QString &name, int columns, int rows, const char *split = "panels")
    {
        LayerPointer wall = wallOf(host, columns, rows, 128);
        wall->setLabel(name);
        wall->setValue("processor", "A");
        wall->setValue("split", split);
        show.layers.push_back(wall);
        return wall;
    }
    void lay(const LayerPointer &wall, const WallRuns &runs)
    {
        wall->setValue("split", "hand");
        wall->setValue("runs", QVariant::fromValue(CableRuns(runs)));
    }
    /// "error port-over: The sentence.", each.
    QStringList found() const
    {
        QStringList lines;
        for (const Finding &finding : WiringChecks::of(ShowPorts::of(show))) {
            const char *const levels[]{"error", "warning", "note", "meant"};
            lines.append(
                QString("%1 %2: %3").arg(levels[static_cast<int>(finding.level)], finding.check, finding.sentence));
        }
        return lines;
    }

    TestHost host;
    Project show{2160, 3840, {}, {}, {controller()}};
};
