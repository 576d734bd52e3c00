#include "formats/JsonParts.h"

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

} // namespace JsonParts
