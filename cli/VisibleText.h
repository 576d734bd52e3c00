#pragma once

#include <QString>

/// Texts of files on a terminal, which obeys some letters.
namespace VisibleText {

/// In quotes, on one line, with every letter escaped as in JSON that a terminal would obey: control letters and those
/// that change the direction of what follows.
QString quoted(const QString &text);

/// On one line, with a blank for each such letter.
QString asOneLine(QString text);

} // namespace VisibleText
