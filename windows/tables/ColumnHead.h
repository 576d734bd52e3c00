#pragma once

#include <QVariant>

#include <array>
#include <cstddef>

/// What stands above a column, and what it means.
struct ColumnHead
{
    const char *title;
    const char *tip;
};

/// For headerData() of a model with such columns; rows have no heads. The text stands above what is aligned like that.
template <std::size_t count>
QVariant headOf(const std::array<ColumnHead, count> &columns, int section, Qt::Orientation orientation, int role,
                Qt::Alignment alignment)
{
    if (orientation != Qt::Horizontal)
        return {};
    const ColumnHead &head = columns.at(static_cast<std::size_t>(section));
    switch (role) {
    case Qt::DisplayRole:
        return head.title;
    case Qt::ToolTipRole:
        return head.tip;
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignVCenter | alignment);
    default:
        return {};
    }
}
