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
#include "still/LWStill.h"
#include "still/PictureFile.h"
#include "tests/base/FullDisk.h"
#include "tests/psd/PlainPackBits.h"
#include "tests/screen/TestHost.h"
#include "windows/inspector/SumText.h"

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QMimeData>
#include <QStringListModel>
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

/// A file that holds the bytes, until the next one is asked for.
QString fileOf(const QByteArray &bytes)
{
    static const QTemporaryDir folder;
    QFile file(folder.filePath("it"));
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "there is a disk");
    return file.fileName();
}

template <typename Value>
void requireRead(const Result<Value> &read, const char *promise)
{
    if (!read)
        qCritical("%s", qUtf8Printable(read.error().text));
    require(read.has_value(), promise);
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

/// What the program does with whatever it has read.
void lookAt(const std::vector<LayerPointer> &layers, LayerHost &host)
{
    requireSentence(LayerArchive::copies(layers, host));
    for (const LayerPointer &layer : layers) {
        if (layer->kind() == LayerKind::Still)
            static_cast<const LWStill &>(*layer).ImageURL().toLocalFile();
    }
}

Result<QByteArray> textOf(const Project &project)
{
    return ProjectFile::check(project).map([&] { return ProjectText::encode(project); });
}

void runProject(const QByteArray &bytes)
{
    TestHost host;
    const auto decode = [&](const QByteArray &file) { return ProjectFile::read(fileOf(file), host); };
    runThereAndBack(bytes, &ProjectFile::encode, decode);
    const Result<Project> project = decode(bytes);
    if (!project)
        return;
    lookAt(project->layers, host);
    if (const Result<QByteArray> text = textOf(*project))
        requireRead(ProjectText::read(fileOf(*text), host), "as a text it can be read");
}

void runPresets(const QByteArray &bytes)
{
    TestHost host;
    const auto decode = [&](const QByteArray &file) { return PresetLibrary::read(fileOf(file), host); };
    runThereAndBack(bytes, &PresetLibrary::encode, decode);
    if (const Result<std::vector<LayerPointer>> presets = decode(bytes))
        lookAt(*presets, host);
}

void runText(const QByteArray &bytes)
{
    TestHost host;
    const auto decode = [&](const QByteArray &file) { return ProjectText::read(fileOf(file), host); };
    runThereAndBack(bytes, &textOf, decode);
    const Result<QByteArray> archive = decode(bytes).and_then(&ProjectFile::encode);
    if (archive)
        requireRead(ProjectFile::decode(*archive, host), "as an archive it can be read");
}

void runLayers(const QByteArray &bytes)
{
    TestHost host;
    auto *pasteboard = new QMimeData; // the clipboard owns it
    pasteboard->setData(LayerPasteboard::type, bytes);
    QGuiApplication::clipboard()->setMimeData(pasteboard);
    require(LayerPasteboard::hasLayers(), "the clipboard has what it was given");
    const Result<std::vector<LayerPointer>> layers = LayerPasteboard::read(host);
    requireSentence(layers);
    if (!layers)
        return;
    require(!layers->empty(), "there is a layer");
    lookAt(*layers, host);
    const Result<void> written = LayerPasteboard::write(*layers);
    requireSentence(written);
    if (written)
        requireRead(LayerPasteboard::read(host), "what was copied can be pasted");
}

void runRows(const QByteArray &bytes)
{
    QMimeData drag;
    drag.setData(RowPasteboard::type, bytes);
    const Result<std::vector<qsizetype>> rows = RowPasteboard::read(drag);
    requireSentence(rows);
    if (!rows)
        return;
    require(std::ranges::is_sorted(*rows) && RowPasteboard::decode(*RowPasteboard::encode(*rows)) == rows,
            "rows come back");
    static const QStringListModel table(QStringList(100));
    QModelIndexList indexes;
    for (const qsizetype row : *rows) {
        if (row < table.rowCount())
            indexes.append(table.index(static_cast<int>(row)));
    }
    const std::unique_ptr<QMimeData> again(RowPasteboard::write(indexes));
    require(!again == indexes.isEmpty() && (!again || std::ssize(*RowPasteboard::read(*again)) == indexes.size()),
            "rows of a table come back");
}

void runPasteboard(const QByteArray &bytes)
{
    runLayers(bytes);
    runRows(bytes);
}

void runPicture(const QByteArray &bytes)
{
    const QString path = fileOf(bytes);
    PictureFile::isPicture(path);
    const PictureFile::Small small = PictureFile::small(path, {64, 64}, 1 << 20);
    require(small.picture.width() <= 64 && small.picture.height() <= 64, "a small picture is small");
    if (const std::shared_ptr<const QImage> picture = PictureFile::load(path).picture)
        require(Raster::canHold(picture->width(), picture->height()) && picture->format() == Raster::format,
                "a picture is a raster");
}

/// The bytes up to the first nought are the project's path, the rest is the copy. Beside it lies what killed programs
/// leave.
QString recoveryFolder(const QByteArray &bytes)
{
    static const QTemporaryDir home;
    QString folder = home.filePath("recovery");
    QDir(folder).removeRecursively();
    for (const char *name : {"/left", "/empty", "/killed"})
        QDir().mkpath(folder + name);
    const qsizetype end = bytes.indexOf('\0');
    const std::pair<QString, QByteArray> files[] = {{"/left/project-path", bytes.left(std::max<qsizetype>(end, 0))},
                                                    {"/left/project.Orv", bytes.mid(end + 1)},
                                                    {"/killed/project-path", bytes},
                                                    {"/killed/lock", {}}};
    for (const auto &[name, content] : files)
        require(FileBytes::write(folder + name, content).has_value(), "there is a disk");
    return folder;
}

/// A program goes on from a copy; another one looks on.
void goOn(RecoveryCopy &copy, RecoveryCopy &other, const QString &projectPath, LayerHost &host)
{
    copy.contentDidChange();
    copy.flush(); // over the one that was taken, or as a new one
    require(copy.found().empty(), "it is held");
    copy.leave();
    const std::vector<FoundCopy> left = other.found();
    require(left.size() == 1 && left[0].project.path == projectPath, "it is left for the next");
    requireRead(copy.take(left[0], host), "what was kept can be read");
    require(!other.take(left[0], host) && !other.discard(left[0]), "it is taken");
    copy.documentWasSaved({"/shows/next.Orv", {}});
    require(other.found().empty() && !other.take(left[0], host), "it goes");
}

/// What cannot be kept is told, once.
void failToKeep(const QString &folder, const RecoveryCopy::Contents &contents)
{
    int told = 0;
    RecoveryCopy copy(contents, folder);
    QObject::connect(&copy, &RecoveryCopy::couldNotKeep, [&](const QString &sentence) { told += !sentence.isEmpty(); });
    copy.contentDidChange();
    copy.flush();
    copy.flush();
    require(told == 1, "it is told");
}

void runRecovery(const QByteArray &bytes)
{
    const QString folder = recoveryFolder(bytes);
    TestHost host;
    const auto contents = [] { return Project{9, 9, {}}; };
    RecoveryCopy copy(contents, folder);
    RecoveryCopy other(contents, folder);
    QObject::connect(&copy, &RecoveryCopy::couldNotKeep, [] { require(false, "there is a disk"); });
    const std::vector<FoundCopy> found = copy.found();
    require(found.size() == 1, "a copy is found");
    require(found[0].project.path.isEmpty() || QDir::isAbsolutePath(found[0].project.path),
            "its project's path is one");
    const Result<Project> taken = copy.take(found[0], host);
    requireSentence(taken);
    require(QFile::exists(found[0].path), "it stays");
    if (!taken)
        require(copy.discard(found[0]).has_value(), "it can be discarded");

    failToKeep(folder + "/killed/lock/below a file", contents);
    failToKeep(folder, [] { return Project{0, 9, {}}; }); // that no file can hold
    {
        const FullDisk disk(0);
        failToKeep(folder, contents);
    }
    goOn(copy, other, taken ? found[0].project.path : QString(), host);
    goOn(copy, other, "/shows/next.Orv", host);
    require(QDir(folder).isEmpty(), "what was left is cleared away");
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
