#include "windows/NumberText.h"

#include <QLocale>

QString NumberText::grouped(qint64 number)
{
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(number);
}

QString NumberText::size(const QSize &size)
{
    return QString("%1 × %2").arg(grouped(size.width()), grouped(size.height()));
}
