#include "psd/PascalString.h"

#include <QString>

#include <cmath>

namespace PascalString {

int kxPascalStringLengthPaddedTo(QStringView text, int multiple)
{
    const float quotient = static_cast<float>(text.size()) / static_cast<float>(multiple);
    return static_cast<int>(std::ceil(quotient)) * multiple;
}

QByteArray kxPascalStringPaddedTo(QStringView text, int multiple, QStringView padding)
{
    const qsizetype length = kxPascalStringLengthPaddedTo(text, multiple);
    QString padded = text.left(length).toString();
    for (qsizetype i = 0; padded.size() < length; ++i)
        padded.append(padding[i % padding.size()]);
    return padded.toUtf8();
}

QByteArray kxPascalStringPaddedTo(QStringView text, int multiple)
{
    return kxPascalStringPaddedTo(text, multiple, QStringView(u"\0", 1));
}

} // namespace PascalString
