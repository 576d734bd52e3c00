#include "formats/JsonCheck.h"

#include "formats/JsonParts.h"
#include "formats/JsonValues.h"

#include <QHash>

namespace {
/// As deep as the parser goes.
constexpr int mostDepth = 1024;

int lineOf(const QByteArray &json, qsizetype offset)
{
    return static_cast<int>(json.first(offset).count('\n')) + 1;
}

tl::unexpected<Error> noJson(const QByteArray &json, qsizetype offset, const QString &what)
{
    return fail(JsonCheck::place(json, offset) + ": this is no JSON: " + what);
}

/// A name as it is meant, whatever it is written with.
QByteArray unescaped(const QByteArray &name)
{
    if (!name.contains('\\'))
        return name;
    return JsonParts::decodedName('"' + name + '"').toUtf8();
}

/// One pass over the text; every function begins where its part begins and ends behind it.
class Scanner
{
public:
    explicit Scanner(const QByteArray &json) : m_json(json), m_at(json.startsWith("\xef\xbb\xbf") ? 3 : 0) {}

    Result<void> document();

private:
    /// Where the names of an object stand.
    using Names = QHash<QByteArray, qsizetype>;

    Result<void> value();
    Result<void> entries(char close);
    Result<void> name(Names &names);
    Result<QByteArray> text();
    /// The comma or the end behind an entry.
    Result<void> separator(char close);
    void skipBlanks();
    /// 0 behind the end.
    char next() const { return m_at < m_json.size() ? m_json.at(m_at) : '\0'; }
    tl::unexpected<Error> failExpecting(const QString &what) const;

    const QByteArray &m_json;
    qsizetype m_at;
    int m_depth = 0;
};

Result<void> Scanner::document()
{
    const Result<void> whole = value();
    skipBlanks();
    return whole && m_at < m_json.size() ? failExpecting("nothing more") : whole;
}

Result<void> Scanner::value()
{
    skipBlanks();
    const char first = next();
    if (first == '{' || first == '[')
        return entries(first == '{' ? '}' : ']');
    if (first == '"')
        return text().map([](const QByteArray &) {});
    const qsizetype before = m_at;
    while (QByteArrayView("+-.0123456789eE").contains(next()) && next() != '\0')
        ++m_at;
    for (const char *const word : {"true", "false", "null"}) {
        if (m_at == before && QByteArrayView(m_json).sliced(m_at).startsWith(word))
            m_at += qstrlen(word);
    }
    return m_at > before ? Result<void>() : failExpecting("a value");
}

Result<void> Scanner::entries(char close)
{
    if (++m_depth > mostDepth)
        return noJson(m_json, m_at, QString("it is nested more than %1 deep").arg(mostDepth));
    ++m_at;
    skipBlanks();
    Names names;
    while (next() != close) {
        Result<void> entry = close == '}' ? name(names) : Result<void>();
        entry = entry.and_then([&] { return value(); }).and_then([&] { return separator(close); });
        if (!entry)
            return entry;
    }
    ++m_at;
    --m_depth;
    return {};
}

Result<void> Scanner::separator(char close)
{
    skipBlanks();
    if (next() == close)
        return {};
    if (next() != ',')
        return failExpecting(QString("\",\" or \"%1\"").arg(close));
    const qsizetype comma = m_at++;
    skipBlanks();
    if (next() == close)
        return noJson(m_json, comma, QString("a comma stands in front of \"%1\"; take it out").arg(close));
    return {};
}

Result<void> Scanner::name(Names &names)
{
    if (next() != '"')
        return failExpecting("a name in double quotes");
    const qsizetype begin = m_at;
    const Result<QByteArray> given = text();
    if (!given)
        return tl::unexpected(given.error());
    const QByteArray meant = unescaped(*given);
    if (const auto first = names.constFind(meant); first != names.cend())
        return fail(QString("line %1: \"%2\" stands here a second time, the first is on line %3; leave one out")
                        .arg(lineOf(m_json, begin))
                        .arg(JsonValues::excerpt(QString::fromUtf8(meant)))
                        .arg(lineOf(m_json, *first)));
    names.insert(meant, begin);
    skipBlanks();
    if (next() != ':')
        return failExpecting("\":\" behind the name");
    ++m_at;
    return {};
}

Result<QByteArray> Scanner::text()
{
    const qsizetype begin = m_at++;
    while (m_at < m_json.size() && next() != '"')
        m_at += next() == '\\' ? 2 : 1;
    if (m_at >= m_json.size())
        return noJson(m_json, begin, "the text that begins here has no closing quote");
    ++m_at;
    return m_json.sliced(begin + 1, m_at - begin - 2);
}

void Scanner::skipBlanks()
{
    while (next() == ' ' || next() == '\t' || next() == '\n' || next() == '\r')
        ++m_at;
}

tl::unexpected<Error> Scanner::failExpecting(const QString &what) const
{
    if (m_at >= m_json.size())
        return noJson(m_json, m_json.size(), QString("it ends here, expected %1").arg(what));
    if (next() == '/' || next() == '#')
        return noJson(m_json, m_at, "a comment stands here, and JSON has none; take it out");
    if (next() == '\'')
        return noJson(m_json, m_at, "a single quote stands here; names and texts are in double quotes");
    if (next() == '"')
        return noJson(m_json, m_at, QString("expected %1, found a text").arg(what));
    qsizetype end = m_at + 1;
    while (end < m_json.size() && !QByteArrayView(" \t\r\n,:[]{}\"'").contains(m_json.at(end)))
        ++end;
    const QString found = JsonValues::excerpt(QString::fromUtf8(m_json.sliced(m_at, end - m_at)));
    return noJson(m_json, m_at, QString("expected %1, found \"%2\"").arg(what, found));
}
} // namespace

namespace JsonCheck {

QString place(const QByteArray &json, qsizetype offset)
{
    const QByteArray before = json.first(qBound(0, offset, json.size()));
    const QByteArray line = before.sliced(before.lastIndexOf('\n') + 1);
    return QString("line %1, column %2").arg(lineOf(json, before.size())).arg(QString::fromUtf8(line).size() + 1);
}

Result<void> check(const QByteArray &json)
{
    return Scanner(json).document();
}

} // namespace JsonCheck
