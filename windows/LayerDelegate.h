#pragma once

#include "layer/Layer.h"

#include <QStringList>
#include <QStyledItemDelegate>

#include <functional>

class LayerList;
class LayerStamps;

/// Paints a row of a layer table: the layer's picture, its name, and below it what the table tells of it. Rows of the
/// document's layers have an eye, too, and a sign where something is wrong. Hidden layers are dimmed.
class LayerDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    enum class Kind
    {
        Layers, ///< an eye; place and size below the name
        Presets ///< no eye; panel and watts below the name
    };
    /// What is wrong with a layer, one sentence each, the most urgent first.
    using Warnings = std::function<QStringList(const Layer &layer)>;

    /// Size of the picture's place in logical pixels.
    static constexpr QSize pictureSize{56, 32};

    /// `list` is the model of the view and outlives the delegate's last painting, as `stamps` does, which gives the
    /// pictures; `warnings` is asked at every painting, and never where it is null.
    LayerDelegate(const LayerList &list, Kind kind, LayerStamps &stamps, Warnings warnings, QObject *parent = nullptr);

    /// The layer's name; where it has none, that of its picture's file or "Unnamed".
    static QString name(const Layer &layer);
    /// "x 1,920 y 0 · 1,024 × 640"
    static QString placeAndSize(const Layer &layer);
    /// "128 × 128 px  ·  220 W"
    static QString panel(const Layer &layer);

    /// What the row tells of the layer beside its name, a line each: the second line, "Hidden", what is wrong.
    QStringList lines(const Layer &layer) const;

    /// Places in a row that is shown at `row`. The eye's is more than is painted, so that it is easy to hit, and empty
    /// where rows have none.
    QRect eyePlace(const QRect &row) const;
    QRect picturePlace(const QRect &row) const;
    QRect namePlace(const QRect &row) const;
    /// Of the sign that something is wrong, whether there is one or not.
    QRect warningPlace(const QRect &row) const;

    /// From now on rows are painted with their icons; the first painting of a window would wait for them.
    void showIcons() { m_hasIcons = true; }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    /// The field to rename a layer in, on its name.
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    /// A tip that says what the row itself does not: what is wrong, and a name that is cut.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

    /// A name that nobody changed is none that was given.
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

protected:
    /// Nothing: rows have no check box that could be clicked.
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;

private:
    QString secondLine(const Layer &layer) const;
    QStringList warnings(const Layer &layer) const;
    void paintIcons(QPainter &painter, const QRect &row, const Layer &layer, bool hasWarning) const;
    void paintPicture(QPainter &painter, const QRect &place, const QImage &stamp, double opacity) const;

    const LayerList &m_list;
    Kind m_kind;
    LayerStamps &m_stamps;
    Warnings m_warnings;
    bool m_hasIcons = false;
};
