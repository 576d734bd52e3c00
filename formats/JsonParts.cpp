#include "formats/JsonParts.h"

#include "formats/JsonValues.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace {
/// The closing quote of the text that begins there.
qsizetype endOfText(QByteArrayView json, qsizetype at)
{
    for (++at; at < json.size() && json[at] != '"'; ++at)
        at += json[at] == '\\' ? 1 : 0;
    return at;
}
} // namespace

namespace JsonParts {

std::vector<Part> of(QByteArrayView json)
{
    std::vector<Part> parts;
    QByteArrayView name;
    qsizetype begin = 0;
    int depth = 0;
    for (qsizetype at = 0; at < json.size(); ++at) {
        const char letter = json[at];
        const bool opens = letter == '{' || letter == '[';
        const bool closes = letter == '}' || letter == ']';
        if (letter == '"')
            at = endOfText(json, at);
        depth += opens ? 1 : 0;
        if (depth == 1 && (opens || closes || letter == ':' || letter == ',')) {
            const QByteArrayView ended = json.sliced(begin, at - begin).trimmed();
            if (letter == ':')
                name = ended;
            else if (!opens && !ended.isEmpty())
                parts.push_back({name, ended});
            begin = at + 1;
        }
        depth -= closes ? 1 : 0;
    }
    return parts;
}

QString decodedName(QByteArrayView name)
{
    if (!name.contains('\\'))
        return QString::fromUtf8(name.sliced(1).chopped(1));
    return QJsonDocument::fromJson('[' + name.toByteArray() + ']').array().at(0).toString();
}

QByteArrayView valueAt(const std::vector<Part> &parts, std::size_t place)
{
    return place < parts.size() ? parts[place].value : QByteArrayView();
}

QByteArrayView valueOf(QByteArrayView json, const QString &name)
{
    for (const Part &part : of(json)) {
        if (decodedName(part.name) == name)
            return part.value;
    }
    return {};
}

Result<QByteArrayList> unknownNames(const QJsonObject &object, QByteArrayView newer, const QStringList &known)
{
    QByteArrayList unknown;
    for (const Part &part : of(newer)) {
        if (!known.contains(decodedName(part.name)))
            unknown.append(part.name.toByteArray() + ": " + part.value.toByteArray());
    }
    for (auto entry = object.begin(); newer.isEmpty() && entry != object.end(); ++entry) {
        if (!known.contains(entry.key()))
            return fail(QString("%1: unknown name").arg(JsonValues::excerpt(entry.key())));
    }
    return unknown;
}

QByteArray further(const UnknownPartPointer &unknown)
{
    QByteArray text;
    for (const QByteArray &name : unknown ? unknown->ofText : QByteArrayList())
        text += ", " + name;
    return text;
}

} // namespace JsonParts
