#pragma once

#include "base/Colour.h"
#include "psd/KXPSDBlendMode.h"

#include <QImage>
#include <QPoint>
#include <QSize>
#include <QString>

#include <optional>
#include <vector>

/// What the writer is to be told, as plain values: nothing is clamped or converted here. Members that a kind of effect
/// does not have are not used.
struct PlannedEffect
{
    bool enabled = false;
    qint64 size = 0;
    qint64 angle = 0;
    qint64 distance = 0;
    Colour colour;
    Colour secondColour; ///< the bevel's shadow
    KXPSDBlendMode blendMode = KXPSDBlendMode::normal;
    KXPSDBlendMode secondBlendMode = KXPSDBlendMode::normal;
    qint64 opacity = 100;
    qint64 secondOpacity = 100;
    bool useGlobalLight = false;
    qint32 style = 0; ///< or the inner glow's source
    qint32 direction = 0;
};

struct PlannedEffects
{
    std::optional<PlannedEffect> dropShadow;
    std::optional<PlannedEffect> innerShadow;
    std::optional<PlannedEffect> outerGlow;
    std::optional<PlannedEffect> innerGlow;
    std::optional<PlannedEffect> bevel;
    std::optional<PlannedEffect> solidFill;
};

struct PlannedStep
{
    enum Kind
    {
        AddPicture,
        OpenGroup,
        CloseGroup, ///< also where no group is open
    };
    Kind kind = AddPicture;
    QString name;
    float opacity = 1;
    KXPSDBlendMode blendMode = KXPSDBlendMode::normal;
    PlannedEffects effects;
    bool isOpened = false; ///< of a group
    // The rest is a picture's.
    QImage image;
    QPoint offset;
    bool shouldFlip = false;
    bool shouldUnpremultiply = false;
};

struct PlannedDocument
{
    QSize size;
    bool hasTransparentLayers = true;
    float resolution = 72;
    qint32 resolutionUnit = 1;
    qint32 colorProfile = 0;
    std::vector<PlannedStep> steps;
};

/// A document that is always the same for the same seed: up to 80 x 80 pixels and eight steps.
PlannedDocument randomDocument(quint32 seed);
