#pragma once

#include "layer/Layer.h"

#include <QCache>
#include <QImage>
#include <QObject>
#include <QPersistentModelIndex>
#include <QTimer>

#include <chrono>
#include <deque>
#include <functional>
#include <memory>

/// Small pictures of layers for the rows of a table. A painting takes those that are there; the others are made
/// afterwards, one at a time while nothing else is to be done, and for rows in sight alone; where a layer has one, when
/// the hand rests that makes it look otherwise. Of each layer the last one is kept. Main thread only.
class LayerStamps final : public QObject
{
    Q_OBJECT

public:
    using IsInSight = std::function<bool(const QModelIndex &row)>;

    /// Stamps fit into `size`, in logical pixels. `isInSight` is asked before a row's stamp is made, and outlives this.
    LayerStamps(const QSize &size, IsInSight isInSight, QObject *parent = nullptr);

    /// The stamp of a row's layer. Where it is not made yet, it will be: until ready() tells so it is the one that the
    /// layer had before, or null. Null as well where the layer has no picture.
    QImage of(const QModelIndex &row, const LayerPointer &layer, qreal devicePixelRatio);

    /// Lets go of the stamps of layers that nothing holds any longer, and of what they were made of.
    void forgetGoneLayers();

    /// Whether any are still to be made.
    bool isBehind() const { return !m_wanted.empty(); }

signals:
    /// The row's layer has the stamp of what it looks like now.
    void ready(const QModelIndex &row);

private:
    struct Subject
    {
        LayerLook look;
        QSize size; ///< of the stamp, in device pixels; empty: none can be had
        bool operator==(const Subject &) const = default;
    };
    struct Stamp
    {
        std::weak_ptr<const Layer> layer; ///< another one may have come to its address
        Subject subject;
        QImage image; ///< null: the layer has no picture
    };
    struct Wanted
    {
        QPersistentModelIndex row;
        std::weak_ptr<const Layer> layer;
        qreal devicePixelRatio;
    };

    Subject subjectOf(const Layer &layer, qreal devicePixelRatio) const;
    const Stamp *lastOf(const Layer &layer) const;
    void want(const QModelIndex &row, const LayerPointer &layer, qreal devicePixelRatio,
              std::chrono::milliseconds delay);
    void makeNext();
    /// False: there is one already.
    bool make(const std::shared_ptr<const Layer> &layer, qreal devicePixelRatio);

    QSize m_size;
    IsInSight m_isInSight;
    QCache<const Layer *, Stamp> m_stamps; // a stamp holds the record that it was made of: one of each layer, no more
    std::deque<Wanted> m_wanted;
    QTimer m_idle; ///< comes after a rest, then when all events are through
};
