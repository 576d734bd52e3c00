#pragma once

#include "layer/Layer.h"
#include "layer/LayerHost.h"

#include <QImage>

/// A host of which nothing is asked.
class QuietHost final : public LayerHost
{
public:
    qint64 voltageCalc() const override { return 0; }
    void setVoltageCalc(qint64) override {}
    qint64 phaseCalc() const override { return 0; }
    void setPhaseCalc(qint64) override {}
    int popupIndex() const override { return 0; }
    int OutputWidth() const override { return 0; }
    int OutputHeight() const override { return 0; }
    QSizeF canvasFrameSize() const override { return {0, 0}; }
    void choosePattern(qint64) override {}
};

/// A layer that is nothing but its picture.
class PictureLayer final : public Layer
{
public:
    using Layer::Layer;
    QImage thumbnail() const override
    {
        ++timesAsked;
        return m_picture;
    }
    void setThumbnail(const QImage &picture) override { m_picture = picture; }
    void drawInRect() override {}
    void onImageClick(qint64, qint64) override {}
    LayerPointer copyWithZone() const override { return nullptr; }
    void encodeWithCoder(ArchiveObject &) const override {}
    std::span<const ArchiveField> keptFields() const override { return {}; }
    LayerKind kind() const override { return LayerKind::Still; }

    mutable int timesAsked = 0;

private:
    QImage m_picture;
};
