#include "live/WantedDisplays.h"

#include <algorithm>

void WantedDisplays::want(const QString &key)
{
    if (!isWanted(key))
        m_wanted.append(key);
}

void WantedDisplays::leave(const QString &key)
{
    m_wanted.removeAll(key);
}

void WantedDisplays::appear(const QString &key)
{
    if (!isConnected(key))
        m_connected.append(key);
}

QStringList WantedDisplays::awaited() const
{
    QStringList keys = m_wanted;
    keys.removeIf([this](const QString &key) { return isConnected(key); });
    return keys;
}
