#include "fuzz/Targets.h"

#include "archive/PropertyList.h"
#include "archive/PropertyListGuard.h"
#include "base/FileBytes.h"
#include "drawing/Raster.h"
#include "formats/PresetLibrary.h"
#include "formats/ProjectFile.h"
#include "formats/ProjectText.h"
#include "psd/PackBits.h"
#include "recovery/RecoveryCopy.h"
#include "show/LayerArchive.h"
#include "show/LayerPasteboard.h"
#include "show/RowPasteboard.h"
#include "still/PictureFile.h"
#include "tests/psd/PlainPackBits.h"
#include "tests/screen/TestHost.h"
#include "windows/inspector/SumText.h"

#include <QDir>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace {
/// A broken promise.
void require(bool holds, const char *promise)
{
    if (holds)
        return;
    qCritical("broken: %s", promise);
    std::abort();
}

template <typename Value>
void requireSentence(const Result<Value> &result)
{
    require(result || !result.error().text.isEmpty(), "an error has a sentence");
}

void runPropertyList(const QByteArray &bytes)
{
    const Result<PropertyList::Pointer> list = PropertyList::parse(bytes);
    requireSentence(list);
    if (list)
        requireSentence(PropertyList::toBinary(list->get()));
}

/// Each kind of value is asked for, whatever it is.
void askAll(const ArchiveValue &value)
{
    requireSentence(value.toInt32("it"));
    requireSentence(value.toBool("it"));
    requireSentence(value.toColour("it"));
    requireSentence(value.toText("it"));
    requireSentence(value.toTextList("it"));
    if (const Result<Address> address = value.toAddress("it"))
        address->toLocalFile();
    requireSentence(value.toIndexSet("it"));
    requireSentence(value.toObject("it"));
    if (const Result<ArchiveList> list = value.toList("it"); list && (*list)->size() < 1000) {
        for (const ArchiveValue &entry : **list)
            requireSentence(entry.toColour("an entry"));
        for (const ArchiveValue &entry : **list)
            requireSentence(
                entry.toAddress("an entry").map([](const Address &address) { return address.toLocalFile(); }));
    }
}

void runArchive(const QByteArray &bytes)
{
    const Result<KeyedArchive::Contents> contents =
        LayerArchive::readContents(bytes, {{}, 3, "wallwright", {"voltage"}});
    requireSentence(contents);
    if (!contents)
        return;
    askAll(contents->root);
    const Result<QByteArray> written = KeyedArchive::writeContents(*contents);
    requireSentence(written);
    if (written)
        require(LayerArchive::readContents(*written, {{}, 3, "wallwright", {"voltage"}}).has_value(),
                "what is written can be read");
}

/// What was read is written, and what was written is read and written again, from then on the same.
template <typename Encode, typename Decode>
void runThereAndBack(const QByteArray &bytes, const Encode &encode, const Decode &decode)
{
    const auto read = decode(bytes);
    requireSentence(read);
    const Result<QByteArray> written = read ? encode(*read) : fail("unread");
    requireSentence(written);
    if (!written)
        return;
    const auto again = decode(*written);
    require(again.has_value(), "what is written can be read");
    // Unknown texts may be in an encoding that the first writing keeps, and the second does not.
    const Result<QByteArray> settled = encode(*again);
    const auto atLast = settled ? decode(*settled) : fail(settled.error().text);
    require(atLast.has_value(), "what was written twice can be read");
    require(encode(*atLast) == settled, "what comes back is the same");
}

void runProject(const QByteArray &bytes)
{
    TestHost host;
    runThereAndBack(bytes, &ProjectFile::encode,
                    [&](const QByteArray &file) { return ProjectFile::decode(file, host); });
}

void runPresets(const QByteArray &bytes)
{
    TestHost host;
    runThereAndBack(bytes, &PresetLibrary::encode,
                    [&](const QByteArray &file) { return PresetLibrary::decode(file, host); });
}

void runText(const QByteArray &bytes)
{
    TestHost host;
    const auto encode = [](const Project &project) {
        return ProjectFile::check(project).map([&] { return ProjectText::encode(project); });
    };
    runThereAndBack(bytes, encode, [&](const QByteArray &file) { return ProjectText::decode(file, "/nowhere", host); });
}

void runPasteboard(const QByteArray &bytes)
{
    TestHost host;
    const Result<std::vector<LayerPointer>> layers = LayerPasteboard::decode(bytes, host);
    requireSentence(layers);
    require(!layers || !layers->empty(), "there is a layer");
    const Result<std::vector<qsizetype>> rows = RowPasteboard::decode(bytes);
    requireSentence(rows);
    if (rows)
        require(std::ranges::is_sorted(*rows) && RowPasteboard::decode(*RowPasteboard::encode(*rows)) == rows,
                "rows come back");
}

void runPicture(const QByteArray &bytes)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath("picture");
    require(FileBytes::write(path, bytes).has_value(), "there is a disk");
    PictureFile::isPicture(path);
    if (const std::shared_ptr<const QImage> picture = PictureFile::load(path))
        require(Raster::canHold(picture->width(), picture->height()) && picture->format() == Raster::format,
                "a picture is a raster");
}

/// The bytes up to the first nought are the project's path, the rest is the copy.
void runRecovery(const QByteArray &bytes)
{
    static const QTemporaryDir home;
    const QString folder = home.filePath("recovery");
    QDir(folder).removeRecursively();
    QDir().mkpath(folder + "/left");
    const qsizetype end = bytes.indexOf('\0');
    require(FileBytes::write(folder + "/left/project-path", bytes.left(std::max<qsizetype>(end, 0))).has_value() &&
                FileBytes::write(folder + "/left/project.Orv", bytes.mid(end + 1)).has_value(),
            "there is a disk");
    TestHost host;
    RecoveryCopy copy([] { return Project{9, 9, {}}; }, folder);
    const std::vector<FoundCopy> found = copy.found();
    require(found.size() == 1, "a copy is found");
    require(found[0].projectPath.isEmpty() || QDir::isAbsolutePath(found[0].projectPath), "its project's path is one");
    const Result<Project> taken = copy.take(found[0], host);
    requireSentence(taken);
    require(QFile::exists(found[0].path), "it stays");
}

void runSum(const QByteArray &bytes)
{
    const QString text = QString::fromUtf8(bytes);
    const std::optional<double> value = SumText::value(text);
    require(value.has_value() == SumText::fault(text).isEmpty(), "a text without a value has a fault");
    SumText::isNumber(text);
    SumText::isUnfinished(text);
}

/// The first byte is the distance of the bytes that are packed.
void runPackBits(const QByteArray &bytes)
{
    const QByteArray block = bytes.mid(1);
    const int skip = bytes.isEmpty() ? 1 : std::max(1, bytes[0] & 7);
    const QByteArray packed = PackBits::kxPackedBitsForRange(block, {0, static_cast<quint64>(block.size())}, skip);
    QByteArray meant;
    for (qsizetype i = 0; i < block.size(); i += skip)
        meant += block[i];
    require(PlainPackBits::unpack(packed) == meant, "packed bytes come back");
    require(packed == PlainPackBits::pack(meant), "the fast packer is the plain one");
    PackBits::kxPackedBitsDescription(block);
}

constexpr std::array all{
    Fuzz::Target{"plist", &runPropertyList},
    Fuzz::Target{"archive", &runArchive},
    Fuzz::Target{"project", &runProject},
    Fuzz::Target{"presets", &runPresets},
    Fuzz::Target{"json", &runText},
    Fuzz::Target{"pasteboard", &runPasteboard},
    Fuzz::Target{"picture", &runPicture},
    Fuzz::Target{"recovery", &runRecovery},
    Fuzz::Target{"sum", &runSum},
    Fuzz::Target{"packbits", &runPackBits},
};
} // namespace

namespace Fuzz {

std::span<const Target> targets()
{
    return all;
}

const Target *targetNamed(const QString &name)
{
    const auto *const found =
        std::find_if(all.begin(), all.end(), [&](const Target &target) { return name == target.name; });
    return found == all.end() ? nullptr : found;
}

} // namespace Fuzz
