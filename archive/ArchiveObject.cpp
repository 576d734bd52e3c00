#include "archive/ArchiveObject.h"

#include <algorithm>

namespace {
QString quoted(const QString &key)
{
    return '"' + key + '"';
}
} // namespace

const ArchiveValue &ArchiveObject::value(const QString &key) const
{
    static const ArchiveValue nil;
    const auto found = m_indexOfKey.constFind(key);
    return found == m_indexOfKey.cend() ? nil : m_entries[*found].second;
}

ArchiveObjectPointer ArchiveObject::unknownPart() const
{
    auto part = std::make_shared<ArchiveObject>(m_className);
    part->setPlace(m_place);
    for (const auto &[key, value] : m_entries) {
        if (std::holds_alternative<UnknownValue>(value.storage))
            part->encode(key, value);
    }
    return part;
}

void ArchiveObject::encodeUnknownPart(const ArchiveObject &part)
{
    m_place = part.m_place;
    for (const auto &[key, value] : part.m_entries) {
        if (!contains(key))
            encode(key, value);
    }
}

void ArchiveObject::encode(const QString &key, ArchiveValue value)
{
    const auto found = m_indexOfKey.constFind(key);
    if (found != m_indexOfKey.cend()) {
        m_entries[*found].second = std::move(value);
        return;
    }
    m_indexOfKey.insert(key, m_entries.size());
    m_entries.emplace_back(key, std::move(value));
}

void ArchiveObject::encodeColour(const QString &key, const OptionalColour &colour)
{
    encode(key, colour ? ArchiveValue{*colour} : ArchiveValue());
}

void ArchiveObject::encodeText(const QString &key, const QString &text)
{
    encode(key, text.isNull() ? ArchiveValue() : ArchiveValue{text});
}

void ArchiveObject::encodeTextList(const QString &key, const std::optional<QStringList> &texts)
{
    if (!texts)
        return encode(key, {});
    std::vector<ArchiveValue> entries;
    entries.reserve(static_cast<std::size_t>(texts->size()));
    std::transform(texts->cbegin(), texts->cend(), std::back_inserter(entries),
                   [](const QString &text) { return text.isNull() ? ArchiveValue{QString("")} : ArchiveValue{text}; });
    encode(key, ArchiveValue::list(std::move(entries)));
}

void ArchiveObject::encodeAddress(const QString &key, const Address &address)
{
    encode(key, address.isNil() ? ArchiveValue() : ArchiveValue{address});
}

Result<qint32> ArchiveObject::decodeInt32(const QString &key) const
{
    return value(key).toInt32(quoted(key));
}

Result<bool> ArchiveObject::decodeBool(const QString &key) const
{
    return value(key).toBool(quoted(key));
}

Result<OptionalColour> ArchiveObject::decodeColour(const QString &key) const
{
    return value(key).toColour(quoted(key));
}

Result<QString> ArchiveObject::decodeText(const QString &key) const
{
    return value(key).toText(quoted(key));
}

Result<std::optional<QStringList>> ArchiveObject::decodeTextList(const QString &key) const
{
    return value(key).toTextList(quoted(key));
}

Result<Address> ArchiveObject::decodeAddress(const QString &key) const
{
    return value(key).toAddress(quoted(key));
}
