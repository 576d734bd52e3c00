#include "windows/inspector/PicturePreview.h"

#include "base/NumberText.h"
#include "still/PictureFile.h"

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
    const qreal ratio = devicePixelRatioF();
    const PictureFile::Small small = PictureFile::small(path, (QSizeF(place) * ratio).toSize(), mostPixels);
    if (small.size.isEmpty())
        return clear();
    setToolTip(NumberText::size(small.size) + " px");
    if (qint64{small.size.width()} * small.size.height() > mostPixels)
        return setText(NumberText::size(small.size) + " px, too large for a preview");
    QPixmap picture = QPixmap::fromImage(small.picture);
    picture.setDevicePixelRatio(ratio);
    setPixmap(picture);
}
