#include "app/Settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace {
constexpr char recentFilesKey[] = "recentFiles";
constexpr char geometryKey[] = "window/geometry";
constexpr char stateKey[] = "window/state";
constexpr char voltsKey[] = "supply/volts";
constexpr char phasesKey[] = "supply/phases";
constexpr char otherVoltsKey[] = "supply/otherVolts";
constexpr char foldedGroupsKey[] = "inspector/folded";

/// Of most countries that have neither 110 V nor 208 V.
constexpr int usualOtherVolts = 230;

/// A larger file is none of ours; reading one in which values nest many thousand deep would overflow the stack.
constexpr qint64 mostBytes = 64 << 10;

/// The settings as they are on disk now: several programs share them. Making it decodes nothing yet.
class SettingsFile : public QSettings
{
public:
    SettingsFile() : QSettings(QSettings::UserScope, "wallwright", "wallwright") { setFallbacksEnabled(false); }

    bool isReadable() const { return QFileInfo(fileName()).size() <= mostBytes; }
};

QVariant value(const char *key)
{
    const SettingsFile file;
    return file.isReadable() ? file.value(key) : QVariant();
}

QByteArray bytes(const char *key)
{
    const QVariant found = value(key);
    return found.typeId() == QMetaType::QByteArray ? found.toByteArray() : QByteArray();
}

void setValue(const char *key, const QVariant &newValue)
{
    SettingsFile file;
    if (!file.isReadable())
        QFile::remove(file.fileName());
    file.setValue(key, newValue);
}

QString absolutePath(const QString &path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}
} // namespace

namespace Settings {

QStringList recentFiles()
{
    QStringList paths;
    for (const QString &path : value(recentFilesKey).toStringList()) {
        if (QDir::isAbsolutePath(path))
            paths.append(QDir::cleanPath(path));
    }
    paths.removeDuplicates();
    return paths.mid(0, mostRecentFiles);
}

void noteRecentFile(const QString &path)
{
    if (path.isEmpty())
        return;
    QStringList paths = recentFiles();
    paths.prepend(absolutePath(path));
    paths.removeDuplicates();
    setValue(recentFilesKey, paths.mid(0, mostRecentFiles));
}

void forgetRecentFile(const QString &path)
{
    QStringList paths = recentFiles();
    if (paths.removeAll(absolutePath(path)) > 0)
        setValue(recentFilesKey, paths);
}

QByteArray windowGeometry()
{
    return bytes(geometryKey);
}

void setWindowGeometry(const QByteArray &geometry)
{
    setValue(geometryKey, geometry);
}

QByteArray windowState()
{
    return bytes(stateKey);
}

void setWindowState(const QByteArray &state)
{
    setValue(stateKey, state);
}

std::optional<Supply> supply()
{
    return Supply::of(value(voltsKey).toLongLong(), value(phasesKey).toLongLong());
}

void setSupply(const Supply &supply)
{
    setValue(voltsKey, supply.volts);
    setValue(phasesKey, supply.phases);
}

int otherVolts()
{
    const std::optional<Supply> other = Supply::of(value(otherVoltsKey).toLongLong(), 1);
    return other ? other->volts : usualOtherVolts;
}

void setOtherVolts(int volts)
{
    setValue(otherVoltsKey, volts);
}

QStringList foldedGroups()
{
    return value(foldedGroupsKey).toStringList();
}

void setFoldedGroups(const QStringList &titles)
{
    setValue(foldedGroupsKey, titles);
}

} // namespace Settings
