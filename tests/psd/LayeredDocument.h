#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QImage>
#include <QSize>
#include <QString>

#include <array>
#include <optional>
#include <vector>

/// A layered document as the tests read it back, with a reader of their own: strict, and knowing nothing of the writer.
/// All numbers are as they stand in the file.
struct LayeredDocument
{
    /// The samples of one channel, row after row.
    using Plane = QByteArray;
    /// Red, green, blue.
    using FileColour = std::array<quint16, 3>;

    struct Shadow
    {
        quint32 size = 0;
        quint32 angle = 0;
        quint32 distance = 0;
        FileColour colour{};
        QByteArray blendMode;
        bool enabled = false;
        bool useGlobalLight = false;
        quint32 opacity = 0;
        bool operator==(const Shadow &) const = default;
    };
    struct Glow
    {
        quint32 size = 0;
        FileColour colour{};
        QByteArray blendMode;
        bool enabled = false;
        quint32 opacity = 0;
        quint32 source = 0; ///< of an inner glow
        bool operator==(const Glow &) const = default;
    };
    struct Bevel
    {
        quint32 angle = 0;
        quint32 size = 0;
        QByteArray highlightBlendMode;
        QByteArray shadowBlendMode;
        FileColour highlightColour{};
        FileColour shadowColour{};
        quint32 style = 0;
        quint32 highlightOpacity = 0;
        quint32 shadowOpacity = 0;
        bool enabled = false;
        bool useGlobalLight = false;
        quint32 direction = 0;
        bool operator==(const Bevel &) const = default;
    };
    struct SolidFill
    {
        QByteArray blendMode;
        FileColour colour{};
        quint32 opacity = 0;
        bool enabled = false;
        bool operator==(const SolidFill &) const = default;
    };
    struct Effects
    {
        Shadow dropShadow;
        Shadow innerShadow;
        Glow outerGlow;
        Glow innerGlow;
        Bevel bevel;
        SolidFill solidFill;
        bool operator==(const Effects &) const = default;
    };

    enum Section : quint32
    {
        Picture = 0, ///< no section divider: a layer with pixels
        OpenedGroup = 1,
        ClosedGroup = 2,
        GroupBound = 3, ///< below the group's members
    };
    struct Layer
    {
        QString name;
        Section section = Picture;
        quint32 opacity = 0;
        QByteArray blendMode;
        std::optional<Effects> effects;
        /// Red, green, blue and perhaps alpha, each of the document's size; empty ones in the records of groups.
        std::vector<Plane> planes;
        bool operator==(const Layer &) const = default;
    };

    int width = 0;
    int height = 0;
    int channels = 0;
    /// Pixels per inch, as 16 bits before and 16 behind the point.
    quint32 horizontalResolution = 0;
    quint32 verticalResolution = 0;
    quint32 resolutionUnit = 0;
    /// An ICC file.
    std::optional<QByteArray> colourProfile;
    /// From bottom to top.
    std::vector<Layer> layers;
    std::vector<Plane> merged;

    bool operator==(const LayeredDocument &) const = default;

    /// Reads a whole file. Refuses it at the first length, count, row or key that does not fit: "byte 26: ...".
    static Result<LayeredDocument> read(QByteArrayView file);

    /// Planes of a size as one picture, premultiplied; opaque where there are but three.
    static QImage picture(const std::vector<Plane> &planes, const QSize &size);
    QImage mergedPicture() const { return picture(merged, {width, height}); }
};
