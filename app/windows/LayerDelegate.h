#pragma once

#include "layer/Layer.h"

#include <QCache>
#include <QImage>
#include <QStyledItemDelegate>

class LayerList;

/// Paints a row of the layer table: the layer's picture, its name, and below it position and size. Hidden layers are
/// dimmed.
class LayerDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Size of the picture's place in logical pixels.
    static constexpr QSize pictureSize{56, 32};

    /// `list` is the model of the view and outlives the delegate's last painting.
    explicit LayerDelegate(const LayerList &list, QObject *parent = nullptr);

    /// The layer's name; "Unnamed" where it has none.
    static QString name(const Layer &layer);
    /// "x 1,920  y 0  ·  1,024 × 640"
    static QString placeAndSize(const Layer &layer);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

private:
    void paintPicture(QPainter &painter, const QRect &place, const Layer &layer) const;
    QImage stamp(const Layer &layer, qreal devicePixelRatio) const;

    const LayerList &m_list;
    /// Pictures at the size of their place, by the cache key of the large ones; forgotten when they are not in use.
    mutable QCache<qint64, QImage> m_stamps;
};
