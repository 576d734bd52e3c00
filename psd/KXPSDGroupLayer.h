#pragma once

#include "psd/KXPSDLayer.h"

#include <memory>
#include <utility>

/// One of the two records around the members of a layer group. They carry no pixels and always count as visible. Of the
/// layers from bottom to top the opening one comes first, as the group's lower bound, and the closing one last, as the
/// group itself.
class KXPSDGroupLayer : public KXPSDLayer
{
public:
    KXPSDGroupLayer() = default;
    explicit KXPSDGroupLayer(const QString &name, float opacity = 1, bool isOpened = false);

    /// The group is shown expanded.
    bool isOpened() const { return m_isOpened; }
    void setIsOpened(bool isOpened) { m_isOpened = isOpened; }

    /// Takes over name, opacity, state and effects; not the blend mode.
    void copyGroupInformationFrom(const KXPSDGroupLayer &other);

    bool hasValidSize() const override { return true; }

protected:
    /// Uncompressed channels without data.
    std::vector<qint64> writeChannels(ByteBuffer &buffer, ChannelPacker &packer, KXPSDError *error) const override;

private:
    bool m_isOpened = false;
};

/// The lower bound of a group. In files it is named "</Layer group>"; its own name is the group's.
class KXPSDGroupOpeningLayer final : public KXPSDGroupLayer
{
public:
    using KXPSDGroupLayer::KXPSDGroupLayer;

    ByteBuffer extraLayerInformation() override;
};

/// The group itself. Its record has the values of its opening layer, taken over when it is written.
class KXPSDGroupClosingLayer final : public KXPSDGroupLayer
{
public:
    using KXPSDGroupLayer::KXPSDGroupLayer;

    const std::shared_ptr<const KXPSDGroupOpeningLayer> &groupOpeningLayer() const { return m_groupOpeningLayer; }
    void setGroupOpeningLayer(std::shared_ptr<const KXPSDGroupOpeningLayer> layer)
    {
        m_groupOpeningLayer = std::move(layer);
    }

    void writeLayerRecordOn(ByteBuffer &buffer, std::span<const qint64> channelLengths) override;
    ByteBuffer extraLayerInformation() override;

private:
    void takeOverOpeningLayer();

    std::shared_ptr<const KXPSDGroupOpeningLayer> m_groupOpeningLayer;
};
