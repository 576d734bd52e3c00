#include "archive/PropertyListGuard.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>

namespace {
bool isOneOf(QStringView name, std::initializer_list<const char *> names)
{
    return std::any_of(names.begin(), names.end(), [name](const char *known) { return name == QLatin1String(known); });
}

bool isContainer(QStringView name)
{
    return isOneOf(name, {"plist", "array", "dict"});
}

bool isScalar(QStringView name)
{
    return isOneOf(name, {"key", "string", "integer", "real", "true", "false", "data", "date"});
}

/// The tag that begins at `text` ends within a line, outside of quotes.
bool isShortTag(QStringView text)
{
    QChar quote;
    for (const QChar letter : text.left(256)) {
        if (quote.isNull() && letter == '>')
            return true;
        if (quote.isNull() && (letter == '"' || letter == '\''))
            quote = letter;
        else if (letter == quote)
            quote = QChar();
    }
    return false;
}

/// The stream reader compares each attribute of a tag with all others; a property list has one attribute at most.
bool hasOnlyShortTags(QStringView text)
{
    for (qsizetype at = text.indexOf('<'); at >= 0; at = text.indexOf('<', at + 1)) {
        const QStringView tag = text.sliced(at);
        const bool isTag = tag.size() > 1 && tag[1] != '!' && tag[1] != '?';
        if (isTag && !isShortTag(tag))
            return false;
    }
    return true;
}

/// libplist reads 0 from a number that it does not understand.
bool isUnderstood(QStringView name, const QString &text)
{
    static const QRegularExpression integer("^[+-]?(0[xX][0-9a-fA-F]+|[0-9]+)$");
    static const QRegularExpression real("^[+-]?(nan|inf(inity)?|([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][+-]?[0-9]+)?)$",
                                         QRegularExpression::CaseInsensitiveOption);
    if (name == QLatin1String("integer"))
        return integer.match(text.trimmed()).hasMatch();
    return name != QLatin1String("real") || real.match(text.trimmed()).hasMatch();
}

/// One pass over the elements.
class XmlGuard
{
public:
    XmlGuard(const QString &text, QByteArray *output) : m_reader(text), m_writer(output)
    {
        m_reader.setNamespaceProcessing(false);
    }

    Result<void> copy();

private:
    Result<void> copyToken(QXmlStreamReader::TokenType token);
    Result<void> startElement();

    QXmlStreamReader m_reader;
    QXmlStreamWriter m_writer;
    int m_depth = 0;
    quint64 m_values = 0;
};

Result<void> XmlGuard::copy()
{
    m_writer.writeStartDocument();
    while (!m_reader.atEnd()) {
        const Result<void> copied = copyToken(m_reader.readNext());
        if (!copied)
            return failWithin(QString("line %1").arg(m_reader.lineNumber()), copied.error());
    }
    if (m_reader.hasError())
        return fail(QString("line %1: The XML is damaged: %2").arg(m_reader.lineNumber()).arg(m_reader.errorString()));
    m_writer.writeEndDocument();
    return {};
}

Result<void> XmlGuard::copyToken(QXmlStreamReader::TokenType token)
{
    switch (token) {
    case QXmlStreamReader::StartElement:
        return startElement();
    case QXmlStreamReader::EndElement:
        --m_depth;
        m_writer.writeEndElement();
        return {};
    case QXmlStreamReader::Characters:
        if (!m_reader.isWhitespace())
            return fail("There is text between the values of the property list.");
        return {};
    case QXmlStreamReader::DTD:
        if (m_reader.text().contains('['))
            return fail("The document type declaration has contents, which no property list needs.");
        return {};
    case QXmlStreamReader::EntityReference:
        return fail("There is an entity that XML does not know.");
    default:
        return {};
    }
}

Result<void> XmlGuard::startElement()
{
    const QString name = m_reader.name().toString();
    if (++m_values > PropertyListGuard::maximumValues)
        return fail("The property list has too many values.");
    if (isContainer(name)) {
        if (++m_depth > PropertyListGuard::maximumDepth + 1) // <plist> is the one more
            return fail(QString("The property list is nested more than %1 deep.").arg(PropertyListGuard::maximumDepth));
        m_writer.writeStartElement(name);
        return {};
    }
    if (!isScalar(name))
        return fail(QString("<%1> is no part of a property list.").arg(name));
    const QString text = m_reader.readElementText();
    if (!isUnderstood(name, text))
        return fail(QString("<%1> holds no number.").arg(name));
    m_writer.writeTextElement(name, text);
    return {};
}
} // namespace

Result<QByteArray> PropertyListGuard::rewriteXml(const QByteArray &bytes)
{
    if (static_cast<quint64>(bytes.size()) > maximumXmlBytes)
        return fail(QString("The XML property list is larger than %1 MiB.").arg(maximumXmlBytes >> 20));
    const auto encoding = QStringConverter::encodingForData(bytes, u'<').value_or(QStringConverter::Utf8);
    QStringDecoder decoder(encoding);
    const QString text = decoder(bytes);
    if (decoder.hasError())
        return fail("The XML property list is not written in Unicode.");
    if (!QStringView(text).trimmed().startsWith('<'))
        return fail("This is no property list, neither binary nor XML.");
    if (!hasOnlyShortTags(text))
        return fail("The XML property list has a tag that is no property list's.");
    QByteArray plain;
    return XmlGuard(text, &plain).copy().map([&plain] { return plain; });
}
