#pragma once

#include <QStyledItemDelegate>

/// Draws how much of a port is used as a bar with its figure: amber where it is nearly full, red where it is over.
class LoadBar final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
