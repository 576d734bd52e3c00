#pragma once

#include "layer/Layer.h"

#include <QCache>
#include <QImage>
#include <QObject>
#include <QPersistentModelIndex>
#include <QTimer>

#include <deque>
#include <functional>
#include <memory>

/// Small pictures of layers for the rows of a table. A painting takes those that are there; the others are made
/// afterwards, one at a time while nothing else is to be done, and for rows in sight alone. One look is made once,
/// whatever layer has it. Main thread only.
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

signals:
    void ready(const QModelIndex &row);

private:
    struct Subject
    {
        LayerLook look;
        QSize size; ///< of the stamp, in device pixels; empty: none can be had
        bool operator==(const Subject &) const = default;
        friend std::size_t qHash(const Subject &subject, std::size_t seed)
        {
            return qHashMulti(seed, subject.look.record.get(), subject.size.width(), subject.size.height());
        }
    };
    struct Last
    {
        std::weak_ptr<const Layer> layer;
        QImage stamp;
    };
    struct Wanted
    {
        QPersistentModelIndex row;
        std::weak_ptr<const Layer> layer;
        qreal devicePixelRatio;
    };

    Subject subjectOf(const Layer &layer, qreal devicePixelRatio) const;
    QImage lastOf(const LayerPointer &layer) const;
    void want(const QModelIndex &row, const LayerPointer &layer, qreal devicePixelRatio);
    void makeNext();
    /// False: there is one already.
    bool make(const Layer &layer, qreal devicePixelRatio);

    QSize m_size;
    IsInSight m_isInSight;
    QCache<Subject, QImage> m_stamps; ///< null ones of layers without a picture among them
    QCache<const Layer *, Last> m_last;
    std::deque<Wanted> m_wanted;
    QTimer m_idle; ///< comes when all events are through
};
