#pragma once

#include "layer/Layer.h"

#include <QCache>
#include <QImage>
#include <QStyledItemDelegate>

class LayerList;

/// Paints a row of a layer table: the layer's picture, its name, and below it what the table tells of it. Hidden layers
/// are dimmed.
class LayerDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Size of the picture's place in logical pixels.
    static constexpr QSize pictureSize{56, 32};

    /// What stands below the name.
    using SecondLine = QString (*)(const Layer &layer);

    /// `list` is the model of the view and outlives the delegate's last painting.
    LayerDelegate(const LayerList &list, SecondLine secondLine, QObject *parent = nullptr);

    /// The layer's name; "Unnamed" where it has none.
    static QString name(const Layer &layer);
    /// "x 1,920  y 0  ·  1,024 × 640"
    static QString placeAndSize(const Layer &layer);
    /// "128 × 128 px  ·  220 W"
    static QString panel(const Layer &layer);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    /// The field to rename a layer in, on its name.
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

private:
    void paintPicture(QPainter &painter, const QRect &place, const Layer &layer) const;
    QImage stamp(const Layer &layer, qreal devicePixelRatio) const;

    const LayerList &m_list;
    SecondLine m_secondLine;
    /// Pictures at the size of their place, by the cache key of the large ones; forgotten when they are not in use.
    mutable QCache<qint64, QImage> m_stamps;
};
