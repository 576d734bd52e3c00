#include "layer/Layer.h"

#include <QMutexLocker>

Layer::Layer(LayerHost &host) : m_host(host) {}

Layer::~Layer() = default;

QSizeF Layer::aspectValue() const
{
    const QMutexLocker lock(&m_aspectValueLock);
    return m_aspectValue;
}

void Layer::setAspectValue(const QSizeF &ratio)
{
    const QMutexLocker lock(&m_aspectValueLock);
    m_aspectValue = ratio;
}
