#include "base/NumberText.h"

#include <QLocale>

QString NumberText::grouped(qint64 number)
{
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(number);
}

QString NumberText::counted(qint64 number, const QString &noun)
{
    return grouped(number) + u' ' + noun + (number == 1 ? "" : "s");
}

QString NumberText::size(const QSize &size)
{
    return NumberText::size(size.width(), size.height());
}

QString NumberText::size(qint64 width, qint64 height)
{
    return QString("%1 × %2").arg(grouped(width), grouped(height));
}
