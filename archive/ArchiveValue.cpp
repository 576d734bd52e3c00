#include "archive/ArchiveObject.h"

#include <cmath>
#include <limits>

namespace {
/// Turns the alternatives of a value into a function with one case for each.
template <typename... Cases>
struct Kinds : Cases...
{
    using Cases::operator()...;
};
template <typename... Cases>
Kinds(Cases...) -> Kinds<Cases...>; // clang 16 does not deduce it

tl::unexpected<Error> unexpectedKind(const QString &subject, const QString &found, const QString &expected)
{
    return fail(QString("%1 is %2, expected %3").arg(subject, found, expected));
}

/// The whole number that a boolean, an integer or a real stands for.
std::optional<qint64> wholeNumber(const ArchiveValue &value)
{
    constexpr double exact = 9007199254740992.0; // up to here reals hold every integer
    if (const bool *const flag = std::get_if<bool>(&value.storage))
        return *flag ? 1 : 0;
    if (const qint64 *const integer = std::get_if<qint64>(&value.storage))
        return *integer;
    const double *const real = std::get_if<double>(&value.storage);
    if (real && std::abs(*real) <= exact && std::trunc(*real) == *real)
        return static_cast<qint64>(*real);
    return {};
}

/// The value itself where it is a number, since "a number, expected an integer" would tell too little.
QString numberOrKind(const ArchiveValue &value)
{
    if (const qint64 *const integer = std::get_if<qint64>(&value.storage))
        return QString("the number %1").arg(*integer);
    if (const double *const real = std::get_if<double>(&value.storage))
        return QString("the number %1").arg(*real);
    return value.kind();
}

/// The alternative T, `absent` for nil, an error for anything else.
template <typename T>
Result<T> taken(const ArchiveValue &value, const QString &subject, const QString &expected, const T &absent)
{
    if (value.isNil())
        return absent;
    if (const T *const found = std::get_if<T>(&value.storage))
        return *found;
    return unexpectedKind(subject, value.kind(), expected);
}

template <typename T>
Result<T> required(const ArchiveValue &value, const QString &subject, const QString &expected)
{
    if (value.isNil())
        return unexpectedKind(subject, value.kind(), expected);
    return taken(value, subject, expected, T());
}
} // namespace

ArchiveValue ArchiveValue::list(std::vector<ArchiveValue> entries)
{
    return {std::make_shared<const std::vector<ArchiveValue>>(std::move(entries))};
}

QString ArchiveValue::kind() const
{
    const Kinds kinds{
        [](std::monostate) { return QString("nil"); },
        [](bool) { return QString("a boolean"); },
        [](qint64) { return QString("a number"); },
        [](double) { return QString("a number"); },
        [](const QString &) { return QString("a text"); },
        [](const QByteArray &) { return QString("data"); },
        [](const Colour &) { return QString("a colour"); },
        [](const Address &) { return QString("an address"); },
        [](const IndexSet &) { return QString("an index set"); },
        [](const ArchiveList &) { return QString("a list"); },
        [](const ArchiveObjectPointer &object) { return "an object of class " + object->className(); },
        [](const ArchiveFault &fault) { return fault.found; },
        [](const UnknownValue &) { return QString("an unknown value"); },
    };
    return std::visit(kinds, storage);
}

Result<qint32> ArchiveValue::toInt32(const QString &subject) const
{
    if (isNil())
        return 0;
    const std::optional<qint64> number = wholeNumber(*this);
    if (!number || *number < std::numeric_limits<qint32>::min() || *number > std::numeric_limits<qint32>::max())
        return unexpectedKind(subject, numberOrKind(*this), "a whole number of 32 bits");
    return static_cast<qint32>(*number);
}

Result<bool> ArchiveValue::toBool(const QString &subject) const
{
    if (isNil())
        return false;
    const std::optional<qint64> number = wholeNumber(*this);
    if (!number || *number < 0 || *number > 1)
        return unexpectedKind(subject, numberOrKind(*this), "a boolean");
    return *number == 1;
}

Result<OptionalColour> ArchiveValue::toColour(const QString &subject) const
{
    if (isNil())
        return OptionalColour();
    return required<Colour>(*this, subject, "a colour").map([](const Colour &colour) {
        return OptionalColour(colour);
    });
}

Result<QString> ArchiveValue::toText(const QString &subject) const
{
    return taken(*this, subject, "a text", QString());
}

Result<std::optional<QStringList>> ArchiveValue::toTextList(const QString &subject) const
{
    const Result<ArchiveList> list = taken(*this, subject, "a list of texts", ArchiveList());
    if (!list)
        return tl::unexpected(list.error());
    if (!*list)
        return std::optional<QStringList>();
    QStringList texts;
    texts.reserve(static_cast<qsizetype>((*list)->size()));
    for (const ArchiveValue &entry : **list) {
        const QString *const text = std::get_if<QString>(&entry.storage);
        if (!text)
            return unexpectedKind(QString("entry %1 of %2").arg(texts.size()).arg(subject), entry.kind(), "a text");
        texts.append(*text);
    }
    return std::optional(texts);
}

Result<Address> ArchiveValue::toAddress(const QString &subject) const
{
    return taken(*this, subject, "an address", Address());
}

Result<IndexSet> ArchiveValue::toIndexSet(const QString &subject) const
{
    return required<IndexSet>(*this, subject, "an index set");
}

Result<ArchiveList> ArchiveValue::toList(const QString &subject) const
{
    return required<ArchiveList>(*this, subject, "a list");
}

Result<ArchiveObjectPointer> ArchiveValue::toObject(const QString &subject) const
{
    return required<ArchiveObjectPointer>(*this, subject, "an object");
}
