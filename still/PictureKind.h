#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QList>

/// The formats of pictures that are shown. Desktops install readers of more, some of which start another program; those
/// are never asked for a picture.
namespace PictureKind {

/// As Qt names the format of what the device holds, by its content alone and before anything is decoded; empty where
/// it is no picture.
QByteArray of(QIODevice &device);

/// Whether pictures of this format are shown.
bool isAccepted(const QByteArray &format);

/// Those of them that there are readers of here, as Qt names them, which is how their files end.
QList<QByteArray> readable();

/// Whether these bytes begin like a picture that is shown.
bool isAcceptedContent(const QByteArray &bytes);

} // namespace PictureKind
