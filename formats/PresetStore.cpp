#include "formats/PresetStore.h"

#include "archive/KeyedArchive.h"
#include "base/FileBytes.h"
#include "base/Memory.h"
#include "formats/PresetLibrary.h"
#include "show/LayerArchive.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>

#include <algorithm>
#include <chrono>
#include <iterator>

namespace {
/// Another program holds the file only while it writes.
constexpr std::chrono::milliseconds longestWait{1000};

const QString beginning("Your presets cannot be read, these are the built-in ones: ");

/// Equal for presets whose values are the same. Unknown content does not count: it may refer to another preset, whose
/// values would come along, so that an edit of that one would make this one a stranger.
QByteArray digestOf(const ArchiveObjectPointer &preset)
{
    return FileBytes::digestOf(KeyedArchive::write({preset}).value_or(QByteArray()));
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
    bool isDamaged = false;
    const Result<std::vector<LayerPointer>> presets = read(host, isDamaged);
    if (!presets)
        return tl::unexpected(isDamaged ? putAside(presets.error()) : Error{beginning + presets.error().text});
    know(*presets);
    return *presets;
}

/// What stands in the file, which is there. `isDamaged`: that is no list of presets.
Result<std::vector<LayerPointer>> PresetStore::read(LayerHost &host, bool &isDamaged) const
{
    const Result<QByteArray> bytes = FileBytes::read(m_path, LayerArchive::mostBytes);
    if (!bytes)
        return tl::unexpected(bytes.error());
    Result<std::vector<LayerPointer>> presets = Memory::orError([&] {
        Result<std::vector<LayerPointer>> decoded = PresetLibrary::decode(*bytes, host);
        isDamaged = !decoded;
        return decoded;
    });
    if (!presets)
        return failWithin(m_path, presets.error());
    return presets;
}

Result<void> PresetStore::save(const std::vector<LayerPointer> &presets, LayerHost &host)
{
    QDir().mkpath(QFileInfo(m_path).path());
    QLockFile lock(m_path + ".lock");
    (void)lock.tryLock(static_cast<int>(longestWait.count())); // where there can be no lock, it goes without
    const Result<std::vector<LayerPointer>> there = ofFile(host);
    if (!there)
        return tl::unexpected(there.error());
    const Result<QByteArray> bytes = Memory::orError([&] {
        std::vector<LayerPointer> all = presets;
        std::ranges::copy_if(*there, std::back_inserter(all), [&](const LayerPointer &preset) {
            return !known().contains(digestOf(LayerArchive::recordOf(*preset)));
        });
        return PresetLibrary::encode(all);
    });
    if (!bytes)
        return failWithin(m_path, bytes.error());
    Result<void> written = FileBytes::write(m_path, *bytes);
    if (written)
        know(presets);
    return written;
}

/// The presets in the file, if there is one.
Result<std::vector<LayerPointer>> PresetStore::ofFile(LayerHost &host) const
{
    bool isDamaged = false;
    return QFileInfo::exists(m_path) ? read(host, isDamaged) : std::vector<LayerPointer>();
}

void PresetStore::know(const std::vector<LayerPointer> &presets)
{
    for (const LayerPointer &preset : presets)
        m_met.push_back(LayerArchive::recordOf(*preset));
}

/// Digests of the presets that this program has read or written: each edit adds one, so that archives would pile up.
const QSet<QByteArray> &PresetStore::known()
{
    for (const ArchiveObjectPointer &preset : m_met)
        m_known.insert(digestOf(preset));
    m_met.clear();
    return m_known;
}

/// The sentence that tells of it.
Error PresetStore::putAside(const Error &why) const
{
    QString place = m_path + ".damaged";
    for (int number = 2; QFileInfo::exists(place); ++number)
        place = QString("%1.damaged-%2").arg(m_path).arg(number);
    if (!QFile::rename(m_path, place))
        return {beginning + why.text};
    return {QString("Your presets cannot be read and were put aside as %1; these are the built-in ones: %2")
                .arg(QFileInfo(place).fileName(), why.text)};
}
