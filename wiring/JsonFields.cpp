#include "wiring/JsonFields.h"

#include <cmath>

void JsonFields::refuse(const QString &what)
{
    if (!m_error)
        m_error = Error{m_where + ": " + what};
}

bool JsonFields::has(const char *name) const
{
    const QJsonValue value = m_object.value(QLatin1String(name));
    return !value.isUndefined() && !value.isNull();
}

QString JsonFields::name(const char *name)
{
    QString found = text(name);
    if (found.isEmpty())
        refuse(QString("\"%1\" is missing; write a text.").arg(QLatin1String(name)));
    return found;
}

QString JsonFields::text(const char *name)
{
    const QJsonValue value = m_object.value(QLatin1String(name));
    if (has(name) && !value.isString())
        refuse(QString("\"%1\" is no text.").arg(QLatin1String(name)));
    return value.toString();
}

qint64 JsonFields::whole(const char *name, qint64 least, qint64 most, qint64 absent)
{
    return has(name) ? number(m_object.value(QLatin1String(name)), name, least, most) : absent;
}

qint64 JsonFields::wholeGiven(const char *name, qint64 least, qint64 most)
{
    return number(m_object.value(QLatin1String(name)), name, least, most);
}

qint64 JsonFields::number(const QJsonValue &value, const char *name, qint64 least, qint64 most)
{
    const double number = value.toDouble(std::nan(""));
    if (number >= static_cast<double>(least) && number <= static_cast<double>(most) && number == std::floor(number))
        return static_cast<qint64>(number);
    refuse(QString("\"%1\" must be a whole number, %2 to %3.").arg(QLatin1String(name)).arg(least).arg(most));
    return least;
}

std::optional<bool> JsonFields::flag(const char *name)
{
    if (!has(name))
        return std::nullopt;
    const QJsonValue value = m_object.value(QLatin1String(name));
    if (!value.isBool())
        refuse(QString("\"%1\" is neither true nor false.").arg(QLatin1String(name)));
    return value.toBool();
}

QStringList JsonFields::texts(const char *name)
{
    const QJsonValue value = m_object.value(QLatin1String(name));
    if (value.isString())
        return {value.toString()};
    QStringList texts;
    for (const auto &element : array(name)) {
        if (!element.isString())
            refuse(QString("\"%1\" holds something that is no text.").arg(QLatin1String(name)));
        texts.append(element.toString());
    }
    return texts;
}

std::vector<qint64> JsonFields::wholes(const char *name, qint64 least, qint64 most)
{
    std::vector<qint64> numbers;
    for (const auto &element : array(name))
        numbers.push_back(number(element, name, least, most));
    return numbers;
}

QJsonArray JsonFields::array(const char *name)
{
    const QJsonValue value = m_object.value(QLatin1String(name));
    if (has(name) && !value.isArray())
        refuse(QString("\"%1\" is no list.").arg(QLatin1String(name)));
    return value.toArray();
}

QJsonObject JsonFields::object(const char *name)
{
    const QJsonValue value = m_object.value(QLatin1String(name));
    if (has(name) && !value.isObject())
        refuse(QString("\"%1\" is no object.").arg(QLatin1String(name)));
    return value.toObject();
}

qsizetype JsonFields::choice(const char *name, const QStringList &choices, qsizetype absent)
{
    if (!has(name))
        return absent;
    const qsizetype place = choices.indexOf(text(name));
    if (place < 0)
        refuse(QString("\"%1\" is none of %2.").arg(QLatin1String(name), choices.join(", ")));
    return std::max(place, qsizetype{0});
}
