#include "app/Settings.h"

#include "base/FileBytes.h"
#include "base/System.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <functional>

namespace {
constexpr char recentFilesKey[] = "recentFiles";
constexpr char geometryKey[] = "window/geometry";
constexpr char stateKey[] = "window/state";
constexpr char voltsKey[] = "supply/volts";
constexpr char phasesKey[] = "supply/phases";
constexpr char otherVoltsKey[] = "supply/otherVolts";
constexpr char wallRegionsKey[] = "displays/regions";
constexpr char wrongPanelsKey[] = "displays/wrongPanels";
constexpr char foldedGroupsKey[] = "inspector/folded";

/// Of most countries that have neither 110 V nor 208 V.
constexpr int usualOtherVolts = 230;

/// A line of the file each.
constexpr qsizetype mostWallRegions = 200;
constexpr qsizetype mostWrongPanels = 500;

/// A larger file is none of ours; reading one in which values nest many thousand deep would overflow the stack.
constexpr qint64 mostBytes = 64 << 10;

/// Another program holds the file only while it writes.
constexpr std::chrono::milliseconds longestWait{1000};

/// The settings as they are on disk now: several programs share them. Making it decodes nothing yet.
class SettingsFile : public QSettings
{
public:
    SettingsFile() : QSettings(System::settingsFormat(), QSettings::UserScope, "wallwright", "wallwright")
    {
        setFallbacksEnabled(false);
    }

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

/// What a value becomes that has just been read.
using Change = std::function<QVariant(const QVariant &old)>;

/// Whether both hold the same; numbers come out of a file as texts.
bool areSame(const QSettings &set, const QSettings &read)
{
    const QStringList keys = set.allKeys();
    return read.allKeys() == keys && std::all_of(keys.begin(), keys.end(), [&](const QString &key) {
               QVariant found = read.value(key);
               found.convert(set.value(key).metaType());
               return found == set.value(key);
           });
}

/// The bytes of a settings file with another value in it. QSettings does not notice when the disk is full and it has
/// written half of them: so it writes beside, and what it has written is read again.
Result<QByteArray> withValue(const QByteArray &old, const char *key, const Change &change)
{
    const QTemporaryDir folder;
    const QString written = folder.filePath("written");
    const QString again = folder.filePath("again");
    const QString before = folder.filePath("before");
    const Result<void> isThere = FileBytes::write(before, old).and_then([&] { return FileBytes::write(written, old); });
    if (!isThere)
        return tl::unexpected(isThere.error());
    QSettings set(written, QSettings::IniFormat);
    if (set.allKeys() != QSettings(before, QSettings::IniFormat).allKeys()) // nor that it cannot be read
        return fail(written + ": cannot be read");
    set.setValue(key, change(set.value(key)));
    set.sync();
    Result<QByteArray> bytes = FileBytes::read(written, mostBytes);
    const Result<void> isCopied = bytes ? FileBytes::write(again, *bytes) : tl::unexpected(bytes.error());
    if (!isCopied || !areSame(set, QSettings(again, QSettings::IniFormat)))
        return fail(written + ": cannot be written");
    return bytes;
}

/// Another time than the old file had: QSettings takes a file of the same time and size for the one that it has read.
void changeTime(const QString &path, const QDateTime &old)
{
    QFile file(path);
    if (old.isValid() && QFileInfo(path).lastModified() <= old && file.open(QIODevice::ReadWrite))
        file.setFileTime(old.addMSecs(1), QFileDevice::FileModificationTime);
}

void changeValue(const char *key, const Change &change)
{
    const QString path = SettingsFile().fileName();
    QDir().mkpath(QFileInfo(path).path());
    QLockFile lock(path + ".lock");
    (void)lock.tryLock(static_cast<int>(longestWait.count())); // where there can be no lock, it goes without
    const QFileInfo file(path);
    const QDateTime time = file.lastModified();
    const bool isOurs = file.exists() && file.size() <= mostBytes;
    const Result<void> isSet = (isOurs ? FileBytes::read(path, mostBytes) : Result<QByteArray>(QByteArray()))
                                   .and_then([&](const QByteArray &old) { return withValue(old, key, change); })
                                   .and_then([&](const QByteArray &bytes) { return FileBytes::write(path, bytes); });
    if (isSet)
        changeTime(path, time);
}

void setValue(const char *key, const QVariant &newValue)
{
    changeValue(key, [&](const QVariant & /*old*/) { return newValue; });
}

QStringList recentFilesIn(const QVariant &value)
{
    QStringList paths;
    for (const QString &path : value.toStringList()) {
        if (QDir::isAbsolutePath(path))
            paths.append(QDir::cleanPath(path));
    }
    paths.removeDuplicates();
    return paths.mid(0, Settings::mostRecentFiles);
}

QString absolutePath(const QString &path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

/// What an entry of a region begins with: paths may be long, and the file is not.
QString wallRegionBegin(const QString &display, const QString &project)
{
    const QByteArray names = (display + '\n' + absolutePath(project)).toUtf8();
    return QCryptographicHash::hash(names, QCryptographicHash::Sha1).toHex() + ' ';
}
} // namespace

namespace Settings {

QStringList recentFiles()
{
    return recentFilesIn(value(recentFilesKey));
}

void noteRecentFile(const QString &path)
{
    if (path.isEmpty())
        return;
    changeValue(recentFilesKey, [&](const QVariant &old) {
        return recentFilesIn(QStringList(absolutePath(path)) + recentFilesIn(old));
    });
}

void forgetRecentFile(const QString &path)
{
    if (!recentFiles().contains(absolutePath(path)))
        return;
    changeValue(recentFilesKey, [&](const QVariant &old) {
        QStringList paths = recentFilesIn(old);
        paths.removeAll(absolutePath(path));
        return paths;
    });
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

QString wallRegion(const QString &display, const QString &project)
{
    const QString begin = wallRegionBegin(display, project);
    for (const QString &entry : value(wallRegionsKey).toStringList()) {
        if (entry.startsWith(begin))
            return entry.mid(begin.size());
    }
    return {};
}

void setWallRegion(const QString &display, const QString &project, const QString &region)
{
    const QString begin = wallRegionBegin(display, project);
    changeValue(wallRegionsKey, [&](const QVariant &old) {
        QStringList entries = old.toStringList();
        entries.removeIf([&](const QString &entry) { return entry.startsWith(begin); });
        entries.prepend(begin + region);
        return entries.mid(0, mostWallRegions);
    });
}

QStringList wrongPanels()
{
    return value(wrongPanelsKey).toStringList();
}

void setWrongPanels(const QStringList &panels)
{
    setValue(wrongPanelsKey, panels.mid(0, mostWrongPanels));
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
