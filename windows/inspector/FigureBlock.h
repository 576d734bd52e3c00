#pragma once

#include "facts/WiredPorts.h"
#include "layer/Layer.h"

#include <QWidget>

#include <optional>
#include <vector>

class FigureLabel;
class QLabel;

/// What is read aloud of the selected layers, in large figures: panels, pixels, ports and current of the walls among
/// them; the size of a picture, or how many there are.
class FigureBlock final : public QWidget
{
    Q_OBJECT

public:
    explicit FigureBlock(QWidget *parent = nullptr);

    /// Hidden where there are no layers. `wired`: the ports of the walls, where processors feed them.
    void show(const std::vector<LayerPointer> &layers, qint64 volts, qint64 phases,
              const std::optional<WiredPorts> &wired = {});

private:
    /// A figure and, below it, what it is of.
    struct Cell
    {
        QWidget *place;
        FigureLabel *figure;
        QLabel *caption;

        void show(const QString &text, const QString &words, bool isWarning = false) const;
    };

    Cell addCell(const QString &name, int row, int column);
    void showWalls(const std::vector<LayerPointer> &layers, qint64 volts, qint64 phases,
                   const std::optional<WiredPorts> &wired);
    void showPorts(qint64 count, qint64 over, const QString &names);
    void showPictures(const std::vector<LayerPointer> &layers);

    Cell m_panels;
    Cell m_pixels;
    Cell m_ports;
    Cell m_current;
    Cell m_pictures;
};
