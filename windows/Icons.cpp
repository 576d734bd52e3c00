#include "windows/Icons.h"

#include "windows/Desktop.h"
#include "windows/Theme.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>

#include <utility>

namespace {
QPixmap draw(const QString &name, int pixels, const QColor &colour)
{
    const QImage sign = Desktop::drawnSign(name, pixels, colour);
    if (sign.isNull())
        qWarning("There is no icon \"%s\".", qUtf8Printable(name));
    return QPixmap::fromImage(sign);
}

/// Draws the sign at whatever size is asked for, so that no scale shows an enlarged one.
class SignEngine final : public QIconEngine
{
public:
    explicit SignEngine(QString name) : m_name(std::move(name)) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const int side = qMin(rect.width(), rect.height());
        if (side <= 0)
            return;
        const QPixmap sign = Icons::pixmap(m_name, side, colour(mode), painter->device()->devicePixelRatioF());
        painter->drawPixmap(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, {side, side}, rect), sign);
    }

    /// `size` is in device pixels; all of it is the pixmap's, with the sign in its middle.
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        if (size.isEmpty())
            return {};
        QPixmap sign = Icons::pixmap(m_name, qMin(size.width(), size.height()), colour(mode), 1);
        if (sign.isNull() || sign.size() == size)
            return sign;
        QPixmap whole(size);
        whole.fill(Qt::transparent);
        QPainter(&whole).drawPixmap(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, sign.size(), whole.rect()),
                                    sign);
        return whole;
    }

    QIconEngine *clone() const override { return new SignEngine(m_name); }

private:
    /// A menu shows the entry under the pointer as active, on the accent.
    static QColor colour(QIcon::Mode mode)
    {
        return mode == QIcon::Disabled ? Theme::dimText : mode == QIcon::Active ? Theme::ground : Theme::text;
    }

    QString m_name;
};
} // namespace

QPixmap Icons::pixmap(const QString &name, int size, const QColor &colour, qreal devicePixelRatio)
{
    const int pixels = qRound(size * devicePixelRatio);
    const QString key = QString("icon %1 %2 %3 %4").arg(name).arg(pixels).arg(devicePixelRatio).arg(colour.name());
    QPixmap sign;
    if (QPixmapCache::find(key, &sign))
        return sign;
    sign = draw(name, pixels, colour);
    sign.setDevicePixelRatio(devicePixelRatio);
    QPixmapCache::insert(key, sign);
    return sign;
}

QIcon Icons::icon(const QString &name)
{
    return QIcon(new SignEngine(name));
}
