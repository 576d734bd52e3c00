#include "cli/VisibleText.h"

#include "formats/JsonValues.h"

namespace {
bool changesDirection(QChar letter)
{
    const char16_t code = letter.unicode();
    const bool isMark = code == 0x061c || code == 0x200e || code == 0x200f;
    return isMark || (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069);
}

bool isObeyed(QChar letter)
{
    return letter.category() == QChar::Other_Control || changesDirection(letter);
}
} // namespace

namespace VisibleText {

QString quoted(const QString &text)
{
    QString escaped;
    for (const QChar letter : QString::fromUtf8(JsonValues::text(text))) {
        if (isObeyed(letter)) // JSON leaves some of them as they are
            escaped += QString("\\u%1").arg(letter.unicode(), 4, 16, QChar(u'0'));
        else
            escaped += letter;
    }
    return escaped;
}

QString asOneLine(QString text)
{
    for (QChar &letter : text) {
        if (isObeyed(letter))
            letter = u' ';
    }
    return text;
}

} // namespace VisibleText
