#include "screen/HiddenPanels.h"
#include "screen/LWScreen.h"
#include "screen/PanelLabels.h"

#include <QtNumeric>

#include <limits>

namespace {
/// A narrow panel far to the right has a label of thousands of letters.
constexpr qsizetype mostLetters = 8;

/// Which panel, counted from `start` in steps of `panelSize`, holds `point`; truncated toward zero. Nothing where
/// panels have no size or the distance is beyond 64 bits.
std::optional<qint64> panelIndex(qint64 point, int start, int panelSize)
{
    qint64 distance = 0;
    if (panelSize == 0 || qSubOverflow(point, qint64{start}, &distance))
        return std::nullopt;
    if (distance == std::numeric_limits<qint64>::min() && panelSize == -1)
        return std::nullopt;
    return distance / panelSize;
}

QString columnLetters(int column)
{
    constexpr int columnsWithFewLetters = 26 * mostLetters;
    if (column < columnsWithFewLetters)
        return PanelLabels::columnLetters(column);
    return PanelLabels::columnLetters(columnsWithFewLetters - 26 + column % 26) + u'…';
}
} // namespace

void LWScreen::onImageClick(qint64 x, qint64 y)
{
    const auto column = panelIndex(x, xpoint(), panelWidth());
    const auto rowFromTop = panelIndex(y, ypoint(), panelHeight());
    if (!column || !rowFromTop || *column >= col() || *rowFromTop >= row())
        return;

    const QString key = hiddenPanelKey(*rowFromTop, *column);
    QStringList keys = hiddenBoxes().value_or(QStringList());
    if (keys.removeAll(key) == 0)
        keys.append(key);
    setHiddenBoxes(keys);
}

std::optional<LWScreen::Panel> LWScreen::panelAt(qint64 x, qint64 y) const
{
    if (panelWidth() <= 0 || panelHeight() <= 0)
        return std::nullopt;
    const qint64 column = panelIndex(x, xpoint(), panelWidth()).value_or(-1);
    const qint64 rowFromTop = panelIndex(y, ypoint(), panelHeight()).value_or(-1);
    if (column < 0 || column >= col() || rowFromTop < 0 || rowFromTop >= row())
        return std::nullopt;
    return Panel{static_cast<int>(column), static_cast<int>(rowFromTop)};
}

QRectF LWScreen::panelRect(const Panel &panel) const
{
    return {xpoint() + double(panel.column) * panelWidth(), ypoint() + double(panel.row) * panelHeight(),
            double(panelWidth()), double(panelHeight())};
}

QString LWScreen::panelLabel(const Panel &panel) const
{
    return XYLabelDirection() ? PanelLabels::rowLetter(panel.row) + QString::number(panel.column + 1)
                              : columnLetters(panel.column) + QString::number(panel.row + 1);
}
