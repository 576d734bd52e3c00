#pragma once

#include "screen/LWScreen.h"
#include "wiring/PortCapacity.h"

/// What shows with processors are made of.
inline ProcessorSettings controller(const QString &name = "A", const QString &model = "MX40 Pro")
{
    ProcessorSettings settings;
    settings.name = name;
    settings.model = model;
    settings.card = "other";
    return settings;
}

/// With panels of `side` x `side` pixels.
inline std::shared_ptr<LWScreen> wallOf(LayerHost &host, int columns, int rows, int side)
{
    std::shared_ptr<LWScreen> wall = LWScreen::init(host);
    wall->setCol(columns);
    wall->setRow(rows);
    wall->setPanelWidth(side);
    wall->setPanelHeight(side);
    wall->drawInRect();
    return wall;
}
