#include "screen/CableTexts.h"

#include "layer/Logging.h"
#include "layer/PortColours.h"
#include "layer/WallGrid.h"
#include "screen/ChartConstants.h"
#include "screen/ScreenChart.h"

#include <map>

namespace {
const Colour backgroundOfNames = Colour::gray(0, 0.75);
/// Letters of all places together before drawing them takes a second.
constexpr double mostPlacePixels = 1e9;

/// The numbers of places, each shaped once.
class Numbers
{
public:
    explicit Numbers(double pointSize) : m_pointSize(pointSize) {}

    const TextLine &of(int number)
    {
        const auto known = m_lines.find(number);
        if (known != m_lines.end())
            return known->second;
        return m_lines.emplace(number, TextLine(QString::number(number), m_pointSize)).first->second;
    }

private:
    double m_pointSize;
    std::map<int, TextLine> m_lines;
};
} // namespace

CableTexts::CableTexts(const ScreenChart &chart, const WallCables &cables) : m_chart(chart), m_cables(cables) {}

void CableTexts::drawPlaces(DrawingSurface &surface) const
{
    const double size = m_chart.labelFontSize;
    const double margin = ChartConstants::init2().labelMargin;
    const PanelGrid grid = panelGridOf(m_chart);
    const PanelAxis up = grid.rowsFromBottom();
    const TextColours colours{*m_chart.labelColor, std::nullopt};
    Numbers numbers(size);
    double pixels = 0;
    for (const WallCable &cable : m_cables) {
        const TextLine prefix(nameOf(cable.port) + '.', size);
        int place = cable.firstPlace;
        for (const Cell &cell : cable.cells) {
            const QPoint left(
                static_cast<int>(static_cast<double>(grid.columns.edge(cell.column)) + margin),
                static_cast<int>(static_cast<double>(up.edge(qint64{grid.rows.count()} - cell.row)) - size - margin));
            const TextLine &number = numbers.of(place++);
            pixels += double(prefix.size().width() + number.size().width()) * number.size().height();
            if (pixels > mostPlacePixels) {
                qCWarning(lcScreen, "The places of panels are left out: together they have too many pixels.");
                return;
            }
            surface.drawText(left, prefix, colours);
            surface.drawText(left + QPoint(prefix.size().width(), 0), number, colours);
        }
    }
}

void CableTexts::drawNames(DrawingSurface &surface, const std::vector<Colour> &colours) const
{
    for (std::size_t place = 0; place < m_cables.size(); ++place) {
        const WallCable &cable = m_cables[place];
        const Colour &colour = colours[place];
        if (cable.cells.empty())
            continue;
        const bool hasLoopEnd = cable.ends && cable.backup;
        if (cable.begins && !(hasLoopEnd && cable.cells.size() == 1))
            drawName(surface, cable.cells.front(), nameOf(cable.port), colour);
        if (hasLoopEnd)
            drawName(surface, cable.cells.back(), nameOf(cable.port) + '/' + nameOf(*cable.backup), colour);
    }
}

/// At the bottom of the panel: its label stands at the top, the cable's end at the centre.
void CableTexts::drawName(DrawingSurface &surface, const Cell &cell, const QString &text, const Colour &colour) const
{
    const PanelGrid grid = panelGridOf(m_chart);
    const int left = static_cast<int>(grid.columns.edge(cell.column));
    const int bottom = static_cast<int>(grid.rowsFromBottom().edge(qint64{grid.rows.count()} - 1 - cell.row));
    surface.drawText({left, bottom}, TextLine(text, m_chart.labelFontSize), {colour, backgroundOfNames});
}

QString CableTexts::nameOf(const PortName &port) const
{
    return nameOf(port, m_chart.portName.value_or(QString()));
}

QString CableTexts::nameOf(const PortName &port, const QString &form)
{
    QString name = form.isEmpty() ? QString("{processor}{port}") : form;
    const QString number = port.number > 0 ? QString::number(port.number) : QString('?');
    // The processor's name last: it may hold what stands for the number.
    return name.replace("{port}", number).replace("{processor}", port.processor);
}
