#pragma once

#include "layer/PixelBox.h"

#include <QRectF>
#include <QString>
#include <QWidget>

#include <vector>

/// One subject of the pane below the canvas: its table, and what the pane's head says of it and offers.
class TablePage : public QWidget
{
    Q_OBJECT

public:
    enum class Level
    {
        Fine,
        Doubtful,
        Wrong
    };
    struct State
    {
        QString text; ///< counts, and the worst; empty: there is nothing to say
        Level level = Level::Fine;
    };

    explicit TablePage(QWidget *parent = nullptr) : QWidget(parent) {}

    /// What its tab says.
    virtual QString title() const = 0;
    virtual State state() const = 0;
    /// What stands in the head while this page is before the others; the head owns it.
    virtual QWidget *tools() = 0;
    /// Shows the show as it is now; its table only while that is in sight.
    virtual void refresh() = 0;

    /// A place of the output as the canvas takes it.
    static QRectF pixelsOf(const PixelBox &box)
    {
        return {QPointF(static_cast<double>(box.columns.from), static_cast<double>(box.rows.from)),
                QPointF(static_cast<double>(box.columns.to), static_cast<double>(box.rows.to))};
    }

signals:
    /// title() or state() is another now.
    void stateDidChange();
    /// Something could not be done, and why; empty: what was asked for is done.
    void failureTold(const QString &sentence);
    /// Someone wants to see this place of the output, and these layers, by their rows in the list.
    void asked(const std::vector<qsizetype> &layers, const QRectF &pixels);
};
