#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>
#include <QStringList>

#include <vector>

/// A layered file as a simple editor would read it.
struct LayeredFile
{
    struct Layer
    {
        QString name;   ///< the Unicode one
        int opacity;    ///< 0 to 255
        QImage picture; ///< of the whole document's size, ARGB32 premultiplied
    };

    QSize size;
    std::vector<Layer> layers; ///< from bottom to top

    /// The test fails where the file ends too early or is none.
    static LayeredFile read(const QByteArray &bytes);
    static LayeredFile readFrom(const QString &path);

    QStringList names() const;
    QList<int> opacities() const;
};
