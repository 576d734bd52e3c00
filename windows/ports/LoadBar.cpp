#include "windows/ports/LoadBar.h"

#include "windows/Theme.h"
#include "windows/ports/PortsModel.h"

#include <QPainter>

namespace {
constexpr int barHeight = 4;
constexpr int barMargin = 4;

const QColor &colourOf(PortRow::Level level)
{
    switch (level) {
    case PortRow::Level::Over:
        return Theme::danger;
    case PortRow::Level::NearlyFull:
        return Theme::warning;
    case PortRow::Level::Fits:
        break;
    }
    return Theme::accent;
}
} // namespace

/// The figure above, the bar below it.
void LoadBar::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const auto level = static_cast<PortRow::Level>(index.data(PortsModel::levelRole).toInt());
    QStyleOptionViewItem figure = option;
    if (level != PortRow::Level::Fits)
        figure.palette.setColor(QPalette::Text, colourOf(level));
    QStyledItemDelegate::paint(painter, figure, index);
    const QVariant percent = index.data(PortsModel::percentRole);
    if (!percent.isValid())
        return;
    QRect bar = option.rect.adjusted(barMargin, 0, -barMargin, 0);
    bar.setTop(bar.bottom() - barHeight);
    painter->fillRect(bar, Theme::line);
    bar.setWidth(qRound(bar.width() * qMin(percent.toDouble(), 100.0) / 100));
    painter->fillRect(bar, colourOf(level));
}
