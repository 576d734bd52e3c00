#include "formats/JsonValues.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace JsonValues {

QString kind(const QJsonValue &value)
{
    switch (value.type()) {
    case QJsonValue::Null:
        return "null";
    case QJsonValue::Bool:
        return "true or false";
    case QJsonValue::Double:
        return "a number";
    case QJsonValue::String:
        return "a text";
    case QJsonValue::Array:
        return "a list";
    case QJsonValue::Object:
        return "an object";
    case QJsonValue::Undefined:
        break;
    }
    return "nothing";
}

QString excerpt(const QString &text)
{
    constexpr qsizetype mostLetters = 40;
    return text.size() <= mostLetters ? text : text.left(mostLetters) + QChar(0x2026);
}

tl::unexpected<Error> failExpecting(const QString &expected, const QJsonValue &found)
{
    return fail(QString("expected %1, found %2").arg(expected, kind(found)));
}

QByteArray text(const QJsonValue &value)
{
    // A document must be a list or an object: the value goes into a list, whose brackets come off again.
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).sliced(1).chopped(1);
}

} // namespace JsonValues
