#include "cli/OrderedJson.h"

#include "cli/VisibleText.h"

#include <array>
#include <charconv>

namespace OrderedJson {

QByteArray text(const QString &value)
{
    return value.isNull() ? QByteArray("null") : VisibleText::quoted(value).toUtf8();
}

QByteArray text(bool value)
{
    return value ? "true" : "false";
}

QByteArray text(qint64 value)
{
    return QByteArray::number(value);
}

QByteArray text(double value)
{
    std::array<char, 32> digits{};
    const auto result = std::to_chars(digits.begin(), digits.end(), value);
    return QByteArray(digits.data(), result.ptr - digits.data());
}

QByteArray text(float value)
{
    return text(static_cast<double>(value));
}

QByteArray joined(const std::vector<Member> &members, const QByteArray &separator)
{
    QByteArray all;
    for (const auto &[name, value] : members)
        all += (all.isEmpty() ? QByteArray() : separator) + '"' + name + "\": " + value;
    return all;
}

QByteArray object(const std::vector<Member> &members, int indentation)
{
    const QByteArray margin(indentation, ' ');
    return margin + "{\n" + margin + "  " + joined(members, ",\n" + margin + "  ") + '\n' + margin + '}';
}

QByteArray list(const QList<QByteArray> &items, int indentation)
{
    if (items.isEmpty())
        return "[]";
    return "[\n" + items.join(",\n") + '\n' + QByteArray(indentation, ' ') + ']';
}

} // namespace OrderedJson
