#include "formats/PresetStore.h"

#include "archive/KeyedArchive.h"
#include "base/FileBytes.h"
#include "formats/PresetLibrary.h"
#include "show/LayerArchive.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>

#include <chrono>

namespace {
/// Another program holds the file only while it writes.
constexpr std::chrono::milliseconds longestWait{1000};

/// Equal for presets whose values are the same. Unknown content does not count: it may refer to another preset, whose
/// values would come along, so that an edit of that one would make this one a stranger.
QByteArray archiveOf(const Layer &preset)
{
    return KeyedArchive::write({ArchiveObjectPointer(LayerArchive::recordOf(preset))}).value_or(QByteArray());
}
} // namespace

QString PresetStore::standardPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/wallwright/presets";
}

Result<std::optional<std::vector<LayerPointer>>> PresetStore::load(LayerHost &host)
{
    if (!QFileInfo::exists(m_path))
        return std::nullopt;
    const Result<QByteArray> bytes = FileBytes::read(m_path, LayerArchive::mostBytes);
    if (!bytes)
        return tl::unexpected(putAside(bytes.error()));
    const Result<std::vector<LayerPointer>> presets = PresetLibrary::decode(*bytes, host);
    if (!presets)
        return tl::unexpected(putAside({m_path + ": " + presets.error().text}));
    know(*presets);
    return *presets;
}

Result<void> PresetStore::save(const std::vector<LayerPointer> &presets, LayerHost &host)
{
    QDir().mkpath(QFileInfo(m_path).path());
    QLockFile lock(m_path + ".lock");
    lock.tryLock(static_cast<int>(longestWait.count())); // where there can be no lock, it goes without
    const Result<std::vector<LayerPointer>> others = ofOthers(host);
    if (!others)
        return tl::unexpected(others.error());

    std::vector<LayerPointer> all = presets;
    all.insert(all.end(), others->begin(), others->end());
    const Result<QByteArray> bytes = PresetLibrary::encode(all);
    if (!bytes)
        return failWithin(m_path, bytes.error());
    const Result<void> written = FileBytes::write(m_path, *bytes);
    if (written)
        know(presets);
    return written;
}

/// The presets in the file that this program has never had.
Result<std::vector<LayerPointer>> PresetStore::ofOthers(LayerHost &host) const
{
    std::vector<LayerPointer> others;
    if (!QFileInfo::exists(m_path))
        return others;
    const Result<QByteArray> bytes = FileBytes::read(m_path, LayerArchive::mostBytes);
    if (!bytes)
        return tl::unexpected(bytes.error());
    Result<std::vector<LayerPointer>> there = PresetLibrary::decode(*bytes, host);
    if (!there)
        return failWithin(m_path, there.error());
    for (const LayerPointer &preset : *there) {
        if (!m_known.contains(archiveOf(*preset)))
            others.push_back(preset);
    }
    return others;
}

void PresetStore::know(const std::vector<LayerPointer> &presets)
{
    for (const LayerPointer &preset : presets)
        m_known.insert(archiveOf(*preset));
}

/// The sentence that tells of it.
Error PresetStore::putAside(const Error &why) const
{
    QString place = m_path + ".damaged";
    for (int number = 2; QFileInfo::exists(place); ++number)
        place = QString("%1.damaged-%2").arg(m_path).arg(number);
    if (!QFile::rename(m_path, place))
        return {"Your presets cannot be read, these are the built-in ones: " + why.text};
    return {QString("Your presets cannot be read and were put aside as %1; these are the built-in ones: %2")
                .arg(QFileInfo(place).fileName(), why.text)};
}
