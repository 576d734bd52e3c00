#include "live/WallDisplay.h"

#include <QScreen>
#include <QStringList>

#include <cmath>

WallDisplay WallDisplay::of(const QScreen &screen)
{
    const double ratio = screen.devicePixelRatio();
    return {screen.name(),
            screen.manufacturer().trimmed(),
            screen.model().trimmed(),
            screen.serialNumber().trimmed(),
            screen.geometry(),
            ratio,
            (QSizeF(screen.size()) * ratio).toSize()};
}

QString WallDisplay::key() const
{
    return QStringList{connector, maker, model, serial}.join('\n');
}

QString WallDisplay::title() const
{
    const QString kind = QString(maker + ' ' + model).trimmed();
    return kind.isEmpty() ? connector : connector + ", " + kind;
}

int WallDisplay::slack() const
{
    return ratio == std::floor(ratio) ? 0 : static_cast<int>(std::ceil(ratio / 2));
}

QString WallDisplay::whyNotExact(bool isWayland) const
{
    // There the desktop rounds what it says of its scales up to whole ones.
    if (!isWayland || ratio <= 1)
        return {};
    return QString("The desktop scales %1: only at a scale of 100 % is the output sure to be shown pixel for pixel. "
                   "Set that in the system's display settings.")
        .arg(connector);
}
