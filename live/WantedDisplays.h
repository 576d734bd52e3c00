#pragma once

#include <QString>
#include <QStringList>

/// The displays that shall show the output, by their keys: one that goes away is waited for. In the order in which they
/// were chosen.
class WantedDisplays
{
public:
    void want(const QString &key);
    /// It shows the output no more, and is not waited for.
    void leave(const QString &key);
    void leaveAll() { m_wanted.clear(); }

    void appear(const QString &key);
    void vanish(const QString &key) { m_connected.removeAll(key); }

    bool isWanted(const QString &key) const { return m_wanted.contains(key); }
    bool isConnected(const QString &key) const { return m_connected.contains(key); }
    bool isShown(const QString &key) const { return isWanted(key) && isConnected(key); }
    /// Wanted, and away.
    QStringList awaited() const;
    /// In the order in which they were chosen.
    const QStringList &all() const { return m_wanted; }
    bool isAnyWanted() const { return !m_wanted.isEmpty(); }

private:
    QStringList m_wanted;
    QStringList m_connected;
};
