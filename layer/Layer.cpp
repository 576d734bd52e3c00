#include "layer/Layer.h"

Layer::Layer(LayerHost &host) : m_host(host) {}

Layer::~Layer() = default;

/// Whatever thread has given the ratio, the record gets it here.
LayerRecordPointer Layer::record() const
{
    if (m_isAspectValueGiven && m_isAspectValueGiven.exchange(false)) {
        if (const QSizeF ratio = aspectValue(); values().aspectValue != ratio)
            const_cast<Layer *>(this)->edit().aspectValue = ratio;
    }
    return m_record;
}

bool Layer::hasRecord(const LayerRecordPointer &record) const
{
    return m_record == record && (!m_isAspectValueGiven || record->aspectValue == aspectValue());
}

void Layer::setRecord(const LayerRecordPointer &record)
{
    m_record = std::const_pointer_cast<LayerRecord>(record);
    setAspectValue(record->aspectValue);
}

QVariant Layer::value(QByteArrayView name) const
{
    const LayerValue *const found = LayerValues::find(name, kind());
    return found ? found->get(*record()) : QVariant();
}

bool Layer::setValue(QByteArrayView name, const QVariant &value)
{
    const LayerRecordPointer before = record();
    const LayerValue *const found = LayerValues::find(name, kind());
    LayerRecord changed = *before;
    if (!found || !found->assign(changed, value))
        return false;
    if (changed == *before)
        return true;
    const bool isRatio = changed.aspectValue != before->aspectValue;
    m_record = std::make_shared<LayerRecord>(std::move(changed));
    if (isRatio) // any other edit leaves it to whatever thread gives it
        setAspectValue(m_record->aspectValue);
    return true;
}

void Layer::takeOver(const Layer &other, std::span<const char *const> names)
{
    LayerRecord &changed = edit();
    for (const char *name : names) {
        const LayerValue &value = *LayerValues::find(name);
        value.set(changed, value.get(*other.record()));
    }
}

LayerRecord &Layer::edit()
{
    if (m_record.use_count() > 1)
        m_record = std::make_shared<LayerRecord>(*m_record);
    return *m_record;
}

QSizeF Layer::aspectValue() const
{
    const std::lock_guard lock(m_aspectValueLock);
    return m_aspectValue;
}

void Layer::setAspectValue(const QSizeF &ratio)
{
    const std::lock_guard lock(m_aspectValueLock);
    m_aspectValue = ratio;
    m_isAspectValueGiven = true;
}
