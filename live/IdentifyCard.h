#pragma once

#include <QStringList>
#include <QWidget>

class QPainter;
class QScreen;

/// What tells a display that shows no output which one it is: a card in its middle and a frame along its edges, so
/// that cropping is seen at once. Takes neither keyboard nor pointer.
class IdentifyCard final : public QWidget
{
    Q_OBJECT

public:
    /// Shows itself on the display.
    IdentifyCard(QScreen &display, const QStringList &lines);

    /// The same on a display of `size` device pixels that shows the output. `turn` as in WallRegion.
    static void paintOnDisplay(QPainter &painter, const QSize &size, int turn, const QStringList &lines);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QStringList m_lines;
};
