#include "charts/Painters.h"
#include "charts/PanelWords.h"

#include <QHash>

#include <array>

namespace {
/// Dark, so that white letters stand out; ports beside each other differ.
constexpr std::array portColours{qRgb(0, 48, 112), qRgb(112, 32, 0), qRgb(0, 80, 32),
                                 qRgb(80, 0, 80),  qRgb(80, 64, 0),  qRgb(0, 72, 80)};
constexpr QRgb noPort = qRgb(40, 40, 40);
constexpr QRgb frameColour = qRgb(255, 255, 255);

/// A colour for each port, in the order in which they come.
class PortPalette
{
public:
    QRgb colourOf(const QString &port)
    {
        if (port.isEmpty())
            return noPort;
        const auto known = m_numbers.constFind(port);
        const std::size_t number = known != m_numbers.constEnd() ? *known : static_cast<std::size_t>(m_numbers.size());
        if (known == m_numbers.constEnd())
            m_numbers.insert(port, number);
        return portColours[number % portColours.size()];
    }

private:
    QHash<QString, std::size_t> m_numbers;
};
} // namespace

QString placeOnPort(const ChartPanel &panel)
{
    return panel.number > 0 ? QString("%1 · %2").arg(panel.port, QString::number(panel.number)) : QString();
}

void drawPanelWords(ChartPainter &painter, const QRect &box, const QString &upper, const QString &lower, QRgb colour)
{
    const int height = box.height() / 4;
    const int margin = box.width() / 10;
    const QRect line(box.left() + margin, box.top() + height, box.width() - 2 * margin, height);
    painter.text(line, upper, colour);
    painter.text(line.translated(0, height), lower, colour);
}

void Painters::panels(ChartPainter &painter, const Shape &shape, qint64 /*frame*/)
{
    PortPalette palette;
    painter.fill(painter.whole(), painter.levels().black());
    for (const ChartPanel &panel : shape.panels) {
        painter.fill(panel.box, palette.colourOf(panel.port));
        painter.outline(panel.box, frameColour);
        drawPanelWords(painter, panel.box, panel.name, placeOnPort(panel), frameColour);
    }
}

/// Where the first pixel of each panel lies in the output: what a processor has to be told.
void Painters::coordinates(ChartPainter &painter, const Shape &shape, qint64 /*frame*/)
{
    painter.fill(painter.whole(), painter.levels().black());
    for (const ChartPanel &panel : shape.panels) {
        painter.fill(panel.box, noPort);
        painter.outline(panel.box, frameColour);
        drawPanelWords(painter, panel.box, QString("x %1").arg(panel.box.left()), QString("y %1").arg(panel.box.top()),
                       frameColour);
    }
}
