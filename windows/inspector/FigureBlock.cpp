#include "windows/inspector/FigureBlock.h"

#include "base/NumberText.h"
#include "facts/LayerFigures.h"
#include "windows/LayerText.h"
#include "windows/Theme.h"
#include "windows/inspector/FigureLabel.h"

#include <QGridLayout>
#include <QLabel>

namespace {
QString noun(const QString &one, qint64 count)
{
    return count == 1 ? one : one + 's';
}
} // namespace

FigureBlock::FigureBlock(QWidget *parent)
    : QWidget(parent), m_panels(addCell("Number of panels", 0, 0)), m_pixels(addCell("Number of pixels", 0, 1)),
      m_ports(addCell("Number of ports", 1, 0)), m_current(addCell("Amperes", 1, 1)),
      m_pictures(addCell("Size of the picture", 2, 0))
{}

FigureBlock::Cell FigureBlock::addCell(const QString &name, int row, int column)
{
    if (!layout()) {
        auto *made = new QGridLayout(this);
        made->setContentsMargins(Theme::edge, Theme::gap / 2, Theme::edge, Theme::gap);
        made->setSpacing(Theme::gap);
        made->setColumnStretch(0, 2);
        made->setColumnStretch(1, 3);
    }
    const Cell cell{new QWidget, new FigureLabel(name), new QLabel};
    auto *lines = new QVBoxLayout(cell.place);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    lines->addWidget(cell.figure);
    lines->addWidget(cell.caption);
    cell.caption->setFont(Theme::smallFont());
    cell.caption->setWordWrap(true);
    const bool isWide = row == 2;
    static_cast<QGridLayout *>(layout())->addWidget(cell.place, row, column, 1, isWide ? 2 : 1, Qt::AlignTop);
    return cell;
}

void FigureBlock::Cell::show(const QString &text, const QString &words, bool isWarning) const
{
    figure->setText(text);
    caption->setText(words);
    Theme::colourText(*figure, isWarning ? Theme::warning : Theme::text);
    Theme::colourText(*caption, isWarning ? Theme::warning : Theme::dimText);
}

void FigureBlock::show(const std::vector<LayerPointer> &layers, qint64 volts, qint64 phases,
                       const std::optional<WiredPorts> &wired)
{
    const LayerFigures figures = LayerFigures::of(layers);
    setVisible(!layers.empty());
    for (const Cell *cell : {&m_panels, &m_pixels, &m_ports, &m_current})
        cell->place->setVisible(figures.walls > 0);
    m_pictures.place->setVisible(figures.walls == 0);
    if (figures.walls > 0)
        showWalls(layers, volts, phases, wired);
    else if (!layers.empty())
        showPictures(layers);
}

void FigureBlock::showWalls(const std::vector<LayerPointer> &layers, qint64 volts, qint64 phases,
                            const std::optional<WiredPorts> &wired)
{
    const LayerFigures figures = LayerFigures::of(layers);
    const QString off = figures.panelsOff == 0 ? QString() : ", " + NumberText::grouped(figures.panelsOff) + " off";
    m_panels.show(NumberText::grouped(figures.panels), noun("panel", figures.panels) + off);
    m_pixels.show(NumberText::grouped(figures.pixels), figures.pictures > 0 ? "pixels of the walls" : "pixels");
    if (wired)
        showPorts(wired->count, wired->over, wired->names);
    else
        showPorts(figures.ports, figures.portsOverLimit, {});
    const bool isCounted = LayerText::isPowerCounted(layers);
    m_current.show(LayerText::amperes(layers, volts, phases),
                   isCounted ? LayerText::at(volts, phases) : QString(LayerText::beyondCounting), !isCounted);
}

/// `names`: of the ports; empty: they have none.
void FigureBlock::showPorts(qint64 count, qint64 over, const QString &names)
{
    QString words = names.isEmpty() ? noun("port", count) : noun("port", count) + ", " + names;
    if (over > 0)
        words += over == count ? QString(", over the limit") : ", " + NumberText::grouped(over) + " over the limit";
    m_ports.show(NumberText::grouped(count), words, over > 0);
}

void FigureBlock::showPictures(const std::vector<LayerPointer> &layers)
{
    const Layer &first = *layers.front();
    if (layers.size() == 1)
        m_pictures.show(NumberText::size({first.panelWidth(), first.panelHeight()}), "pixels on the output");
    else
        m_pictures.show(NumberText::grouped(std::ssize(layers)), "pictures");
}
