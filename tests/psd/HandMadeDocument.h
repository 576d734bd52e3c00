#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <optional>
#include <vector>

/// A number of `length` bytes, the highest first.
QByteArray bigEndian(quint64 number, int length);
/// Bytes behind a length of four bytes.
QByteArray counted(const QByteArray &bytes);

/// A small layered document put together by hand, piece by piece, so that one piece at a time can be made wrong while
/// all lengths around it stay right. As it is made it is a good one: 3 x 2 pixels, four channels; from bottom to top a
/// group's bound, a layer with effects, and the group.
struct HandMadeDocument
{
    struct Record
    {
        QByteArray rectangle = bigEndian(0, 8) + bigEndian(2, 4) + bigEndian(3, 4);
        QByteArrayList channelIds{bigEndian(0, 2), bigEndian(1, 2), bigEndian(2, 2), bigEndian(0xffff, 2)};
        QByteArray state = "8BIMnorm" + bigEndian(255, 1) + bigEndian(0, 3);
        QByteArray maskAndRanges = bigEndian(0, 8);
        QByteArray paddedName;
        QByteArrayList blocks;
        QByteArrayList channels; ///< their data

        QByteArray bytes() const;
    };

    HandMadeDocument();
    /// The whole file.
    QByteArray bytes() const;

    static QByteArray resource(quint32 number, const QByteArray &content);
    static QByteArray block(const QByteArray &key, const QByteArray &content);
    static QByteArray unicodeName(const QByteArray &name);
    /// A PackBits channel of these rows.
    static QByteArray channel(const QByteArrayList &packedRows);
    /// The records of an effects block: the common state and six effects.
    static QByteArrayList effectRecords();
    static QByteArray effects(const QByteArrayList &records, quint32 count = 7, quint32 version = 0);

    QByteArray header = "8BPS" + bigEndian(1, 2) + bigEndian(0, 6) + bigEndian(4, 2) + bigEndian(2, 4) +
                        bigEndian(3, 4) + bigEndian(8, 2) + bigEndian(3, 2);
    QByteArray colourMode = bigEndian(0, 4);
    QByteArrayList resources;
    std::optional<quint32> layerCount; ///< instead of the number of records
    Record bound;
    Record layer;
    Record group;
    std::vector<const Record *> order{&bound, &layer, &group};
    QByteArray behindChannels = bigEndian(0, 1); ///< the pad
    QByteArray behindLayers;                     ///< a mask of the whole document, if there were one
    QByteArray mergedCompression = bigEndian(1, 2);
    QByteArrayList mergedRows;
    QByteArray behindAll;

    HandMadeDocument(const HandMadeDocument &) = delete;
    HandMadeDocument &operator=(const HandMadeDocument &) = delete;
};
