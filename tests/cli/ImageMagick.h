#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

/// The installed ImageMagick: a reader of layered documents that is not ours.
class ImageMagick
{
public:
    /// Nothing where it is not installed. Other programs of the same names do not count.
    static std::optional<ImageMagick> find();

    /// The merged image and the layers of a document, in this order, bottom first.
    struct Frame
    {
        QSize size;
        QString label; ///< the layer's name

        bool operator==(const Frame &) const = default;
    };
    /// Empty, and a failure of the test, where it does not read the file.
    QList<Frame> frames(const QString &path) const;
    /// One frame in the format RGBA8888, not premultiplied; null, and a failure of the test, where it is not read.
    QImage picture(const QString &path, int frame) const;

private:
    ImageMagick(const QString &identify, const QString &convert) : m_identify(identify), m_convert(convert) {}

    QString m_identify;
    QString m_convert;
};
