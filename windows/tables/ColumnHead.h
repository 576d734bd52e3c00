#pragma once

#include <QVariant>

/// What stands above a column, and what it means.
struct ColumnHead
{
    const char *title;
    const char *tip;

    /// For headerData() of a model; it stands above what is aligned like that.
    QVariant data(Qt::Orientation orientation, int role, Qt::Alignment alignment) const
    {
        if (orientation != Qt::Horizontal)
            return {};
        switch (role) {
        case Qt::DisplayRole:
            return title;
        case Qt::ToolTipRole:
            return tip;
        case Qt::TextAlignmentRole:
            return QVariant(Qt::AlignVCenter | alignment);
        default:
            return {};
        }
    }
};
