#pragma once

#include <QSize>
#include <QString>

/// Numbers as they are read aloud; never for fields that are typed into.
namespace NumberText {

/// With thousands separators: "-12,800".
QString grouped(qint64 number);
/// "1 panel", "2,000 panels".
QString counted(qint64 number, const QString &noun);
/// Width by height: "1,920 × 1,080".
QString size(const QSize &size);
QString size(qint64 width, qint64 height);

} // namespace NumberText
