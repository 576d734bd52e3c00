#include "windows/inspector/PicturePreview.h"

#include "base/NumberText.h"

#include <QImageReader>

namespace {
constexpr QSize place{200, 200};
/// Larger ones would keep the panel waiting.
constexpr qint64 mostPixels = 64'000'000;
} // namespace

PicturePreview::PicturePreview(QWidget *parent) : QLabel(parent)
{
    setFixedWidth(place.width());
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setTextFormat(Qt::PlainText);
    setAccessibleName("Preview");
}

void PicturePreview::showFile(const QString &path)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (!reader.canRead() || size.isEmpty())
        return clear();
    setToolTip(NumberText::size(size) + " px");
    if (qint64{size.width()} * size.height() > mostPixels)
        return setText(NumberText::size(size) + " px, too large for a preview");
    const qreal ratio = devicePixelRatioF();
    const QSize most = (QSizeF(place) * ratio).toSize();
    const bool isLarger = size.width() > most.width() || size.height() > most.height();
    if (isLarger)
        reader.setScaledSize(size.scaled(most, Qt::KeepAspectRatio).expandedTo({1, 1}));
    QPixmap picture = QPixmap::fromImage(reader.read());
    picture.setDevicePixelRatio(ratio);
    setPixmap(picture);
}
