#include "tests/app/RandomWalk.h"

#include "archive/KeyedArchive.h"
#include "facts/ShowCables.h"
#include "formats/PresetLibrary.h"
#include "formats/ProcessorList.h"
#include "formats/ProjectFile.h"
#include "screen/LWScreen.h"
#include "show/LayerArchive.h"
#include "tests/formats/SampleProject.h"

#include <QFile>

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

RandomWalk::RandomWalk(unsigned seed) : m_values(seed)
{
    QImage plate(61, 43, QImage::Format_RGB32);
    plate.fill(0x204080U);
    EXPECT_TRUE(plate.save(pathOf("plate.png")));
    const std::vector<LayerPointer> library{LWScreen::init(m_host), LWScreen::init(m_host), LWScreen::init(m_host)};
    EXPECT_TRUE(PresetLibrary::write(pathOf("library"), library));
    EXPECT_TRUE(ProjectFile::write(pathOf("a.Orv"), {90, 160, {LWScreen::init(m_host)}}));
    QFile good(pathOf("a.Orv"));
    QFile damaged(pathOf("damaged.Orv"));
    EXPECT_TRUE(good.open(QIODevice::ReadOnly) && damaged.open(QIODevice::WriteOnly));
    damaged.write(good.read(good.size() / 2));
    damaged.close();

    m_document->applicationOpenFile(pathOf("a.Orv"));
    m_document->applicationDidFinishLaunching();
    m_archives = {archive()};
}

void RandomWalk::step()
{
    static std::vector<int> weights;
    if (weights.empty()) {
        for (const Action &action : actions)
            weights.push_back(action.weight);
    }
    const std::size_t chosen =
        std::discrete_distribution<std::size_t>(weights.begin(), weights.end())(m_values.generator());
    m_done.append(actions[chosen].name);
    if (m_done.size() > 30)
        m_done.removeFirst();
    (this->*actions[chosen].run)();
    checkList(layers());
    checkList(presets());
    checkHistory();
}

QByteArray RandomWalk::archive() const
{
    const std::vector<LayerPointer> &all = m_document->allScreensArray();
    const Result<QByteArray> bytes =
        KeyedArchive::write(ArchiveValue::list({{qint64{m_document->OutputHeight()}},
                                                {qint64{m_document->OutputWidth()}},
                                                ProcessorList::toArchive(m_document->wiring().processors()),
                                                LayerArchive::encode(all),
                                                LayerArchive::encode(m_document->presetScreensArray())}));
    return bytes ? *bytes : archiveText(project()).toUtf8(); // a text may have what no file can hold
}

/// Says where archives differ instead of showing all their bytes.
void RandomWalk::expectSame(const QByteArray &one, const QByteArray &other)
{
    const auto difference = std::mismatch(one.begin(), one.end(), other.begin(), other.end()).first;
    EXPECT_TRUE(one == other) << one.size() << " and " << other.size() << " bytes, alike up to "
                              << difference - one.begin() << "; before \"" << qPrintable(stack().redoText())
                              << "\", after \"" << qPrintable(stack().undoText()) << '"';
}

void RandomWalk::expectArchiveOfHere()
{
    expectSame(archive(), m_archives[static_cast<std::size_t>(stack().index())]);
}

void RandomWalk::checkList(const LayerList &list)
{
    ASSERT_EQ(list.rowCount(), std::ssize(list.layers()));
    const std::vector<qsizetype> &rows = list.selectionIndexes();
    ASSERT_EQ(rows.empty(), list.layers().empty());
    ASSERT_EQ(list.selectionIndex() == -1, list.layers().empty());
    ASSERT_EQ(std::adjacent_find(rows.begin(), rows.end(), std::greater_equal<>()), rows.end()); // rising, none twice
    ASSERT_TRUE(rows.empty() || (rows.front() >= 0 && rows.back() < list.rowCount()));
    ASSERT_TRUE(rows.empty() || std::binary_search(rows.begin(), rows.end(), list.selectionIndex()));
    ASSERT_EQ(std::count(list.layers().begin(), list.layers().end(), nullptr), 0);
}

void RandomWalk::checkHistory()
{
    const int index = stack().index();
    const int count = stack().count();
    ASSERT_EQ(stack().canUndo(), index > 0);
    ASSERT_EQ(stack().canRedo(), index < count);
    ASSERT_LE(count, DocumentHistory::mostSteps);
    const QUndoCommand *const lastStep = index > 0 ? stack().command(index - 1) : nullptr;
    ASSERT_LE(index, m_index + 1); // one action is one step
    const bool oldestHasGone = index == m_index && index == DocumentHistory::mostSteps && lastStep != m_lastStep;
    if (oldestHasGone)
        m_archives.erase(m_archives.begin());
    m_index = index;
    m_lastStep = lastStep;
    m_archives.resize(static_cast<std::size_t>(count) + 1);
    m_archives[static_cast<std::size_t>(index)] = archive();
    m_mostSteps = qMax(m_mostSteps, count);

    ASSERT_GE(m_document->screenNumber(), m_screenNumber);
    m_screenNumber = m_document->screenNumber();
}

void RandomWalk::walkBackAndForth(int most)
{
    const int top = stack().index();
    const int bottom = qMax(0, top - most);
    const QByteArray here = archive();
    while (stack().index() > bottom) {
        stack().undo();
        checkList(layers());
        expectArchiveOfHere();
    }
    while (stack().index() < top) {
        stack().redo();
        expectArchiveOfHere();
    }
    expectSame(archive(), here);
}

void RandomWalk::expectOutputAsComposedAnew()
{
    m_document->timerupdate();
    m_document->update();
    checkHistory(); // what a rendering writes belongs to the state that is shown
    const ShowPorts ports = ShowPorts::of(project());
    const std::vector<WallCablesPointer> cables = ShowCables::of(ports);
    const auto drawnAnew = [&](const Layer &layer, qsizetype row) {
        const LayerLook look = layer.shownLook();
        if (layer.kind() != LayerKind::Wall || !look.record)
            return layer.thumbnail();
        const auto &[corners, voltage, phases] = look.around;
        const auto wall = std::ranges::find(ports.rows, row) - ports.rows.begin();
        const WallCablesPointer shown = ShowCables::areShown(layer) ? cables[static_cast<std::size_t>(wall)] : nullptr;
        return ScreenChart(*look.record, {static_cast<int>(corners), voltage, phases, shown}).draw({});
    };
    std::vector<PlacedPicture> pictures;
    for (qsizetype row = 0; row < std::ssize(layers().layers()); ++row) {
        const Layer &layer = *layers().layers()[static_cast<std::size_t>(row)];
        if (layer.visible())
            pictures.push_back({drawnAnew(layer, row),
                                {layer.xpoint(), layer.ypoint()},
                                {layer.screenSizeWidth(), layer.screenSizeHeight()}});
    }
    const OutputStyle style{
        {m_document->OutputWidth(), m_document->OutputHeight()}, m_document->bgColor(), m_document->edgeColor()};
    EXPECT_TRUE(m_document->img() == Composition().compose(pictures, style));
}

void RandomWalk::end()
{
    m_document->openProjectPre(pathOf("a.Orv"));
    m_document->AddScreen();
    const Result<QByteArray> last = ProjectFile::encode(project());
    m_document.reset();
    ASSERT_TRUE(last.has_value()) << qPrintable(last.error().text);
    const std::vector<FoundCopy> found = RecoveryFolder::found(pathOf("recovery"));
    EXPECT_TRUE(std::any_of(found.begin(), found.end(), [&](const FoundCopy &copy) {
        const Result<Project> kept = ProjectFile::read(copy.path, m_host);
        return kept && ProjectFile::encode(*kept) == last;
    }));
}
